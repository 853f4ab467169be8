#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace inin {

inline constexpr std::string_view kCr = "\r";
inline constexpr std::string_view kCrLf = "\r\n";

// Blanks are the ASCII blank alone; a full-width blank is a character like any other.
[[nodiscard]] std::string rtrim(std::string_view text);
[[nodiscard]] std::string ltrim(std::string_view text);
[[nodiscard]] std::string trim(std::string_view text);

// Characters are counted in UTF-16 units, as the suite counts them, and a pair is never cut.
[[nodiscard]] std::size_t length(std::string_view text);
[[nodiscard]] std::string left(std::string_view text, std::size_t units);
[[nodiscard]] std::string mid(std::string_view text, std::size_t start, std::size_t units); ///< start counts from 1
/// Filled from the left, padded with blanks and cut at its length.
[[nodiscard]] std::string fixedText(std::string_view text, std::size_t units);

/// A to Z folded to a to z, everything else untouched.
[[nodiscard]] std::string asciiLower(std::string_view text);
[[nodiscard]] bool equalsIgnoringAsciiCase(std::string_view a, std::string_view b);

} // namespace inin
