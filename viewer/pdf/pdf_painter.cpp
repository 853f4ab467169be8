#include "viewer/pdf/pdf_painter.h"

#include "viewer/pdf/pdf_text.h"

#include <algorithm>
#include <cmath>

namespace inin::viewer {

namespace {

/// A pen position with a larger error than this (thousandths of the size) is corrected.
constexpr double kPenTolerance = 0.6;

bool isPlainMove(const Affine &at)
{
    return at.a == 1 && at.b == 0 && at.c == 0 && at.d == 1;
}

void appendColor(std::string &out, const Color &color, const char *gray, const char *rgb)
{
    const auto part = [&](std::uint8_t value) {
        appendNumber(out, value / 255.0, 3);
        out += ' ';
    };
    part(color.red);
    const bool isGray = color.red == color.green && color.green == color.blue;
    if (!isGray) {
        part(color.green);
        part(color.blue);
    }
    out += isGray ? gray : rgb;
    out += '\n';
}

} // namespace

PdfFont &PdfFonts::of(const Font &font, PdfFont::Direction direction)
{
    const auto found = std::ranges::find_if(
        m_fonts, [&](const auto &known) { return &known->font() == &font && known->direction() == direction; });
    if (found != m_fonts.end()) return **found;
    const int number = static_cast<int>(m_fonts.size());
    return *m_fonts.emplace_back(std::make_unique<PdfFont>(font, direction, number, m_file, m_missing));
}

void PdfPainter::begin(double pageHeight)
{
    m_height = pageHeight;
    m_out.clear();
    m_isInText = false;
    m_font = nullptr;
    m_size = 0;
    m_stretch = 1;
    m_spacing = 0;
    m_fill = {};
    m_isBold = false;
}

const std::string &PdfPainter::finish()
{
    closeText();
    return m_out;
}

void PdfPainter::add(std::string_view operators)
{
    closeText();
    m_out += operators;
}

void PdfPainter::openText()
{
    if (m_isInText) return;
    m_out += "BT\n";
    m_isInText = true;
    m_lineX = m_lineY = 0;
    m_isTransformed = false;
}

void PdfPainter::closeText()
{
    if (m_isInText) m_out += "ET\n";
    m_isInText = false;
}

void PdfPainter::set(double &current, double wanted, const char *operation)
{
    if (current == wanted) return;
    current = wanted;
    appendNumber(m_out, wanted);
    m_out += operation;
}

void PdfPainter::setFillColor(const Color &color)
{
    if (m_fill == color) return;
    m_fill = color;
    appendColor(m_out, color, "g", "rg");
}

/// Sets the text rendering mode: filled and stroked with the same colour, or only filled.
void PdfPainter::setBold(const GlyphRun &run)
{
    if (run.isBold) {
        appendColor(m_out, run.color, "G", "RG");
        appendNumber(m_out, run.size * run.at.scale() * GlyphRun::kBoldLine, 3);
        // Solid lines with round joins: mitred corners would stick out of small characters.
        m_out += " w 1 j [] 0 d\n";
    }
    if (m_isBold == run.isBold) return;
    m_isBold = run.isBold;
    m_out += m_isBold ? "2 Tr\n" : "0 Tr\n";
}

void PdfPainter::setFont(const GlyphRun &run)
{
    const auto direction = run.isVertical ? PdfFont::Direction::vertical : PdfFont::Direction::horizontal;
    const bool isSame = m_font == run.font && m_pdfFont->direction() == direction;
    if (isSame && m_size == run.size) return;
    if (!isSame) m_pdfFont = &m_fonts.of(*run.font, direction);
    m_font = run.font;
    m_size = run.size;
    m_out += "/F";
    m_out += std::to_string(m_pdfFont->number());
    m_out += ' ';
    appendNumber(m_out, run.size);
    m_out += " Tf\n";
}

void PdfPainter::moveTo(const GlyphRun &run)
{
    const Affine &at = run.at;
    const double along = double{run.glyphs.front().x} * run.size * run.stretch / 1000;
    const Point start = run.isVertical ? at({0, along}) : at({along, 0});
    const bool isTransformed = !isPlainMove(at);
    const std::int64_t x = hundredthsOf(start.x), y = hundredthsOf(m_height - start.y);
    if (isTransformed || m_isTransformed) {
        for (const double part : {at.a, -at.b, -at.c, at.d}) {
            appendNumber(m_out, part, 5);
            m_out += ' ';
        }
        appendHundredths(m_out, x);
        m_out += ' ';
        appendHundredths(m_out, y);
        m_out += " Tm\n";
    } else {
        appendHundredths(m_out, x - m_lineX);
        m_out += ' ';
        appendHundredths(m_out, y - m_lineY);
        m_out += " Td\n";
    }
    m_isTransformed = isTransformed;
    m_lineX = x;
    m_lineY = y;
}

void PdfPainter::appendCode(std::uint16_t code)
{
    for (const char byte : {static_cast<char>(code >> 8), static_cast<char>(code & 0xFF)}) {
        // A bare carriage return would be read as a line feed.
        if (byte == '(' || byte == ')' || byte == '\\' || byte == '\r') m_out += '\\';
        m_out += byte == '\r' ? 'r' : byte;
    }
}

/// Writes one string (Tj), or strings with corrections between them (TJ) where the pen would be at a wrong position.
void PdfPainter::showGlyphs(const GlyphRun &run)
{
    const std::size_t begin = m_out.size();
    bool isList = false;
    double pen = run.glyphs.front().x;
    m_out += '(';
    for (const ShapedGlyph &glyph : run.glyphs) {
        const std::uint16_t code = m_pdfFont->codeOf(glyph);
        const double off = pen - double{glyph.x};
        if (std::abs(off) > kPenTolerance) {
            isList = true;
            m_out += ')';
            // The number is subtracted from the pen's position, whose y grows upwards in vertical lines.
            appendNumber(m_out, run.isVertical ? -off : off);
            m_out += '(';
            pen = glyph.x;
        }
        appendCode(code);
        pen += m_pdfFont->widthOf(code);
    }
    if (isList) m_out.insert(begin, 1, '[');
    m_out += isList ? ")]TJ\n" : ")Tj\n";
}

void PdfPainter::paint(const GlyphRun &run)
{
    if (run.glyphs.empty()) return;
    if (run.isVertical && run.stretch != 1) {
        // The operator Tz scales horizontally only.
        GlyphRun scaled = run;
        scaled.at = run.at * Affine{1, 0, 0, run.stretch, 0, 0};
        scaled.stretch = 1;
        paint(scaled);
        return;
    }
    openText();
    setFillColor(run.color);
    setFont(run);
    setBold(run);
    set(m_spacing, run.isVertical ? -run.spacing : run.spacing, " Tc\n");
    if (m_stretch != run.stretch) {
        m_stretch = run.stretch;
        appendNumber(m_out, run.stretch * 100);
        m_out += " Tz\n";
    }
    moveTo(run);
    if (!run.lineText.empty()) beginActualText(run.lineText);
    showGlyphs(run);
    if (run.endsLineText) m_out += "EMC\n";
}

/// Adds the text of a vertical line, whose characters PDF readers would extract as a line each.
void PdfPainter::beginActualText(std::u32string_view text)
{
    m_out += "/Span<</ActualText<FEFF";
    appendUtf16Hex(m_out, text);
    m_out += ">>>BDC\n";
}

void PdfPainter::appendPoint(Point point)
{
    appendNumber(m_out, point.x);
    m_out += ' ';
    appendNumber(m_out, m_height - point.y);
    m_out += ' ';
}

void PdfPainter::appendPath(const Path &path)
{
    for (const PathStep &step : path) {
        switch (step.kind) {
        case PathStep::Kind::move:
            appendPoint(step.points[0]);
            m_out += "m\n";
            break;
        case PathStep::Kind::line:
            appendPoint(step.points[0]);
            m_out += "l\n";
            break;
        case PathStep::Kind::curve:
            for (const Point &point : step.points) appendPoint(point);
            m_out += "c\n";
            break;
        case PathStep::Kind::close:
            m_out += "h\n";
            break;
        }
    }
}

void PdfPainter::paint(const PictureCommand &command)
{
    closeText();
    // In a PDF the unit square of a picture has its origin at the lower left corner.
    const Affine &at = command.at;
    m_out += "q ";
    for (const double part : {at.a, -at.b, -at.c, at.d}) {
        appendNumber(m_out, part, 4);
        m_out += ' ';
    }
    appendPoint(at({0, 1}));
    m_out += "cm /I" + std::to_string(m_pictures.numberOf(*command.picture)) + " Do Q\n";
}

void PdfPainter::appendStroke(const Stroke &stroke)
{
    appendColor(m_out, stroke.color, "G", "RG");
    appendNumber(m_out, stroke.width, 3);
    m_out += " w ";
    m_out += std::to_string(static_cast<int>(stroke.cap)) + " J ";
    m_out += std::to_string(static_cast<int>(stroke.join)) + " j [";
    for (const double dash : stroke.dashes) {
        appendNumber(m_out, dash);
        m_out += ' ';
    }
    m_out += "] 0 d\n";
}

void PdfPainter::paint(const PathCommand &command)
{
    closeText();
    if (command.fill) setFillColor(*command.fill);
    if (command.stroke) appendStroke(*command.stroke);
    appendPath(command.path);
    const char *const both = command.evenOdd ? "B*\n" : "B\n";
    const char *const filled = command.evenOdd ? "f*\n" : "f\n";
    if (command.fill)
        m_out += command.stroke ? both : filled;
    else
        m_out += "S\n";
}

} // namespace inin::viewer
