#include "viewer/layout/mixed_text.h"

#include "viewer/layout/fonts.h"
#include "viewer/layout/upright.h"

#include <algorithm>
#include <iterator>

namespace inin::viewer {

namespace {

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

} // namespace

void MixedText::clear()
{
    m_glyphs.clear();
    m_parts.clear();
}

void MixedText::endPart(const Font &font, bool isVertical)
{
    if (m_parts.empty() || m_parts.back().font != &font || m_parts.back().isVertical != isVertical)
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

void MixedText::addInParts(std::u32string_view text, std::vector<char32_t> &missing)
{
    float pen = 0;
    while (!text.empty()) {
        const Font &font = fontOf(text.front());
        const bool isUpright = isUprightCharacter(text.front(), font);
        const auto continuesPart = [&](char32_t character) {
            return modifiesPrevious(character) ||
                   (&fontOf(character) == &font && isUprightCharacter(character, font) == isUpright);
        };
        std::size_t size = 1;
        while (size < text.size() && continuesPart(text[size])) ++size;
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
