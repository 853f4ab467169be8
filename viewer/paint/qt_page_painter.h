#pragma once

#include "viewer/layout/page_painter.h"

#include <QImage>
#include <QPainterPath>
#include <QRawFont>

#include <cstddef>
#include <unordered_map>

class QPainter;

namespace inin::viewer {

struct Picture;

/// A cache of glyph outlines as Qt paths and of a form's pictures, for all pages of a window.
class QtGlyphs {
public:
    /// The outline for a font size of 1, y downwards. Below a size of kSmall device pixels it consists of straight lines,
    /// which look the same: flattening curves would be most of the work of a page.
    [[nodiscard]] const QPainterPath &outline(const Font &font, std::uint32_t glyph, double pixels);

    static constexpr double kSmall = 64;

    /// The font for printing by glyph numbers. Invalid unless this very file is installed.
    [[nodiscard]] const QRawFont &printerFont(const Font &font);
    /// The size of printerFont in pixels; the painter must be scaled.
    static constexpr double kPrinterFontSize = 100;

    /// The picture for Qt. `picture` must outlive this object.
    [[nodiscard]] const QImage &image(const Picture &picture);
    /// The same reduced to a size in pixels; the last size of each picture is kept.
    [[nodiscard]] const QImage &reducedImage(const Picture &picture, QSize size);

private:
    struct Outline {
        QPainterPath curves, lines;
    };
    std::unordered_map<const Font *, std::unordered_map<std::uint32_t, Outline>> m_outlines;
    std::unordered_map<const Font *, QRawFont> m_printerFonts;
    std::unordered_map<const Picture *, QImage> m_images, m_reducedImages;
};

/// Paints with a QPainter whose unit is the point. Text is painted as outlines, or as text on a printer if the font is
/// installed.
class QtPagePainter : public PagePainter {
public:
    QtPagePainter(QPainter &painter, QtGlyphs &glyphs) : m_painter(painter), m_glyphs(glyphs) {}
    void paint(const PathCommand &path) override;
    void paint(const GlyphRun &run) override;
    void paint(const PictureCommand &picture) override;

private:
    void paintOutlines(const GlyphRun &run);
    void paintAsOnePath(const GlyphRun &run);
    bool paintAsText(const GlyphRun &run);

    QPainter &m_painter;
    QtGlyphs &m_glyphs;
};

} // namespace inin::viewer
