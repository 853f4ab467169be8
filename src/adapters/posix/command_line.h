#pragma once

#include <optional>
#include <string>
#include <vector>

namespace inin {

struct Command {
    std::string program; ///< a path of the system
    std::vector<std::string> arguments;
};

/// A program by its name, with or without ".exe" whatever the name says, in any case: in its own folder when it names
/// one, else in the current folder and then in PATH.
[[nodiscard]] std::optional<std::string> findProgram(const std::string &name);

/// The program and arguments of a command line. A name that is not quoted may hold blanks: each beginning up to a blank
/// is tried, the shortest first. Nothing when no such program is there.
[[nodiscard]] std::optional<Command> parseCommandLine(const std::string &commandLine);

} // namespace inin
