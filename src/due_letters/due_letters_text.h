#pragma once

#include "due_letters/due_letters.h"

#include <span>
#include <string>
#include <vector>

namespace inin::due {

/// The answers in Japanese, one line each: patients with several letters, then patients without a letter.
[[nodiscard]] std::vector<std::string> linesOf(const std::vector<Answer> &answers, const Conditions &conditions);
/// Every answer as a JSON object. The names of the obstacles and repetitions never change.
[[nodiscard]] std::string jsonOf(const std::vector<Answer> &answers);

} // namespace inin::due
