#pragma once

#include <string>

namespace inin::viewer {

/// Shows the letters of a script, or prints them as the script demands, until the window is closed. `letters` selects
/// letters for output, such as "1-3,7"; an empty text selects all. Returns the exit code.
[[nodiscard]] int runWindow(std::string programName, const std::string &scriptPath, const std::string &letters);

} // namespace inin::viewer
