#pragma once

#include "viewer/form/form_document.h"
#include "viewer/layout/font.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace inin::viewer {

/// The orientation of a character in vertical text, by the Unicode property Vertical_Orientation.
enum class GlyphOrientation {
    upright,
    rotated,
    transformed ///< by a vertical form of the font, otherwise rotated: brackets, the long vowel mark
};
[[nodiscard]] GlyphOrientation glyphOrientationOf(char32_t character);

class Fonts;

/// The glyphs of a text in its own font, and in fallback fonts for the characters that it lacks. In vertical text, some
/// characters are upright and others are rotated.
class MixedText {
public:
    /// `font` and `fonts` must outlive this object.
    MixedText(const Font &font, Fonts &fonts, const TextCommand &command)
        : m_font(font), m_fonts(fonts), m_isVertical(command.writing != WritingMode::horizontal),
          m_orientation(command.orientation), m_combinedDigits(m_isVertical ? command.combinedDigits : 0)
    {
    }

    void clear();
    /// Appends a text whose first glyph is at x 0. A character that no font has is shown as the missing glyph of the
    /// text's own font and appended to `missing`.
    void add(std::u32string_view text, std::vector<char32_t> &missing);
    [[nodiscard]] const std::vector<ShapedGlyph> &glyphs() const { return m_glyphs; }

    /// Glyphs of one font and orientation; `end` is exclusive.
    struct Part {
        const Font *font;
        bool isVertical; ///< upright characters of vertical text
        std::size_t end;
        /// For digits that share a cell, their horizontal scale; their offsetX is the distance from the centre line, and
        /// the x of each is that of the cell. Otherwise 0.
        double combinedScale = 0;
    };
    /// The part that contains a glyph.
    [[nodiscard]] Part partAt(std::size_t glyph) const;

private:
    void addCombined(std::u32string_view digits, const Font &font, float pen, std::vector<char32_t> &missing);
    /// The number of digits at the beginning of a text that share a cell.
    [[nodiscard]] std::size_t combinedAt(std::u32string_view text) const;
    void addInParts(std::u32string_view text, std::vector<char32_t> &missing);
    [[nodiscard]] const Font &fontOf(char32_t character);
    [[nodiscard]] bool isUprightCharacter(char32_t character, const Font &font) const;
    void endPart(const Font &font, bool isVertical);

    const Font &m_font;
    Fonts &m_fonts;
    bool m_isVertical;
    TextOrientation m_orientation;
    std::size_t m_combinedDigits;
    std::vector<ShapedGlyph> m_glyphs;
    std::vector<Part> m_parts;
};

} // namespace inin::viewer
