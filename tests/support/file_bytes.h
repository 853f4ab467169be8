#pragma once

#include "system/file_path.h"

#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>

namespace inin {

/// Read by the library: in unoptimized test code, a stream's iterators take longer than the rest of many tests.
[[nodiscard]] inline std::string restOf(std::istream &stream)
{
    std::ostringstream bytes;
    bytes << stream.rdbuf();
    return std::move(bytes).str();
}

/// Throws if there is no such file. TempFolder::bytes() does not: it is for files that may be missing.
[[nodiscard]] inline std::string bytesOf(const std::filesystem::path &path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file) throw std::runtime_error("cannot read " + textOf(path));
    return restOf(file);
}

/// Also creates the parent folders.
inline void writeBytes(const std::filesystem::path &path, const std::string &bytes)
{
    std::error_code ignored; // for a path without a folder
    std::filesystem::create_directories(path.parent_path(), ignored);
    std::ofstream(path, std::ios::binary) << bytes;
}

// A path in a narrow string is UTF-8 on every system here.
[[nodiscard]] inline std::string bytesOf(const std::string &path)
{
    return bytesOf(pathOf(path));
}

inline void writeBytes(const std::string &path, const std::string &bytes)
{
    writeBytes(pathOf(path), bytes);
}

} // namespace inin
