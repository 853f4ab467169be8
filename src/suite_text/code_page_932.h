#pragma once

#include <string>
#include <string_view>

namespace inin {

// Code page 932, by tables that are built once from the system's own. A character is encoded only if it decodes to
// itself; in addition U+2014, U+2016, U+2212 and U+301C are encoded as U+2015, U+2225, U+FF0D and U+FF5E.

/// A character that the code page lacks becomes "?", and so does what `runtime/utf8.h` replaces.
[[nodiscard]] std::string encodeCp932(std::string_view utf8);
/// A byte that is not a character becomes U+FFFD.
[[nodiscard]] std::string decodeCp932(std::string_view bytes);
/// True for the first byte of a double-byte character.
[[nodiscard]] bool isCp932Lead(unsigned char byte);
/// The character of a double byte as a UTF-16 unit, or 0: all characters of the code page are in the BMP.
[[nodiscard]] char16_t cp932Unit(unsigned char lead, unsigned char trail);
/// The same for a single byte.
[[nodiscard]] char16_t cp932Unit(unsigned char byte);

} // namespace inin
