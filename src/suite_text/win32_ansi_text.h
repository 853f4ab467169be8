#pragma once

#include <string>
#include <string_view>

namespace inin {

/// UTF-8 to the system's ANSI code page; a character that it lacks becomes a single "?".
[[nodiscard]] std::string ansiFromUtf8(std::string_view text);
/// The ANSI code page to UTF-8; a byte that is not a character becomes U+FFFD.
[[nodiscard]] std::string utf8FromAnsi(std::string_view bytes);

} // namespace inin
