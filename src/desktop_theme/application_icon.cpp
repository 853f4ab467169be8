#include "desktop_theme/application_icon.h"

#include <QIconEngine>
#include <QPainter>
#include <QPixmap>

#include <algorithm>
#include <map>

namespace inin::theme {

namespace {

/// The side of the square that the icon is drawn in.
constexpr qreal kSide = 32;

QPixmap letterWithSeal(int side)
{
    QPixmap picture(side, side);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(side / kSide, side / kSide);
    const auto pen = [](const QColor &colour, qreal width) {
        return QPen(colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    };
    const QColor ink(0x3B, 0x5B, 0x84), seal(0xCC, 0x2A, 0x24);
    painter.setPen(pen(ink, 2));
    painter.setBrush(QColor(0xFD, 0xFC, 0xF7));
    painter.drawRoundedRect(QRectF(4, 2, 24, 28), 3, 3);
    painter.setPen(pen(ink, 1.6));
    painter.drawLine(QPointF(9, 8.5), QPointF(23, 8.5));
    painter.drawLine(QPointF(9, 13), QPointF(23, 13));
    painter.drawLine(QPointF(9, 17.5), QPointF(15, 17.5));
    painter.setPen(pen(seal, 2));
    painter.setBrush(QColor(0xFF, 0xF2, 0xEF));
    painter.drawEllipse(QPointF(20.5, 21.5), 5.5, 5.5);
    painter.drawLine(QPointF(18.3, 20.2), QPointF(22.7, 20.2));
    painter.drawLine(QPointF(18.3, 22.8), QPointF(22.7, 22.8));
    return picture;
}

/// Draws the icon in a size when the system asks for it: most systems never ask for the large ones, and drawing all took
/// a tenth of the time until the first windows.
class LetterIcon : public QIconEngine {
public:
    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state) override
    {
        const QPixmap picture = pixmap(rect.size(), mode, state);
        painter->drawPixmap(rect.center() - picture.rect().center(), picture);
    }
    QPixmap pixmap(const QSize &size, QIcon::Mode, QIcon::State) override
    {
        QPixmap &picture = m_pictures[std::min(size.width(), size.height())];
        if (picture.isNull()) picture = letterWithSeal(std::min(size.width(), size.height()));
        return picture;
    }
    QList<QSize> availableSizes(QIcon::Mode, QIcon::State) override
    {
        QList<QSize> sizes;
        for (const int side : {16, 24, 32, 48, 64, 128, 256}) sizes.append({side, side});
        return sizes;
    }
    [[nodiscard]] QIconEngine *clone() const override { return new LetterIcon(*this); } // the caller owns it

private:
    std::map<int, QPixmap> m_pictures; ///< by side; each window asks for them again
};

} // namespace

QIcon applicationIcon()
{
    return QIcon(new LetterIcon); // the icon owns it
}

} // namespace inin::theme
