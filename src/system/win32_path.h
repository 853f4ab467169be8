#pragma once

#include <string>
#include <string_view>

namespace inin {

/// An absolute path with this prefix may exceed the classic limit; the ANSI calls do not accept it.
inline constexpr std::wstring_view kUnlimited = L"\\\\?\\";

/// The path as the wide calls accept it, see systemPath.
[[nodiscard]] std::wstring widePath(const std::string &path);
/// The absolute path, from the drive or share on; the given path if the system cannot complete it.
[[nodiscard]] std::wstring fullPath(const std::wstring &path);

} // namespace inin
