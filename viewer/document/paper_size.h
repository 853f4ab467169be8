#pragma once

#include "viewer/form/geometry.h"
#include "viewer/script/command_script.h"

#include <string>

namespace inin::viewer {

// Widths and heights are in points.

[[nodiscard]] Point sizeOf(Paper paper);
/// True for sizes that differ by less than a printer's tolerance.
[[nodiscard]] bool isSamePaper(Point a, Point b);
/// True for a paper that is sold under a name, such as A5 or an envelope, upright or sideways.
[[nodiscard]] bool isStandardPaper(Point size);
/// "A4", "長形3号" or "A4横"; "100 × 150 mm" for a paper without a name.
[[nodiscard]] std::string paperName(Point size);
/// The name of the printer working group for a paper, such as "iso_a4_210x297mm" or "custom_100x150mm_100x150mm", which
/// print queues know. The name of a standard paper holds for its sideways pages too.
[[nodiscard]] std::string paperMedia(Point size);

} // namespace inin::viewer
