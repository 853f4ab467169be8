#pragma once

#include <string>
#include <string_view>

namespace inin::odbc {

// ODBC's wide functions take UTF-16. A byte or a unit that is no character becomes U+FFFD, as at every edge.
[[nodiscard]] std::u16string utf16FromUtf8(std::string_view text);
[[nodiscard]] std::string utf8FromUtf16(std::u16string_view text);

} // namespace inin::odbc
