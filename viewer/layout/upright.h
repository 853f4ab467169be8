#pragma once

namespace inin::viewer {

/// The orientation of a character in vertical text, by the Unicode property Vertical_Orientation.
enum class GlyphOrientation {
    upright,
    rotated,
    transformed ///< by a vertical form of the font, otherwise rotated: brackets, the long vowel mark
};
[[nodiscard]] GlyphOrientation glyphOrientationOf(char32_t character);

} // namespace inin::viewer
