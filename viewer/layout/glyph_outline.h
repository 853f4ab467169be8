#pragma once

#include "viewer/form/geometry.h"
#include "viewer/layout/harfbuzz.h"

#include <cstdint>

namespace inin::viewer {

/// The functions with which HarfBuzz passes an outline to glyphOutline(). A font keeps one set of them.
[[nodiscard]] DrawHandle makeOutlineFunctions();
/// The outline of a glyph, y downwards. A font unit has the length `unit`.
[[nodiscard]] Path glyphOutline(hb_font_t *font, std::uint32_t glyph, hb_draw_funcs_t *functions, double unit);

} // namespace inin::viewer
