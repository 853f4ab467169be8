#pragma once

#include <optional>
#include <string>
#include <vector>

namespace inin {

struct Command {
    std::string program; ///< a path of the system
    std::vector<std::string> arguments;
};

/// A program by its name, with or without ".exe" whichever the name has, in any case: in its own folder when it names
/// one, else in the current folder, which is the application's, and then in PATH.
[[nodiscard]] std::optional<std::string> findProgram(const std::string &name);

/// A program of the system by its exact name: in the absolute folders of PATH only.
[[nodiscard]] std::optional<std::string> findSystemProgram(const std::string &name);

/// The program and arguments of a command line. A name that is not quoted may hold blanks: each beginning up to a blank
/// is tried, the shortest first, but none that ends within the path of the current folder. What precedes and follows
/// " /c " are paths without quotes, each a single argument with all its blanks. Nothing when there is no such program.
[[nodiscard]] std::optional<Command> parseCommandLine(const std::string &commandLine);

} // namespace inin
