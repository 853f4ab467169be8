#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <optional>
#include <string>

namespace inin::sqlite {

/// The VFS to open a database with: on Windows the one without the path limit of 260 characters, else the default.
inline const char *databaseFileCalls()
{
    constexpr const char *kUnlimited = "win32-longpath";
    return sqlite3_vfs_find(kUnlimited) == nullptr ? nullptr : kUnlimited;
}

/// Detects that a file was replaced by another of the same name or written to, as far as the time of the last write
/// shows it. On Windows an open database can be neither replaced nor deleted, so device and number are 0 there.
struct FileIdentity {
    std::uint64_t device = 0;
    std::uint64_t number = 0;
    std::uint64_t size = 0;
    std::int64_t written = 0; ///< in nanoseconds, on Windows in units of 100 nanoseconds
    friend bool operator==(const FileIdentity &, const FileIdentity &) = default;
};

/// Nothing when the path is not a regular file.
[[nodiscard]] std::optional<FileIdentity> fileIdentity(const std::string &path);

} // namespace inin::sqlite
