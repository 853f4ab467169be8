#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace inin {

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

} // namespace inin
