#pragma once

#include <string>
#include <string_view>

namespace inin {

/// With this before it a whole path may lie beyond the classic limit; the ANSI calls do not know it.
inline constexpr std::wstring_view kUnlimited = L"\\\\?\\";

/// The path as the wide calls take it, see systemPath.
[[nodiscard]] std::wstring widePath(const std::string &path);
/// The path from its drive or share, as the system completes it; the path itself where it cannot.
[[nodiscard]] std::wstring fullPath(const std::wstring &path);

} // namespace inin
