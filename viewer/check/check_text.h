#pragma once

#include "viewer/check/letter_check.h"
#include "viewer/document/letter_names.h"

#include <string>
#include <vector>

namespace inin::viewer {

/// The findings of a check in some letters, and the notices about all of them.
struct CheckReport {
    std::size_t letters = 0; ///< number of letters checked
    std::vector<std::string> notices;
    std::vector<Finding> findings; ///< by cause and letter
};

/// The number of letters with a finding.
[[nodiscard]] std::size_t lettersIn(const std::vector<Finding> &findings);
/// For the user, in Japanese.
[[nodiscard]] std::string checkText(const CheckReport &report, const LetterNames &names);
/// For programs: one JSON object.
[[nodiscard]] std::string checkJson(const CheckReport &report, const LetterNames &names);

} // namespace inin::viewer
