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

} // namespace inin
