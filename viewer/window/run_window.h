#pragma once

#include "viewer/document/letter_set.h"

#include <functional>
#include <string>

namespace inin::viewer {

/// Shows letters, or prints them as their script demands, until the window is closed. `path` is their script or form, and
/// `open` opens them; its RuntimeErrors are shown. `letters` selects letters for output, such as "1-3,7"; an empty text
/// selects all. Returns the exit code.
[[nodiscard]] int runWindow(std::string programName, const std::string &path, const std::function<LetterSet()> &open,
                            const std::string &letters);

} // namespace inin::viewer
