#pragma once

#include <string>
#include <string_view>

namespace inin::viewer {

/// The full-width blank.
inline constexpr std::string_view kWideBlank = "\u3000";

/// Appends at most `most` characters of a UTF-8 text. Invalid bytes become U+FFFD. False when the text has more.
bool appendCharacters(std::string_view text, std::u32string &characters, std::size_t most);
void appendUtf8(std::string &text, char32_t character);
/// True for an empty text and for one of blanks only, full-width ones included.
[[nodiscard]] bool isBlankText(std::string_view text);

} // namespace inin::viewer
