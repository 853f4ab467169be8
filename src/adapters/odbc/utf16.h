#pragma once

#include <string>
#include <string_view>

namespace inin::odbc {

// Conversions for ODBC's wide functions. Malformed bytes and unpaired surrogates become U+FFFD, as in every conversion.
[[nodiscard]] std::u16string utf16FromUtf8(std::string_view text);
[[nodiscard]] std::string utf8FromUtf16(std::u16string_view text);

} // namespace inin::odbc
