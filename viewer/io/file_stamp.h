#pragma once

#include <cstdint>
#include <string>

namespace inin::viewer {

/// Detects a changed file without reading it.
struct FileStamp {
    bool exists = false;
    std::int64_t changed = 0; ///< nanoseconds since the beginning of 1970, UTC
    std::int64_t size = 0;
    friend bool operator==(const FileStamp &, const FileStamp &) = default;
};

/// The stamp of a path in the suite's form. An inaccessible file counts as missing.
[[nodiscard]] FileStamp stampOf(const std::string &path);

/// A file that was read, with its stamp from just before.
struct StampedFile {
    std::string path;
    FileStamp stamp;
};

} // namespace inin::viewer
