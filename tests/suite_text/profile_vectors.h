#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace inin {

/// One recorded call of the platform; texts are bytes in code page 932.
struct ProfileStep {
    enum class Call { number, text, write } call{};
    std::optional<std::string> section, key, value;
    std::int32_t returned = 0;
    std::size_t size = 256;
    std::string result;
    bool givesFile = false; ///< the recording contains the file after a write
    std::optional<std::string> fileAfter;
};

struct ProfileCase {
    std::string id, group, name, path;
    std::optional<std::string> file; ///< the bytes before the call; nothing: no file
    std::vector<ProfileStep> steps;
};

[[nodiscard]] std::vector<ProfileCase> recordedProfileCases();

/// True for a case that depends only on the bytes of the file, not on its permissions, its path or other programs.
[[nodiscard]] bool isAboutTheBytes(const ProfileCase &one);
/// The result of a call, as text to compare and to show.
[[nodiscard]] std::string recordedResult(const ProfileStep &step);

// Special cases, where at least one implementation differs from the platform.

/// The platform repairs a broken double byte in another line; the byte rules keep all other bytes.
inline constexpr const char *kMendedCase = "p0365";
inline constexpr const char *kMissingFolderCase = "p0370";
/// Another program has the file open and permits reading only; a program on a POSIX system cannot forbid writing.
inline constexpr const char *kHeldOpenCase = "p0376";
/// A name without a folder; a POSIX system has no folder for it, so the write is refused.
inline constexpr const char *kBareNameCase = "q013";

} // namespace inin
