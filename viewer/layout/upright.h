#pragma once

namespace inin::viewer {

/// How a character stands in a line that runs down, by the character database's property for it.
enum class Stance {
    upright,
    sideways,
    turned ///< by a form of the font's own, else it lies on its side: brackets, the long vowel mark
};
[[nodiscard]] Stance stanceOf(char32_t character);

} // namespace inin::viewer
