#pragma once

#include "platform/platform.h"

#include <functional>
#include <iosfwd>
#include <optional>
#include <string>

namespace inin {

/// What `inin-script` was told on its command line.
struct ScriptOptions {
    std::string applicationFolder;
    std::optional<Date> now;     ///< the clock stands still there
    bool startProcesses = false; ///< else a start is only told
};

/// Plays the screen from `commands`, one JSON object a line, and writes what happens to `transcript`, one a line.
/// `run` is the program: it is given a platform and comes back, or ends by the end statement.
/// Exit code: 0 ended by its own end statement, 1 a run-time error ended it, 2 a bad command.
[[nodiscard]] int playScript(const ScriptOptions &options, std::istream &commands, std::ostream &transcript,
                             Database &database, const std::function<void(const Platform &)> &run);

} // namespace inin
