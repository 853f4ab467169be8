#pragma once

#include "viewer/layout/page_painter.h"

#include <QImage>
#include <QPainterPath>
#include <QRawFont>
#include <string>
#include <unordered_map>

class QPainter;

namespace inin::viewer {

class LetterPress;

/// The outlines of glyphs as Qt has them, kept for all pages of a window.
class QtGlyphs {
public:
    /// In a square of 1, y downwards. A glyph that covers fewer than kSmall device pixels comes as straight lines that
    /// differ from its curves by less than can be seen: bending curves anew is most of the work of a page.
    [[nodiscard]] const QPainterPath &outline(const Font &font, std::uint32_t glyph, double pixels);

    static constexpr double kSmall = 64;

    /// The font for printers, which then get a letter by its number; invalid unless this very file is installed.
    [[nodiscard]] const QRawFont &printerFont(const Font &font);
    /// Size of printerFont in pixels; whoever paints with it scales.
    static constexpr double kPrinterFontSize = 100;

private:
    struct Outline {
        QPainterPath curves, lines;
    };
    std::unordered_map<const Font *, std::unordered_map<std::uint32_t, Outline>> m_outlines;
    std::unordered_map<const Font *, QRawFont> m_printerFonts;
};

/// Paints with QPainter, whose unit must be the point. Letters are outlines, but to a printer that can have its font.
class QtPagePainter : public PagePainter {
public:
    QtPagePainter(QPainter &painter, QtGlyphs &glyphs) : m_painter(painter), m_glyphs(glyphs) {}
    void paint(const PathCommand &path) override;
    void paint(const GlyphRun &run) override;

private:
    void paintOutlines(const GlyphRun &run);
    void paintGathered(const GlyphRun &run);
    bool paintAsText(const GlyphRun &run);

    QPainter &m_painter;
    QtGlyphs &m_glyphs;
};

/// Paints a whole letter on its paper; the painter's unit must be the point.
void paintLetter(LetterPress &press, std::size_t letter, QPainter &painter, QtGlyphs &glyphs);
/// The letter's two halves: first what it shares with all letters of its form, then what is its own.
void paintShared(LetterPress &press, std::size_t letter, QPainter &painter, QtGlyphs &glyphs);
void paintFields(LetterPress &press, std::size_t letter, QPainter &painter, QtGlyphs &glyphs);
/// The paper of a press at so many dots to the point, blank.
[[nodiscard]] QImage whitePaper(const LetterPress &press, double scale);
/// One letter as a picture on white paper; needs no display.
[[nodiscard]] QImage letterImage(LetterPress &press, std::size_t letter, double dotsPerInch, QtGlyphs &glyphs);
/// The same as the bytes of a PNG file.
[[nodiscard]] std::string letterPng(LetterPress &press, std::size_t letter, double dotsPerInch, QtGlyphs &glyphs);

} // namespace inin::viewer
