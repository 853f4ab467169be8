#include "viewer/layout/glyph_outline.h"

namespace inin::viewer {

namespace {

/// Collects an outline, which HarfBuzz passes in font units, y upwards.
struct OutlinePen {
    Path path;
    double unit;
    [[nodiscard]] Point at(float x, float y) const { return {x * unit, -y * unit}; }
};

OutlinePen &penOf(void *data)
{
    return *static_cast<OutlinePen *>(data);
}

} // namespace

DrawHandle makeOutlineFunctions()
{
    DrawHandle functions(hb_draw_funcs_create());
    hb_draw_funcs_set_move_to_func(
        functions.get(),
        [](hb_draw_funcs_t *, void *pen, hb_draw_state_t *, float x, float y, void *) {
            penOf(pen).path.push_back({PathStep::Kind::move, {penOf(pen).at(x, y)}});
        },
        nullptr, nullptr);
    hb_draw_funcs_set_line_to_func(
        functions.get(),
        [](hb_draw_funcs_t *, void *pen, hb_draw_state_t *, float x, float y, void *) {
            penOf(pen).path.push_back({PathStep::Kind::line, {penOf(pen).at(x, y)}});
        },
        nullptr, nullptr);
    hb_draw_funcs_set_cubic_to_func(
        functions.get(),
        [](hb_draw_funcs_t *, void *pen, hb_draw_state_t *, float x1, float y1, float x2, float y2, float x, float y,
           void *) {
            const OutlinePen &p = penOf(pen);
            penOf(pen).path.push_back({PathStep::Kind::curve, {p.at(x1, y1), p.at(x2, y2), p.at(x, y)}});
        },
        nullptr, nullptr);
    hb_draw_funcs_set_close_path_func(
        functions.get(),
        [](hb_draw_funcs_t *, void *pen, hb_draw_state_t *, void *) {
            penOf(pen).path.push_back({PathStep::Kind::close, {}});
        },
        nullptr, nullptr);
    return functions;
}

Path glyphOutline(hb_font_t *font, std::uint32_t glyph, hb_draw_funcs_t *functions, double unit)
{
    OutlinePen pen{{}, unit};
#if HB_VERSION_ATLEAST(7, 0, 0)
    hb_font_draw_glyph(font, glyph, functions, &pen);
#else
    hb_font_get_glyph_shape(font, glyph, functions, &pen);
#endif
    return std::move(pen.path);
}

} // namespace inin::viewer
