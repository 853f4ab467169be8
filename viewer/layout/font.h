#pragma once

#include "viewer/form/geometry.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace inin::viewer {

/// A glyph of a text, `x` behind the text's beginning along its line, in thousandths of the font's size.
struct ShapedGlyph {
    std::uint32_t glyph = 0;
    /// What the glyph stands for: a code point, from kClusterBase on one of the font's clusters, 0 for nothing.
    std::uint32_t text = 0;
    float x = 0;
    float advance = 0;
    /// In a text that runs down: where the glyph's own origin is from the line's middle and its place on it, y downwards.
    float aside = 0, drop = 0;
};
inline constexpr std::uint32_t kClusterBase = 0x110000;

/// One font file, opened once. Lengths are thousandths of the size.
class Font {
public:
    /// A RuntimeError with a sentence for a file that is no font.
    Font(std::string path, int index);
    Font(const Font &) = delete;
    Font &operator=(const Font &) = delete;
    ~Font();

    [[nodiscard]] const std::string &path() const { return m_path; }
    /// Which font of a collection.
    [[nodiscard]] int index() const { return m_index; }
    [[nodiscard]] std::string postScriptName() const;
    [[nodiscard]] double ascent() const { return m_ascent; }
    [[nodiscard]] double descent() const { return m_descent; } ///< below the baseline, negative
    [[nodiscard]] std::uint32_t glyphCount() const;
    [[nodiscard]] bool has(char32_t character) const { return known(character).glyph != 0; }

    /// Appends the glyphs of a text. A character that the font lacks gets glyph 0 and is appended to `missing`.
    /// Characters that stand for themselves in every context are taken from a table; a text with any other is shaped as
    /// a whole, with the same result.
    void shape(std::u32string_view text, std::vector<ShapedGlyph> &glyphs, std::vector<char32_t> &missing) const;
    /// The same by the shaper alone.
    void shapeWhole(std::u32string_view text, std::vector<ShapedGlyph> &glyphs, std::vector<char32_t> &missing) const;
    /// For a line that runs down, letters upright: with the font's own forms for it.
    void shapeDown(std::u32string_view text, std::vector<ShapedGlyph> &glyphs, std::vector<char32_t> &missing) const;
    /// True when the font has a form of its own for a character in a line that runs down.
    [[nodiscard]] bool hasFormDown(char32_t character) const;
    /// The characters of a ShapedGlyph::text.
    [[nodiscard]] std::u32string charactersOf(std::uint32_t text) const;
    [[nodiscard]] float advanceOf(std::uint32_t glyph) const;
    /// The outline in a square of 1, y downwards.
    [[nodiscard]] Path outlineOf(std::uint32_t glyph) const;

    /// The font reduced to some glyphs, and where each of them went.
    struct Subset {
        std::string bytes;
        std::vector<std::uint32_t> places; ///< beside `glyphs`
    };
    [[nodiscard]] Subset subsetOf(std::span<const std::uint32_t> glyphs) const;

private:
    struct Faces;
    enum class Kind : std::uint8_t { unknown, plain, needsShaping };
    struct Known {
        Kind kind = Kind::unknown;
        float advance = 0;
        std::uint32_t glyph = 0;
    };
    [[nodiscard]] const Known &known(char32_t character) const;
    [[nodiscard]] Known lookUp(char32_t character) const;
    [[nodiscard]] std::uint32_t textOf(std::u32string_view cluster) const;
    /// Shapes a text into the buffer.
    void shapeInto(std::u32string_view text, bool isDown) const;
    template <class Place>
    void takeShaped(std::u32string_view text, std::vector<ShapedGlyph> &glyphs, std::vector<char32_t> &missing,
                    const Place &place) const;

    std::string m_path;
    int m_index;
    std::unique_ptr<Faces> m_faces;
    double m_ascent = 0, m_descent = 0;
};

} // namespace inin::viewer
