#include "viewer/pdf/pdf_font.h"

#include "runtime/runtime_error.h"
#include "viewer/pdf/pdf_text.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>

namespace inin::viewer {

namespace {

constexpr float kFullWidth = 1000;
constexpr std::size_t kMapBlock = 100; ///< the largest number of entries in a block of a CMap

/// Rounds to hundredths as in the file, so that the pen positions of file and layout agree.
float asWritten(float width)
{
    return std::round(width * 100) / 100;
}

/// The glyph of an empty square, or of another sign for an unknown character; 0 if the font has none.
std::uint32_t squareOf(const Font &font)
{
    for (const char32_t sign : {U'□', U'〓', U'?'}) {
        if (!font.has(sign)) continue;
        std::vector<ShapedGlyph> glyphs;
        std::vector<char32_t> missing;
        font.shape(std::u32string_view(&sign, 1), glyphs, missing);
        return glyphs.front().glyph;
    }
    return 0;
}

} // namespace

PdfFont::PdfFont(const Font &font, Direction direction, int number, PdfFile &file, MissingGlyphs missing)
    : m_font(font), m_direction(direction), m_number(number), m_object(file.reserve()), m_cache(kCached), m_used(1)
{
    if (missing == MissingGlyphs::replaced) m_missingGlyph = squareOf(font);
}

std::uint16_t PdfFont::findOrAddCode(const ShapedGlyph &glyph)
{
    const std::uint64_t key = std::uint64_t{glyph.glyph} << 32 | glyph.text;
    if (const auto found = m_otherCodes.find(key); found != m_otherCodes.end()) return found->second;
    if (m_used.size() > std::numeric_limits<std::uint16_t>::max())
        throw RuntimeError(error_number::overflow, "一つの PDF に使える文字の種類を超えました。");
    const auto code = static_cast<std::uint16_t>(m_used.size());
    const std::uint32_t shown = glyph.glyph == 0 ? m_missingGlyph : glyph.glyph;
    if (m_direction == Direction::horizontal)
        m_used.push_back({shown, glyph.text, asWritten(m_font.advanceOf(shown))});
    else
        m_used.push_back({shown, glyph.text, asWritten(glyph.advance), glyph.offsetX, glyph.offsetY});
    if (glyph.text < kCached && m_cache[glyph.text].code == 0)
        m_cache[glyph.text] = {glyph.glyph, code};
    else
        m_otherCodes.emplace(key, code);
    return code;
}

/// The vertical displacement and the position vector of each code (ISO 32000, 9.7.4.3).
std::string PdfFont::verticalMetrics() const
{
    std::string out = "/W2[";
    for (std::size_t code = 1; code < m_used.size(); ++code) {
        fmt::format_to(std::back_inserter(out), "{}[", code);
        for (const float number : {-m_used[code].width, -m_used[code].offsetX, m_used[code].offsetY}) {
            appendNumber(out, double{number});
            out += ' ';
        }
        out += ']';
    }
    return out + "]";
}

std::string PdfFont::widths() const
{
    if (m_direction == Direction::vertical) return verticalMetrics();
    return "/DW 1000/W " + horizontalWidths();
}

std::string PdfFont::horizontalWidths() const
{
    std::string out = "[";
    for (std::size_t code = 1; code < m_used.size(); ++code) {
        if (m_used[code].width == kFullWidth) continue;
        fmt::format_to(std::back_inserter(out), "{}[", code);
        appendNumber(out, m_used[code].width);
        out += ']';
    }
    return out + "]";
}

std::string PdfFont::unicodeMap() const
{
    std::vector<std::string> entries;
    for (std::size_t code = 1; code < m_used.size(); ++code) {
        const std::u32string characters = m_font.charactersOf(m_used[code].text);
        if (characters.empty()) continue;
        std::string entry = fmt::format("<{:04X}><", code);
        appendUtf16Hex(entry, characters);
        entries.push_back(entry + ">\n");
    }
    std::string out = "/CIDInit/ProcSet findresource begin 12 dict begin begincmap\n"
                      "/CIDSystemInfo<</Registry(Adobe)/Ordering(UCS)/Supplement 0>>def\n"
                      "/CMapName/Adobe-Identity-UCS def/CMapType 2 def\n"
                      "1 begincodespacerange<0000><FFFF>endcodespacerange\n";
    for (std::size_t begin = 0; begin < entries.size(); begin += kMapBlock) {
        const std::size_t end = std::min(begin + kMapBlock, entries.size());
        fmt::format_to(std::back_inserter(out), "{} beginbfchar\n", end - begin);
        for (std::size_t i = begin; i < end; ++i) out += entries[i];
        out += "endbfchar\n";
    }
    return out + "endcmap CMapName currentdict/CMap defineresource pop end end\n";
}

void PdfFont::write(PdfFile &file) const
{
    std::vector<std::uint32_t> glyphs;
    for (const UsedGlyph &used : m_used) glyphs.push_back(used.glyph);
    const Font::Subset subset = m_font.subsetOf(glyphs);
    std::string glyphMap;
    for (const std::uint32_t glyph : subset.newGlyphs) {
        glyphMap += static_cast<char>(glyph >> 8);
        glyphMap += static_cast<char>(glyph & 0xFF);
    }
    const int fontFile = file.reserve(), map = file.reserve(), unicode = file.reserve(), descriptor = file.reserve(),
              descendant = file.reserve();
    file.writeStream(fontFile, fmt::format("/Length1 {}", subset.bytes.size()), subset.bytes, Compression::best);
    file.writeStream(map, "", glyphMap, Compression::best);
    file.writeStream(unicode, "", unicodeMap(), Compression::best);
    // The name of a subset begins with a tag of six letters and a plus sign.
    const std::string name = fmt::format("ININF{}+{}", static_cast<char>('A' + m_number % 26), m_font.postScriptName());
    const long ascent = std::lround(m_font.ascent()), descent = std::lround(m_font.descent());
    file.writeObject(descriptor,
                     fmt::format("<</Type/FontDescriptor/FontName/{}/Flags 4/FontBBox[-100 {} 1100 {}]"
                                 "/ItalicAngle 0/Ascent {}/Descent {}/CapHeight {}/StemV 80/FontFile2 {} 0 R>>",
                                 name, descent, ascent, ascent, descent, ascent, fontFile));
    file.writeObject(descendant,
                     fmt::format("<</Type/Font/Subtype/CIDFontType2/BaseFont/{}/CIDSystemInfo<</Registry(Adobe)"
                                 "/Ordering(Identity)/Supplement 0>>/FontDescriptor {} 0 R{}"
                                 "/CIDToGIDMap {} 0 R>>",
                                 name, descriptor, widths(), map));
    file.writeObject(m_object,
                     fmt::format("<</Type/Font/Subtype/Type0/BaseFont/{}/Encoding/Identity-{}"
                                 "/DescendantFonts[{} 0 R]/ToUnicode {} 0 R>>",
                                 name, m_direction == Direction::horizontal ? 'H' : 'V', descendant, unicode));
}

} // namespace inin::viewer
