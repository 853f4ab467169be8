#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace inin {

inline constexpr std::string_view kCr = "\r";
inline constexpr std::string_view kCrLf = "\r\n";

// Trimming removes ASCII blanks only; a full-width blank is an ordinary character.
[[nodiscard]] std::string rtrim(std::string_view text);
[[nodiscard]] std::string ltrim(std::string_view text);
[[nodiscard]] std::string trim(std::string_view text);

// Lengths are in UTF-16 units, as in the suite; a surrogate pair is never split.
[[nodiscard]] std::size_t length(std::string_view text);
[[nodiscard]] std::string left(std::string_view text, std::size_t units);
[[nodiscard]] std::string mid(std::string_view text, std::size_t start, std::size_t units); ///< start counts from 1
/// Left-aligned, padded with blanks or cut to the length.
[[nodiscard]] std::string fixedText(std::string_view text, std::size_t units);

/// Converts A to Z to lower case; all other bytes are unchanged.
[[nodiscard]] std::string asciiLower(std::string_view text);
[[nodiscard]] bool equalsIgnoringAsciiCase(std::string_view a, std::string_view b);

} // namespace inin
