#include "viewer/layout/mixed_text.h"

#include "viewer/layout/fonts.h"

#include <algorithm>
#include <iterator>

namespace inin::viewer {

namespace {

struct OrientationRange {
    char32_t first, last;
    GlyphOrientation orientation;
};

constexpr GlyphOrientation kUp = GlyphOrientation::upright, kForm = GlyphOrientation::transformed;

/// Sorted; all other characters are rotated. From Unicode Standard Annex 50, for the characters of Japanese texts. Dashes,
/// dots and full-width signs use vertical forms here, although the annex rotates them.
constexpr OrientationRange kRanges[] = {
    {0x00A7, 0x00A7, kUp},   {0x00A9, 0x00A9, kUp},   {0x00AE, 0x00AE, kUp},   {0x00B1, 0x00B1, kUp},
    {0x00BC, 0x00BE, kUp},   {0x00D7, 0x00D7, kUp},   {0x00F7, 0x00F7, kUp},   {0x1100, 0x11FF, kUp},
    {0x2014, 0x2015, kForm}, {0x2016, 0x2016, kUp},   {0x2020, 0x2021, kUp},   {0x2025, 0x2026, kForm},
    {0x2030, 0x2031, kUp},   {0x203B, 0x203C, kUp},   {0x2042, 0x2042, kUp},   {0x2047, 0x2049, kUp},
    {0x2051, 0x2051, kUp},   {0x2100, 0x2101, kUp},   {0x2103, 0x2109, kUp},   {0x2113, 0x2114, kUp},
    {0x2116, 0x2117, kUp},   {0x211E, 0x2123, kUp},   {0x2153, 0x2189, kUp},   {0x221E, 0x221E, kUp},
    {0x2234, 0x2235, kUp},   {0x2460, 0x24FF, kUp},   {0x25A0, 0x2619, kUp},   {0x2620, 0x2767, kUp},
    {0x2776, 0x2793, kUp},   {0x2B12, 0x2B2F, kUp},   {0x2B50, 0x2B59, kUp},   {0x2E80, 0x3007, kUp},
    {0x3008, 0x3011, kForm}, {0x3012, 0x3013, kUp},   {0x3014, 0x301F, kForm}, {0x3020, 0x302F, kUp},
    {0x3030, 0x3030, kForm}, {0x3031, 0x309F, kUp},   {0x30A0, 0x30A0, kForm}, {0x30A1, 0x30FB, kUp},
    {0x30FC, 0x30FC, kForm}, {0x30FD, 0xA4CF, kUp},   {0xA960, 0xA97F, kUp},   {0xAC00, 0xD7FF, kUp},
    {0xE000, 0xFAFF, kUp},   {0xFE10, 0xFE1F, kUp},   {0xFE30, 0xFE48, kUp},   {0xFE50, 0xFE57, kUp},
    {0xFE59, 0xFE5E, kForm}, {0xFE5F, 0xFE62, kUp},   {0xFE67, 0xFE6F, kUp},   {0xFF01, 0xFF07, kUp},
    {0xFF08, 0xFF09, kForm}, {0xFF0A, 0xFF0C, kUp},   {0xFF0D, 0xFF0D, kForm}, {0xFF0E, 0xFF19, kUp},
    {0xFF1A, 0xFF1B, kForm}, {0xFF1C, 0xFF1E, kForm}, {0xFF1F, 0xFF3A, kUp},   {0xFF3B, 0xFF3B, kForm},
    {0xFF3C, 0xFF3C, kUp},   {0xFF3D, 0xFF3D, kForm}, {0xFF3E, 0xFF3E, kUp},   {0xFF3F, 0xFF3F, kForm},
    {0xFF40, 0xFF5A, kUp},   {0xFF5B, 0xFF60, kForm}, {0xFFE0, 0xFFE2, kUp},   {0xFFE3, 0xFFE3, kForm},
    {0xFFE4, 0xFFE7, kUp},   {0x1B000, 0x1B16F, kUp}, {0x1F000, 0x1FAFF, kUp}, {0x20000, 0x3FFFD, kUp},
};

struct CharacterRange {
    char32_t first, last;
};
/// Combining marks, joiners and variation selectors: they modify the previous character and use its font.
constexpr CharacterRange kModifiers[] = {{0x0300, 0x036F}, {0x200C, 0x200D}, {0x20D0, 0x20FF},
                                         {0x3099, 0x309A}, {0xFE00, 0xFE0F}, {0xE0100, 0xE01EF}};

bool modifiesPrevious(char32_t character)
{
    return std::ranges::any_of(
        kModifiers, [&](const CharacterRange &range) { return character >= range.first && character <= range.last; });
}

bool isHalfWidthDigit(char32_t character)
{
    return character >= U'0' && character <= U'9';
}

} // namespace

GlyphOrientation glyphOrientationOf(char32_t character)
{
    const auto *const range = std::ranges::lower_bound(kRanges, character, {}, &OrientationRange::last);
    return range != std::end(kRanges) && character >= range->first ? range->orientation : GlyphOrientation::rotated;
}

void MixedText::clear()
{
    m_glyphs.clear();
    m_parts.clear();
}

void MixedText::endPart(const Font &font, bool isVertical)
{
    if (m_parts.empty() || m_parts.back().font != &font || m_parts.back().isVertical != isVertical ||
        m_parts.back().combinedScale != 0)
        m_parts.push_back({&font, isVertical, 0});
    m_parts.back().end = m_glyphs.size();
}

void MixedText::add(std::u32string_view text, std::vector<char32_t> &missing)
{
    if (m_isVertical) return addInParts(text, missing);
    const std::size_t begin = m_glyphs.size(), missingBefore = missing.size();
    m_font.shape(text, m_glyphs, missing);
    if (missing.size() == missingBefore) {
        endPart(m_font, false);
        return;
    }
    m_glyphs.resize(begin);
    missing.resize(missingBefore);
    addInParts(text, missing);
}

const Font &MixedText::fontOf(char32_t character)
{
    if (m_font.has(character)) return m_font;
    const Font *const fallback = m_fonts.fallbackFor(character);
    return fallback == nullptr ? m_font : *fallback;
}

bool MixedText::isUprightCharacter(char32_t character, const Font &font) const
{
    if (!m_isVertical) return false;
    if (m_orientation != TextOrientation::mixed) return m_orientation == TextOrientation::upright;
    const GlyphOrientation orientation = glyphOrientationOf(character);
    return orientation == GlyphOrientation::upright ||
           (orientation == GlyphOrientation::transformed && font.hasVerticalForm(character));
}

std::size_t MixedText::combinedAt(std::u32string_view text) const
{
    const auto digits = static_cast<std::size_t>(std::ranges::find_if_not(text, isHalfWidthDigit) - text.begin());
    return digits <= m_combinedDigits ? digits : 0;
}

void MixedText::addCombined(std::u32string_view digits, const Font &font, float pen, std::vector<char32_t> &missing)
{
    constexpr float kCell = 1000;
    const std::size_t begin = m_glyphs.size();
    font.shape(digits, m_glyphs, missing);
    if (m_glyphs.size() == begin) return;
    const float width = m_glyphs.back().x + m_glyphs.back().advance;
    const float scale = width > kCell ? kCell / width : 1;
    for (std::size_t i = begin; i < m_glyphs.size(); ++i) {
        ShapedGlyph &glyph = m_glyphs[i];
        glyph.offsetX = (glyph.x - width / 2) * scale;
        glyph.x = pen;
        glyph.advance = kCell;
    }
    m_parts.push_back({&font, false, m_glyphs.size(), static_cast<double>(scale)});
}

void MixedText::addInParts(std::u32string_view text, std::vector<char32_t> &missing)
{
    float pen = 0;
    while (!text.empty()) {
        const Font &font = fontOf(text.front());
        if (const std::size_t digits = combinedAt(text); digits > 0) {
            const std::size_t before = m_glyphs.size();
            addCombined(text.substr(0, digits), font, pen, missing);
            if (m_glyphs.size() > before) pen = m_glyphs.back().x + m_glyphs.back().advance;
            text.remove_prefix(digits);
            continue;
        }
        const bool isUpright = isUprightCharacter(text.front(), font);
        const auto continuesPart = [&](char32_t character) {
            return modifiesPrevious(character) ||
                   (&fontOf(character) == &font && isUprightCharacter(character, font) == isUpright);
        };
        std::size_t size = 1;
        while (size < text.size() && continuesPart(text[size]) &&
               (isHalfWidthDigit(text[size - 1]) || combinedAt(text.substr(size)) == 0))
            ++size;
        const std::size_t begin = m_glyphs.size();
        if (isUpright)
            font.shapeVertical(text.substr(0, size), m_glyphs, missing);
        else
            font.shape(text.substr(0, size), m_glyphs, missing);
        for (std::size_t i = begin; i < m_glyphs.size(); ++i) m_glyphs[i].x += pen;
        if (m_glyphs.size() > begin) pen = m_glyphs.back().x + m_glyphs.back().advance;
        endPart(font, isUpright);
        text.remove_prefix(size);
    }
}

MixedText::Part MixedText::partAt(std::size_t glyph) const
{
    return *std::ranges::upper_bound(m_parts, glyph, {}, &Part::end);
}

} // namespace inin::viewer
