#pragma once

#include "viewer/layout/page_painter.h"
#include "viewer/pdf/pdf_font.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace inin::viewer {

/// The fonts of one PDF file, in the order of their first use.
class PdfFonts {
public:
    explicit PdfFonts(PdfFile &file) : m_file(file) {}
    [[nodiscard]] PdfFont &of(const Font &font, PdfFont::Lines lines);
    [[nodiscard]] const std::vector<std::unique_ptr<PdfFont>> &all() const { return m_fonts; }

private:
    PdfFile &m_file;
    std::vector<std::unique_ptr<PdfFont>> m_fonts;
};

/// Writes what is painted as the operators of a content stream. y turns round at `pageHeight`.
class PdfPainter : public PagePainter {
public:
    PdfPainter(PdfFonts &fonts, double pageHeight) : m_fonts(fonts), m_height(pageHeight) {}

    void paint(const PathCommand &path) override;
    void paint(const GlyphRun &run) override;
    /// An operator line of the caller's own.
    void add(std::string_view operators);
    /// Begins a new content stream.
    void begin(double pageHeight);
    /// The content of the stream, which then is whole.
    [[nodiscard]] const std::string &finish();

private:
    void beginText();
    void endText();
    void setFillColor(const Color &color);
    void setBold(const GlyphRun &run);
    void setFont(const GlyphRun &run);
    void moveTo(const GlyphRun &run);
    void showGlyphs(const GlyphRun &run);
    void beginActualText(std::u32string_view text);
    void appendCode(std::uint16_t code);
    void appendPoint(Point point);
    void appendPath(const Path &path);
    void appendStroke(const Stroke &stroke);
    void set(double &current, double wanted, const char *operation);

    PdfFonts &m_fonts;
    double m_height;
    std::string m_out;
    bool m_isInText = false;
    // What the stream has set so far; text operators move from the line before, in whole hundredths.
    const Font *m_font = nullptr;
    PdfFont *m_pdfFont = nullptr;
    double m_size = 0, m_stretch = 1, m_spacing = 0;
    Color m_fill;
    bool m_isBold = false;
    std::int64_t m_lineX = 0, m_lineY = 0;
    bool m_isTurned = false; ///< the text matrix is no plain move
};

} // namespace inin::viewer
