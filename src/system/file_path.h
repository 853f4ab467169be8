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
/// The first bytes of a file, at most `size`; none if it cannot be read.
[[nodiscard]] std::string startOfFile(const std::filesystem::path &path, std::size_t size);
/// Creates an empty file that only its owner may read and write, for personal data or passwords. An existing file keeps
/// its rights and content. Windows: does nothing, because a new file gets the rights of its folder. A failure shows when
/// the caller opens the file.
void createForOwner(const std::string &path);

} // namespace inin
