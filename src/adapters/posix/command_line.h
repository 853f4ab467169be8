#pragma once

#include <optional>
#include <string>
#include <vector>

namespace inin::posix {

struct Command {
    std::string program; ///< a path of the system
    std::vector<std::string> arguments;
};

/// Finds a program by its name in any case, adding or dropping ".exe" if necessary: in the folder that the name
/// contains, else in the current folder (the application's) and then in PATH.
[[nodiscard]] std::optional<std::string> findProgram(const std::string &name);

/// Finds a program of the system by its exact name, in the absolute folders of PATH only.
[[nodiscard]] std::optional<std::string> findSystemProgram(const std::string &name);

/// The program and arguments of a command line; nothing if no such program exists. An unquoted name may contain blanks:
/// each prefix that ends at a blank is tried, the shortest first, except prefixes that end within the path of the
/// current folder. The texts before and after " /c " are unquoted paths, each a single argument with all its blanks.
[[nodiscard]] std::optional<Command> parseCommandLine(const std::string &commandLine);

} // namespace inin::posix
