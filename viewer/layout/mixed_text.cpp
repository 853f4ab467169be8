#include "viewer/layout/mixed_text.h"

#include "viewer/layout/fonts.h"
#include "viewer/layout/upright.h"

#include <algorithm>
#include <iterator>

namespace inin::viewer {

namespace {

struct Range {
    char32_t first, last;
};
/// Marks, joiners and selectors: they change the character before them and stand in its font.
constexpr Range kFollowers[] = {{0x0300, 0x036F}, {0x200C, 0x200D}, {0x20D0, 0x20FF},
                                {0x3099, 0x309A}, {0xFE00, 0xFE0F}, {0xE0100, 0xE01EF}};

bool followsAnother(char32_t character)
{
    return std::ranges::any_of(kFollowers,
                               [&](const Range &range) { return character >= range.first && character <= range.last; });
}

} // namespace

void MixedText::clear()
{
    m_glyphs.clear();
    m_parts.clear();
}

void MixedText::endPart(const Font &font, bool runsDown)
{
    if (m_parts.empty() || m_parts.back().font != &font || m_parts.back().runsDown != runsDown)
        m_parts.push_back({&font, runsDown, 0});
    m_parts.back().end = m_glyphs.size();
}

void MixedText::add(std::u32string_view text, std::vector<char32_t> &missing)
{
    if (m_runsDown) return addByParts(text, missing);
    const std::size_t begin = m_glyphs.size(), told = missing.size();
    m_font.shape(text, m_glyphs, missing);
    if (missing.size() == told) {
        endPart(m_font, false);
        return;
    }
    m_glyphs.resize(begin);
    missing.resize(told);
    addByParts(text, missing);
}

const Font &MixedText::fontOf(char32_t character)
{
    if (m_font.has(character)) return m_font;
    const Font *const standIn = m_fonts.fontWith(character);
    return standIn == nullptr ? m_font : *standIn;
}

bool MixedText::standsUpright(char32_t character, const Font &font) const
{
    if (!m_runsDown || m_upright != Upright::asUsual) return m_runsDown && m_upright == Upright::all;
    const Stance stance = stanceOf(character);
    return stance == Stance::upright || (stance == Stance::turned && font.hasFormDown(character));
}

void MixedText::addByParts(std::u32string_view text, std::vector<char32_t> &missing)
{
    float pen = 0;
    while (!text.empty()) {
        const Font &font = fontOf(text.front());
        const bool isUpright = standsUpright(text.front(), font);
        const auto goesOn = [&](char32_t character) {
            return followsAnother(character) ||
                   (&fontOf(character) == &font && standsUpright(character, font) == isUpright);
        };
        std::size_t size = 1;
        while (size < text.size() && goesOn(text[size])) ++size;
        const std::size_t begin = m_glyphs.size();
        if (isUpright)
            font.shapeDown(text.substr(0, size), m_glyphs, missing);
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
