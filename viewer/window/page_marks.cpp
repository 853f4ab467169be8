#include "viewer/window/page_marks.h"

#include <QPainter>

namespace inin::viewer {

void paintMarks(QPainter &painter, QPoint corner, double pixelsPerPoint, const std::vector<PlaceOnPage> &places,
                std::size_t page)
{
    painter.resetTransform();
    painter.translate(corner);
    constexpr double kWidth = 3, kGap = 3; // pixels
    const QColor onWhite(0xC8, 0x50, 0x00);
    for (const PlaceOnPage &place : places)
        if (place.page == page)
            painter.fillRect(QRectF(place.left * pixelsPerPoint - kGap - kWidth, place.top * pixelsPerPoint, kWidth,
                                    place.height * pixelsPerPoint),
                             onWhite);
}

} // namespace inin::viewer
