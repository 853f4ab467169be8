#pragma once

#include "platform/profile.h"
#include "suite_text/profile_vectors.h"

#include <filesystem>
#include <optional>
#include <string>

namespace inin {

/// False for a case with a byte beyond the code page in a name: it cannot be asked for in UTF-8.
[[nodiscard]] bool canBeAskedFor(const ProfileCase &one);

/// The bytes of a file; nothing when there is none.
[[nodiscard]] std::optional<std::string> bytesAt(const std::filesystem::path &file);

/// Plays the calls of a case on the file that the profile finds at `path` and that stands at `file`, and gives the
/// differences to the recording; empty for none.
[[nodiscard]] std::string differences(const ProfileCase &one, Profile &profile, const std::string &path,
                                      const std::filesystem::path &file);

} // namespace inin
