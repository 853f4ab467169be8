#pragma once

#include <string>
#include <string_view>

namespace inin {

// Code page 932 by tables that are built once from the system's own. A character goes out only when it comes back the same;
// besides, "―", "‖", "−", "～" and their Unicode twins U+2014, U+2016, U+2212, U+301C go out as the code page's own.

/// A character that the code page lacks becomes "?"; a sequence that is no UTF-8 too.
[[nodiscard]] std::string encodeCp932(std::string_view utf8);
/// A byte that is no character becomes U+FFFD.
[[nodiscard]] std::string decodeCp932(std::string_view bytes);
/// True for the first byte of a double-byte character.
[[nodiscard]] bool isCp932Lead(unsigned char byte);
/// The character of a double byte as a UTF-16 unit, 0 when there is none: the code page stays within 16 bits.
[[nodiscard]] char16_t cp932Unit(unsigned char lead, unsigned char trail);
/// Likewise of a single byte.
[[nodiscard]] char16_t cp932Unit(unsigned char byte);
/// The unit must be no half of a pair.
void appendUtf8(std::string &out, char16_t unit);

} // namespace inin
