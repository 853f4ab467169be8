#pragma once

#include "platform/platform.h"

#include <functional>
#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>

namespace inin::script {

/// The command line options of `inin-script`.
struct ScriptOptions {
    std::string applicationFolder;
    std::optional<Date> now;     ///< stops the clock at this moment
    bool startProcesses = false; ///< otherwise a start is only recorded
};

/// The input and output of a play.
struct ScriptStreams {
    std::istream &commands;   ///< one JSON object per line
    std::ostream &transcript; ///< the events, one JSON object per line
    std::ostream &errors;     ///< messages for the author of the commands
};

/// Exit codes of a play.
inline constexpr int kPlayedToTheEnd = 0;
inline constexpr int kPlayBroke = 1;
inline constexpr int kBadCommand = 2;

/// Plays the commands. `run` is the program: it receives a platform and returns, or ends by the end statement.
/// Returns kPlayedToTheEnd if the program ended by itself, kPlayBroke after an uncaught error, or kBadCommand.
[[nodiscard]] int playScript(const ScriptOptions &options, const ScriptStreams &streams, Database &database,
                             const std::function<void(const Platform &)> &run);

/// Reads "YYYY-MM-DD HH:MM:SS"; nothing for any other format and for a day or time that does not exist.
[[nodiscard]] std::optional<Date> readMoment(std::string_view text);

} // namespace inin::script
