#include "desktop_theme/application_icon.h"

#include <QPainter>
#include <QPixmap>

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

} // namespace

QIcon applicationIcon()
{
    QIcon icon;
    for (const int side : {16, 24, 32, 48, 64, 128, 256}) icon.addPixmap(letterWithSeal(side));
    return icon;
}

} // namespace inin::theme
