#pragma once

#include "viewer/form/geometry.h"

#include <QPoint>

#include <vector>

class QPainter;

namespace inin::viewer {

/// Paints a thin bar at the left of each place, in points on the paper whose corner is there in the painter's device.
void paintMarks(QPainter &painter, QPoint corner, double pixelsPerPoint, const std::vector<Box> &places);

} // namespace inin::viewer
