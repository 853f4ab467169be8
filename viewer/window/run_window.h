#pragma once

#include <string>

namespace inin::viewer {

/// Shows the letters of a script, or prints them as the script asks, until the window is closed. `letters` is what goes
/// out, as "1-3,7"; empty is all. The exit code.
[[nodiscard]] int runWindow(std::string programName, const std::string &scriptPath, const std::string &letters);

} // namespace inin::viewer
