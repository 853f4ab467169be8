#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace inin {

/// Tells a file from another that took its name. On Windows an open database can be neither replaced nor deleted, so
/// there the file's being there is all.
struct FileIdentity {
    std::uint64_t device = 0;
    std::uint64_t number = 0;
    friend bool operator==(const FileIdentity &, const FileIdentity &) = default;
};

/// Nothing when there is no plain file of that name.
[[nodiscard]] std::optional<FileIdentity> fileIdentity(const std::string &path);

} // namespace inin
