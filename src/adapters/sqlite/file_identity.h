#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace inin {

/// Distinguishes a file from another of its name and from its own former content, as far as the system's record of the
/// last write can. On Windows an open database can be neither replaced nor deleted, so device and number stay 0 there.
struct FileIdentity {
    std::uint64_t device = 0;
    std::uint64_t number = 0;
    std::uint64_t size = 0;
    std::int64_t written = 0; ///< in units of the system: nanoseconds, on Windows 100 of them
    friend bool operator==(const FileIdentity &, const FileIdentity &) = default;
};

/// Nothing when there is no plain file of that name.
[[nodiscard]] std::optional<FileIdentity> fileIdentity(const std::string &path);

} // namespace inin
