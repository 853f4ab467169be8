#pragma once

#include "viewer/layout/font.h"
#include "viewer/pdf/pdf_file.h"

#include <cstdint>
#include <unordered_map>
#include <vector>

namespace inin::viewer {

/// How characters that no font has are shown: as on the screen, by the font's missing glyph, which the standards for tagged
/// and archived PDF forbid; or by an empty square of the font, if it has one.
enum class MissingGlyphs { asOnScreen, replaced };

/// A font of a PDF with only the glyphs that are used. A code identifies a glyph and its characters, so that two characters
/// with the same glyph (支 U+652F and the radical U+2F40) are extracted correctly. Vertical lines use a separate font with
/// vertical metrics.
class PdfFont {
public:
    enum class Direction { horizontal, vertical };
    PdfFont(const Font &font, Direction direction, int number, PdfFile &file, MissingGlyphs missing);

    [[nodiscard]] const Font &font() const { return m_font; }
    [[nodiscard]] Direction direction() const { return m_direction; }
    [[nodiscard]] int object() const { return m_object; }
    /// The number in the font's resource name.
    [[nodiscard]] int number() const { return m_number; }

    std::uint16_t codeOf(const ShapedGlyph &glyph)
    {
        if (glyph.text < kCached) {
            const CachedCode &cached = m_cache[glyph.text];
            if (cached.code != 0 && cached.glyph == glyph.glyph) return cached.code;
        }
        return findOrAddCode(glyph);
    }
    /// The advance of a code along its line as written, in thousandths of the size.
    [[nodiscard]] float widthOf(std::uint16_t code) const { return m_used[code].width; }

    void write(PdfFile &file) const;

private:
    static constexpr std::uint32_t kCached = 0x10000;
    struct CachedCode {
        std::uint32_t glyph = 0;
        std::uint16_t code = 0;
    };
    struct UsedGlyph {
        std::uint32_t glyph = 0, text = 0;
        float width = 0;
        float offsetX = 0, offsetY = 0; ///< of the glyph's origin from the pen, in vertical lines
    };

    std::uint16_t findOrAddCode(const ShapedGlyph &glyph);
    [[nodiscard]] std::string widths() const;
    [[nodiscard]] std::string horizontalWidths() const;
    [[nodiscard]] std::string verticalMetrics() const;
    [[nodiscard]] std::string unicodeMap() const;

    const Font &m_font;
    Direction m_direction;
    int m_number, m_object;
    std::uint32_t m_missingGlyph = 0;
    std::vector<CachedCode> m_cache; ///< by code point: the first code of each
    std::vector<UsedGlyph> m_used;   ///< by code; code 0 is never used
    std::unordered_map<std::uint64_t, std::uint16_t> m_otherCodes;
};

} // namespace inin::viewer
