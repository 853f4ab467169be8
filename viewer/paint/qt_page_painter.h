#pragma once

#include "viewer/layout/page_painter.h"

#include <QImage>
#include <QPainterPath>
#include <QRawFont>
#include <string>
#include <unordered_map>

class QPainter;

namespace inin::viewer {

class LetterRenderer;

/// A cache of glyph outlines as Qt paths, for all pages of a window.
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

private:
    struct Outline {
        QPainterPath curves, lines;
    };
    std::unordered_map<const Font *, std::unordered_map<std::uint32_t, Outline>> m_outlines;
    std::unordered_map<const Font *, QRawFont> m_printerFonts;
};

/// Paints with a QPainter whose unit is the point. Text is painted as outlines, or as text on a printer if the font is
/// installed.
class QtPagePainter : public PagePainter {
public:
    QtPagePainter(QPainter &painter, QtGlyphs &glyphs) : m_painter(painter), m_glyphs(glyphs) {}
    void paint(const PathCommand &path) override;
    void paint(const GlyphRun &run) override;

private:
    void paintOutlines(const GlyphRun &run);
    void paintAsOnePath(const GlyphRun &run);
    bool paintAsText(const GlyphRun &run);

    QPainter &m_painter;
    QtGlyphs &m_glyphs;
};

/// Paints a letter on its paper. The painter's unit must be the point.
void paintLetter(LetterRenderer &renderer, std::size_t letter, QPainter &painter, QtGlyphs &glyphs);
/// The two halves of paintLetter(): first the part that all letters of the form share, then the letter's fields.
void paintShared(LetterRenderer &renderer, std::size_t letter, QPainter &painter, QtGlyphs &glyphs);
void paintFields(LetterRenderer &renderer, std::size_t letter, QPainter &painter, QtGlyphs &glyphs);
/// Blank paper at `scale` dots per point.
[[nodiscard]] QImage whitePaper(const LetterRenderer &renderer, double scale);
/// A letter as a picture on white paper. Needs no display.
[[nodiscard]] QImage letterImage(LetterRenderer &renderer, std::size_t letter, double dotsPerInch, QtGlyphs &glyphs);
/// The same as the bytes of a PNG file.
[[nodiscard]] std::string letterPng(LetterRenderer &renderer, std::size_t letter, double dotsPerInch, QtGlyphs &glyphs);

} // namespace inin::viewer
