#pragma once

#include <string>
#include <string_view>

namespace inin {

// Text is UTF-8 inside the program; the wide calls of Windows take UTF-16. A malformed sequence becomes U+FFFD.
[[nodiscard]] std::wstring wideFromUtf8(std::string_view text);
[[nodiscard]] std::string utf8FromWide(std::wstring_view text);

// Conversions of any code page of the system, as its own calls do them.
[[nodiscard]] std::wstring wideFrom(unsigned codePage, std::string_view bytes);
[[nodiscard]] std::string bytesFrom(unsigned codePage, unsigned long flags, std::wstring_view wide);

} // namespace inin
