#pragma once

#include "platform/platform.h"

#include <functional>
#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>

namespace inin::script {

/// What `inin-script` was told on its command line.
struct ScriptOptions {
    std::string applicationFolder;
    std::optional<Date> now;     ///< the clock stands still there
    bool startProcesses = false; ///< else a start is only told
};

/// Where a play comes from and goes to.
struct ScriptStreams {
    std::istream &commands;   ///< one JSON object a line
    std::ostream &transcript; ///< what happens, one JSON object a line
    std::ostream &errors;     ///< words for the person who wrote the commands
};

/// Exit codes of a play.
inline constexpr int kPlayedToTheEnd = 0;
inline constexpr int kPlayBroke = 1;
inline constexpr int kBadCommand = 2;

/// Plays the screen. `run` is the program: it is given a platform and comes back, or ends by the end statement.
/// kPlayedToTheEnd: it ended by itself; kPlayBroke: a run-time error ended it, or a fault of ours; kBadCommand.
[[nodiscard]] int playScript(const ScriptOptions &options, const ScriptStreams &streams, Database &database,
                             const std::function<void(const Platform &)> &run);

/// Reads "YYYY-MM-DD HH:MM:SS"; nothing for any other form and for a day or time that does not exist.
[[nodiscard]] std::optional<Date> readMoment(std::string_view text);

} // namespace inin::script
