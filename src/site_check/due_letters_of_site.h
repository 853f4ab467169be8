#pragma once

#include "due_letters/due_letters.h"

#include <filesystem>
#include <vector>

namespace inin::site {

/// The answers for the branch and the database of a site. A RuntimeError with a sentence if its settings are missing or
/// wrong, or if the database cannot be read.
[[nodiscard]] std::vector<due::Answer> dueLettersOfSite(const std::filesystem::path &folder,
                                                        const due::Conditions &conditions);

} // namespace inin::site
