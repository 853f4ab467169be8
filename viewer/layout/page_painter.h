#pragma once

#include "viewer/form/form_document.h"
#include "viewer/layout/font.h"

#include <span>
#include <string_view>

namespace inin::viewer {

/// One line of glyphs with its place. A glyph stands at at({x * size * stretch / 1000, 0}); in a run of letters one below
/// another at at({aside * size, (x + drop) * size * stretch} / 1000).
struct GlyphRun {
    const Font *font = nullptr;
    double size = 10;
    double stretch = 1; ///< the width of a letter, along the line, as a part of its own
    double spacing = 0; ///< behind each letter, in points before stretching; the glyphs' x do not hold it
    Color color;
    Affine at;
    std::span<const ShapedGlyph> glyphs;
    /// Each letter is drawn around its outline too, kBoldLine wide: none of the fonts has a bold face.
    bool isBold = false;
    bool runsDown = false;
    /// In a text that runs down: at a line's first run all that it says, for letters one below another do not read as a
    /// line by themselves; and which run is its last.
    std::u32string_view lineText = {};
    bool endsLineText = false;

    static constexpr double kBoldLine = 0.035; ///< as a part of the size
};

/// What a page is painted with: a file, a screen, a printer.
class PagePainter {
public:
    PagePainter() = default;
    PagePainter(const PagePainter &) = delete;
    PagePainter &operator=(const PagePainter &) = delete;
    virtual ~PagePainter() = default;
    virtual void paint(const PathCommand &path) = 0;
    virtual void paint(const GlyphRun &run) = 0;
};

} // namespace inin::viewer
