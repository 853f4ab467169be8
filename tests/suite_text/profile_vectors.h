#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace inin {

/// One recorded call of the platform; texts are bytes of code page 932.
struct ProfileStep {
    enum class Call { number, text, write } call{};
    std::optional<std::string> section, key, value;
    std::int32_t returned = 0;
    std::size_t size = 256;
    std::string result;
    bool tellsFile = false; ///< a write tells the file behind it
    std::optional<std::string> fileAfter;
};

struct ProfileCase {
    std::string id, group, name, path;
    std::optional<std::string> file; ///< the bytes before; none: no file
    std::vector<ProfileStep> steps;
};

[[nodiscard]] std::vector<ProfileCase> recordedProfileCases();

/// True for a case that the bytes of the file decide, without its rights, its path or other programs.
[[nodiscard]] bool isAboutTheBytes(const ProfileCase &one);
/// What a call gave, as a text to compare and to show.
[[nodiscard]] std::string recordedResult(const ProfileStep &step);

// Cases that stand for themselves, or that not every body of the calls decides as the platform did.

/// The platform mends a broken double byte in another line; the rules on the bytes keep every other byte.
inline constexpr const char *kMendedCase = "p0365";
inline constexpr const char *kMissingFolderCase = "p0370";
/// Another program has the file open and lets others read only; no program of a POSIX system can forbid them to write.
inline constexpr const char *kHeldOpenCase = "p0376";
/// A name without a folder; a POSIX system has no folder of its own for it, so the write is refused.
inline constexpr const char *kBareNameCase = "q013";

} // namespace inin
