#pragma once

#include "viewer/form/form_document.h"
#include "viewer/layout/font.h"

#include <cstddef>
#include <span>
#include <string_view>

namespace inin::viewer {

/// A line of glyphs with its position. A glyph is at at({x * size * stretch / 1000, 0}); in a vertical run it is at
/// at({offsetX * size, (x + offsetY) * size * stretch} / 1000).
struct GlyphRun {
    const Font *font = nullptr;
    double size = 10;
    double stretch = 1; ///< the scale of characters along the line
    double spacing = 0; ///< after each character, in points before stretching; not included in the glyphs' x
    Color color;
    Affine at;
    std::span<const ShapedGlyph> glyphs;
    /// The outlines are also stroked, kBoldLine wide, because none of the fonts has a bold face.
    bool isBold = false;
    bool isVertical = false;
    /// In vertical text: the first run of a line has the text of the line, because readers of a PDF do not recognise
    /// characters below one another as a line. The last run is flagged.
    std::u32string_view lineText = {};
    bool endsLineText = false;

    static constexpr double kBoldLine = 0.035; ///< as a factor of the size
};

/// Paints a page into a file, on a screen or on a printer.
class PagePainter {
public:
    PagePainter() = default;
    PagePainter(const PagePainter &) = delete;
    PagePainter &operator=(const PagePainter &) = delete;
    virtual ~PagePainter() = default;
    virtual void paint(const PathCommand &path) = 0;
    virtual void paint(const GlyphRun &run) = 0;
    virtual void paint(const PictureCommand &picture) = 0;
    /// Called before the runs of each text of a letter that is not blank, with its index in FormDocument::commands.
    virtual void beginText(std::size_t) {}
};

} // namespace inin::viewer
