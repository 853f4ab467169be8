#pragma once

#include "viewer/form/geometry.h"
#include "viewer/window/viewer_settings.h"

class QPainter;

namespace inin::viewer {

/// Paints rulers by which it is measured how far a printer moves what it prints: where a ruler stands on the sheet, it
/// must tell the distance to the sheet's edge. The painter's unit must be the point and hold the offset already.
void paintRulerPage(QPainter &painter, Point paper, const PrinterOffset &offset, const QString &printer);
/// "右へ 1.5 mm、下へ -0.3 mm"
[[nodiscard]] QString offsetText(const PrinterOffset &offset);

} // namespace inin::viewer
