#pragma once

#include "viewer/document/letter_set.h"

#include <string>
#include <vector>

namespace inin::viewer {

/// Sentences, once a run, about a form together with its letters: a page that is not as large as the script's paper, and
/// blank dates that are printed as blanks to be filled in by hand.
[[nodiscard]] std::vector<std::string> noticesAboutForm(const LetterSet &set, const LetterReport &report);

} // namespace inin::viewer
