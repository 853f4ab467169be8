#include "adapters/qt/icons.h"

#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>

namespace inin::qt {

namespace {

/// The side of the square that the icons are drawn in.
constexpr double kSide = 24;
constexpr double kStroke = 1.6;

QPainterPath printer()
{
    QPainterPath path;
    path.addRect(7, 3, 10, 5);
    path.addRoundedRect(3, 8, 18, 9, 1.5, 1.5);
    path.addRect(7, 14, 10, 7);
    path.moveTo(17, 11);
    path.lineTo(18.2, 11);
    return path;
}

QPainterPath preview()
{
    QPainterPath path;
    path.addRect(4, 3, 12, 17);
    path.moveTo(7, 7);
    path.lineTo(13, 7);
    path.moveTo(7, 10.5);
    path.lineTo(10, 10.5);
    path.addEllipse(QPointF(15, 14), 4.2, 4.2);
    path.moveTo(18, 17);
    path.lineTo(21.5, 20.5);
    return path;
}

QPainterPath back()
{
    QPainterPath path;
    path.moveTo(9, 4);
    path.lineTo(3.5, 9);
    path.lineTo(9, 14);
    path.moveTo(3.5, 9);
    path.lineTo(14, 9);
    path.arcTo(QRectF(9, 9, 11, 10), 90, -180);
    path.lineTo(9, 19);
    return path;
}

QPainterPath calendar()
{
    QPainterPath path;
    path.addRoundedRect(4, 5, 16, 15, 1.5, 1.5);
    path.moveTo(4, 10);
    path.lineTo(20, 10);
    path.moveTo(8.5, 3);
    path.lineTo(8.5, 7);
    path.moveTo(15.5, 3);
    path.lineTo(15.5, 7);
    return path;
}

class LineIcon : public QIconEngine {
public:
    LineIcon(const QPainterPath &path, const QPalette &palette) : m_path(path), m_palette(palette) {}
    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State) override
    {
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(rect.topLeft());
        painter->scale(rect.width() / kSide, rect.height() / kSide);
        painter->setPen(
            QPen(m_palette.color(group, QPalette::ButtonText), kStroke, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter->drawPath(m_path);
        painter->restore();
    }
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return picture;
    }
    [[nodiscard]] QIconEngine *clone() const override { return new LineIcon(m_path, m_palette); }

private:
    QPainterPath m_path;
    QPalette m_palette;
};

} // namespace

QIcon printIcon(const QPalette &palette)
{
    return QIcon(new LineIcon(printer(), palette));
}
QIcon previewIcon(const QPalette &palette)
{
    return QIcon(new LineIcon(preview(), palette));
}
QIcon backIcon(const QPalette &palette)
{
    return QIcon(new LineIcon(back(), palette));
}
QIcon calendarIcon(const QPalette &palette)
{
    return QIcon(new LineIcon(calendar(), palette));
}

} // namespace inin::qt
