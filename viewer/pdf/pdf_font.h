#pragma once

#include "viewer/layout/font.h"
#include "viewer/pdf/pdf_file.h"

#include <cstdint>
#include <unordered_map>
#include <vector>

namespace inin::viewer {

/// A font as a PDF has it: only the glyphs that were used. A code stands for a glyph and what was written with it, so
/// that two characters of one glyph (支 U+652F and the radical U+2F40) are taken back as what they were. Lines that run down
/// have a font of their own, whose letters stand below one another.
class PdfFont {
public:
    enum class Lines { across, down };
    PdfFont(const Font &font, Lines lines, int number, PdfFile &file);

    [[nodiscard]] const Font &font() const { return m_font; }
    [[nodiscard]] Lines lines() const { return m_lines; }
    /// The number of its object and of its resource name.
    [[nodiscard]] int object() const { return m_object; }
    [[nodiscard]] int number() const { return m_number; }

    std::uint16_t codeOf(const ShapedGlyph &glyph)
    {
        if (glyph.text < kQuick) {
            const Quick &quick = m_quick[glyph.text];
            if (quick.code != 0 && quick.glyph == glyph.glyph) return quick.code;
        }
        return newOrRareCode(glyph);
    }
    /// How far a letter moves the pen along its line: thousandths of the size, as the file has them.
    [[nodiscard]] float widthOf(std::uint16_t code) const { return m_used[code].width; }

    void write(PdfFile &file) const;

private:
    static constexpr std::uint32_t kQuick = 0x10000;
    struct Quick {
        std::uint32_t glyph = 0;
        std::uint16_t code = 0;
    };
    struct Used {
        std::uint32_t glyph = 0, text = 0;
        float width = 0;
        float aside = 0, drop = 0; ///< of the glyph's origin from the pen, in lines that run down
    };

    std::uint16_t newOrRareCode(const ShapedGlyph &glyph);
    [[nodiscard]] std::string widths() const;
    [[nodiscard]] std::string ownWidths() const;
    [[nodiscard]] std::string heights() const;
    [[nodiscard]] std::string unicodeMap() const;

    const Font &m_font;
    Lines m_lines;
    int m_number, m_object;
    std::vector<Quick> m_quick;
    std::vector<Used> m_used; ///< by code; code 0 is never used
    std::unordered_map<std::uint64_t, std::uint16_t> m_rare;
};

} // namespace inin::viewer
