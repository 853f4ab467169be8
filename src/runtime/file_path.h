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

} // namespace inin
