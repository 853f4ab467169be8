#pragma once

#include "viewer/document/field_places.h"

#include <QPoint>

#include <vector>

class QPainter;

namespace inin::viewer {

/// Paints a thin bar at the left of each place on a page, in points on the paper whose corner is there in the painter's
/// device.
void paintMarks(QPainter &painter, QPoint corner, double pixelsPerPoint, const std::vector<PlaceOnPage> &places,
                std::size_t page);

} // namespace inin::viewer
