#pragma once

#include "viewer/form/form_document.h"
#include "viewer/layout/font.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace inin::viewer {

class Fonts;

/// The glyphs of a text: those of its own font, and of stand-ins where that lacks a character. In a text that runs down
/// some stand upright, one below another, and others lie on their side.
class MixedText {
public:
    /// Both must outlive this.
    MixedText(const Font &font, Fonts &fonts, WritingMode writing, Upright upright)
        : m_font(font), m_fonts(fonts), m_runsDown(writing != WritingMode::across), m_upright(upright)
    {
    }

    void clear();
    /// Appends a text whose first glyph stands at x 0. What no font has gets the own font's box and goes to `missing`.
    void add(std::u32string_view text, std::vector<char32_t> &missing);
    [[nodiscard]] const std::vector<ShapedGlyph> &glyphs() const { return m_glyphs; }

    /// Glyphs of one font and stance, up to before `end`.
    struct Part {
        const Font *font;
        bool runsDown; ///< upright in a text that runs down
        std::size_t end;
    };
    /// The part in which a glyph stands.
    [[nodiscard]] Part partAt(std::size_t glyph) const;

private:
    void addByParts(std::u32string_view text, std::vector<char32_t> &missing);
    [[nodiscard]] const Font &fontOf(char32_t character);
    [[nodiscard]] bool standsUpright(char32_t character, const Font &font) const;
    void endPart(const Font &font, bool runsDown);

    const Font &m_font;
    Fonts &m_fonts;
    bool m_runsDown;
    Upright m_upright;
    std::vector<ShapedGlyph> m_glyphs;
    std::vector<Part> m_parts;
};

} // namespace inin::viewer
