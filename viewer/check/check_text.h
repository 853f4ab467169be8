#pragma once

#include "viewer/check/letter_check.h"
#include "viewer/document/letter_names.h"

#include <string>
#include <vector>

namespace inin::viewer {

/// What a check found in some letters, with what is told about the whole of them.
struct CheckReport {
    std::size_t letters = 0; ///< how many were judged
    std::vector<std::string> notices;
    std::vector<Finding> findings; ///< by cause and letter
};

/// How many letters have a finding.
[[nodiscard]] std::size_t lettersIn(const std::vector<Finding> &findings);
/// For people, in Japanese.
[[nodiscard]] std::string checkText(const CheckReport &report, const LetterNames &names);
/// For programs: one JSON object.
[[nodiscard]] std::string checkJson(const CheckReport &report, const LetterNames &names);

} // namespace inin::viewer
