#pragma once

#include <cstdint>
#include <string>

namespace inin::viewer {

/// By what a changed file is known without reading it.
struct FileStamp {
    bool exists = false;
    std::int64_t changed = 0; ///< nanoseconds since the system's own beginning of time
    std::int64_t size = 0;
    friend bool operator==(const FileStamp &, const FileStamp &) = default;
};

/// A path as the suite writes it; a file that cannot be looked at counts as missing.
[[nodiscard]] FileStamp stampOf(const std::string &path);

/// A file that was read, as it was just before.
struct StampedFile {
    std::string path;
    FileStamp stamp;
};

} // namespace inin::viewer
