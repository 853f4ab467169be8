#pragma once

#include <string>
#include <string_view>

namespace inin::viewer {

/// Appends the characters of a UTF-8 text, at most `most` of them; a byte that belongs to none becomes U+FFFD.
/// False when the text has more.
bool appendCharacters(std::string_view text, std::u32string &characters, std::size_t most);
void appendUtf8(std::string &text, char32_t character);
/// True for blanks alone, full-width ones too, and for nothing.
[[nodiscard]] bool isBlankText(std::string_view text);

} // namespace inin::viewer
