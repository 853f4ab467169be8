#pragma once

#include "viewer/layout/page_painter.h"
#include "viewer/pdf/pdf_font.h"
#include "viewer/pdf/pdf_picture.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace inin::viewer {

/// The fonts of one PDF file, in the order of their first use.
class PdfFonts {
public:
    PdfFonts(PdfFile &file, MissingGlyphs missing) : m_file(file), m_missing(missing) {}
    [[nodiscard]] PdfFont &of(const Font &font, PdfFont::Direction direction);
    [[nodiscard]] const std::vector<std::unique_ptr<PdfFont>> &all() const { return m_fonts; }

private:
    PdfFile &m_file;
    MissingGlyphs m_missing;
    std::vector<std::unique_ptr<PdfFont>> m_fonts;
};

/// Writes the operators of a content stream. y is mirrored, because it grows upwards in a PDF.
class PdfPainter : public PagePainter {
public:
    PdfPainter(PdfFonts &fonts, PdfPictures &pictures, double pageHeight)
        : m_fonts(fonts), m_pictures(pictures), m_height(pageHeight)
    {
    }

    void paint(const PathCommand &path) override;
    void paint(const GlyphRun &run) override;
    void paint(const PictureCommand &picture) override;
    /// Adds operators outside of a text object.
    void add(std::string_view operators);
    /// Begins a new content stream.
    void begin(double pageHeight);
    /// Completes the stream and returns its content.
    [[nodiscard]] const std::string &finish();

private:
    void openText();
    void closeText();
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
    PdfPictures &m_pictures;
    double m_height;
    std::string m_out;
    bool m_isInText = false;
    // The graphics state that the stream has set. Text positions are relative to the previous line, in whole hundredths.
    const Font *m_font = nullptr;
    PdfFont *m_pdfFont = nullptr;
    double m_size = 0, m_stretch = 1, m_spacing = 0;
    Color m_fill;
    bool m_isBold = false;
    std::int64_t m_lineX = 0, m_lineY = 0;
    bool m_isTransformed = false; ///< the text matrix is more than a translation
};

} // namespace inin::viewer
