#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace inin {

// std::filesystem decodes a path from std::string in the system's encoding, which is UTF-8 on some systems only.

[[nodiscard]] inline std::filesystem::path pathOf(std::string_view utf8)
{
    return std::u8string(utf8.begin(), utf8.end());
}

[[nodiscard]] inline std::string textOf(const std::filesystem::path &path)
{
    const std::u8string utf8 = path.u8string();
    return {utf8.begin(), utf8.end()};
}

/// A path of the suite as this system's calls take it. POSIX: turns "\" into "/" and finds each part of the path in any
/// case; a part that does not exist is kept as given. Windows: turns "/" into "\"; a path beyond the classic limit of 260
/// characters becomes absolute and gets the prefix that lifts the limit.
[[nodiscard]] std::string systemPath(const std::string &path);
/// True for a path that does not start at the current folder; on Windows a path with a drive letter is absolute.
[[nodiscard]] bool isAbsolutePath(const std::string &path);
/// The absolute path without "." and "..". Windows: also of a folder on a share, which std::filesystem takes for one on
/// the current drive. POSIX: without symbolic links if the path exists.
[[nodiscard]] std::string fullPath(const std::string &path);
/// The absolute system path for a path of the suite. Unlike fullPath(), it keeps symbolic links.
[[nodiscard]] std::string absoluteSystemPath(const std::string &path);
/// The absolute system path of an existing file or folder with all links followed; empty if there is none.
[[nodiscard]] std::string pathWithoutLinks(const std::string &systemPath);
/// A system path for std::filesystem; on Windows it may exceed the classic limit.
[[nodiscard]] std::filesystem::path longPathOf(const std::string &systemPath);

} // namespace inin
