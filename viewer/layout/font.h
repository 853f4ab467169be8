#pragma once

#include "viewer/form/geometry.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace inin::viewer {

/// A glyph of a text. `x` is its distance from the beginning of the text along the line. Lengths are thousandths of the
/// font size.
struct ShapedGlyph {
    std::uint32_t glyph = 0;
    /// The characters of the glyph: a code point, an index of the font's clusters from kClusterBase on, or 0 for none.
    std::uint32_t text = 0;
    float x = 0;
    float advance = 0;
    /// In vertical text: the glyph's origin relative to its position on the centre line, y downwards.
    float offsetX = 0, offsetY = 0;
};
inline constexpr std::uint32_t kClusterBase = 0x110000;

/// A font of a file. Lengths are thousandths of the size.
class Font {
public:
    /// Throws a RuntimeError with a sentence for a file that is not a font.
    Font(std::string path, int index);
    Font(const Font &) = delete;
    Font &operator=(const Font &) = delete;
    ~Font();

    [[nodiscard]] const std::string &path() const { return m_path; }
    /// The font's index in a collection.
    [[nodiscard]] int index() const { return m_index; }
    [[nodiscard]] std::string postScriptName() const;
    [[nodiscard]] double ascent() const { return m_ascent; }
    [[nodiscard]] double descent() const { return m_descent; } ///< below the baseline, negative
    [[nodiscard]] std::uint32_t glyphCount() const;
    [[nodiscard]] bool has(char32_t character) const { return entryOf(character).glyph != 0; }

    /// Appends the glyphs of a text. A character that the font lacks gets glyph 0 and is appended to `missing`.
    /// Texts of context-free characters are looked up in a table; all others are shaped. The results are the same.
    void shape(std::u32string_view text, std::vector<ShapedGlyph> &glyphs, std::vector<char32_t> &missing) const;
    /// The same, always by the shaper.
    void shapeWhole(std::u32string_view text, std::vector<ShapedGlyph> &glyphs, std::vector<char32_t> &missing) const;
    /// Shapes upright characters of a vertical line, with the font's vertical forms.
    void shapeVertical(std::u32string_view text, std::vector<ShapedGlyph> &glyphs,
                       std::vector<char32_t> &missing) const;
    /// True when the font has a vertical form of a character.
    [[nodiscard]] bool hasVerticalForm(char32_t character) const;
    /// The characters of a ShapedGlyph::text.
    [[nodiscard]] std::u32string charactersOf(std::uint32_t text) const;
    [[nodiscard]] float advanceOf(std::uint32_t glyph) const;
    /// The outline for a font size of 1, y downwards.
    [[nodiscard]] Path outlineOf(std::uint32_t glyph) const;

    /// A font file with some of the glyphs, and their new numbers in the order of `glyphs`.
    struct Subset {
        std::string bytes;
        std::vector<std::uint32_t> newGlyphs;
    };
    [[nodiscard]] Subset subsetOf(std::span<const std::uint32_t> glyphs) const;

private:
    struct Faces;
    enum class Kind : std::uint8_t { unknown, plain, needsShaping };
    struct CharacterEntry {
        Kind kind = Kind::unknown;
        float advance = 0;
        std::uint32_t glyph = 0;
    };
    [[nodiscard]] const CharacterEntry &entryOf(char32_t character) const;
    [[nodiscard]] CharacterEntry lookUp(char32_t character) const;
    [[nodiscard]] std::uint32_t textOf(std::u32string_view cluster) const;
    /// Shapes a text into the buffer.
    void shapeInto(std::u32string_view text, bool isDown) const;
    template <class Place>
    void appendShaped(std::u32string_view text, std::vector<ShapedGlyph> &glyphs, std::vector<char32_t> &missing,
                      const Place &place) const;

    std::string m_path;
    int m_index;
    std::unique_ptr<Faces> m_faces;
    double m_ascent = 0, m_descent = 0;
};

} // namespace inin::viewer
