#pragma once

#include "platform/profile.h"
#include "suite_text/profile_vectors.h"

#include <filesystem>
#include <optional>
#include <string>

namespace inin {

/// False for a case with a byte outside the code page in a name, which cannot be expressed in UTF-8.
[[nodiscard]] bool canBeAskedFor(const ProfileCase &one);

/// The bytes of a file; nothing if it does not exist.
[[nodiscard]] std::optional<std::string> bytesAt(const std::filesystem::path &file);

/// Makes the calls of a case on a file, which the profile finds at `path` and the test at `file`. Returns the
/// differences from the recording; empty if there are none.
[[nodiscard]] std::string differences(const ProfileCase &one, Profile &profile, const std::string &path,
                                      const std::filesystem::path &file);

} // namespace inin
