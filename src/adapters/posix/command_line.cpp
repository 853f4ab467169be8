#include "adapters/posix/command_line.h"

#include "adapters/posix/posix_io.h"
#include "adapters/system/system_platform.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>
#include <utility>

#include <sys/stat.h>
#include <unistd.h>

namespace inin {

namespace {

constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kExtension = ".exe";

bool isProgram(const std::string &systemPath)
{
    struct stat status {};
    return stat(systemPath.c_str(), &status) == 0 && S_ISREG(status.st_mode) && access(systemPath.c_str(), X_OK) == 0;
}

/// The name as it is given, then with the extension or without it: a site's tools may bear either.
std::vector<std::string> spellings(const std::string &name)
{
    if (foldedName(name).ends_with(kExtension)) return {name, name.substr(0, name.size() - kExtension.size())};
    return {name, name + std::string(kExtension)};
}

/// The folders that are searched, each with its slash: the current one, then those of PATH.
std::vector<std::string> searchFolders()
{
    std::vector<std::string> folders = {"./"};
    const char *path = std::getenv("PATH");
    for (std::string_view rest = path ? path : ""; !rest.empty();) {
        const std::string_view folder = rest.substr(0, rest.find(':'));
        if (!folder.empty()) folders.push_back(std::string(folder) + "/");
        rest.remove_prefix(std::min(folder.size() + 1, rest.size()));
    }
    return folders;
}

/// An argument that names a path gets the system's separators; any other keeps its backslashes.
std::string passedOn(const std::string &argument)
{
    constexpr std::string_view beginnings[] = {"/", "./", "../", ".\\", "..\\"};
    const bool path = std::ranges::any_of(beginnings, [&](auto beginning) { return argument.starts_with(beginning); });
    return path ? withSlashes(argument) : argument;
}

/// Split at blanks outside of double quotes; the quotes go.
std::vector<std::string> splitArguments(std::string_view text)
{
    std::vector<std::string> arguments;
    std::string argument;
    bool started = false, quoted = false;
    for (const char c : text) {
        const bool separates = !quoted && kBlanks.find(c) != std::string_view::npos;
        if (separates && started) arguments.push_back(passedOn(std::exchange(argument, {})));
        started = !separates;
        if (c == '"')
            quoted = !quoted;
        else if (!separates)
            argument += c;
    }
    if (started) arguments.push_back(passedOn(argument));
    return arguments;
}

std::optional<Command> quotedCommand(std::string_view line)
{
    const auto end = std::min(line.find('"', 1), line.size());
    const auto program = findProgram(std::string(line.substr(1, end - 1)));
    if (!program) return std::nullopt;
    return Command{*program, splitArguments(line.substr(std::min(end + 1, line.size())))};
}

} // namespace

std::optional<std::string> findProgram(const std::string &name)
{
    if (name.empty()) return std::nullopt;
    const bool withFolder = name.find_first_of("\\/") != std::string::npos;
    for (const std::string &folder : withFolder ? std::vector<std::string>{""} : searchFolders())
        for (const std::string &spelling : spellings(name))
            if (const std::string path = systemPath(folder + spelling); isProgram(path)) return path;
    return std::nullopt;
}

std::optional<Command> parseCommandLine(const std::string &commandLine)
{
    std::string_view line = commandLine;
    line.remove_prefix(std::min(line.find_first_not_of(kBlanks), line.size()));
    if (line.starts_with('"')) return quotedCommand(line);
    for (std::size_t at = 0; at < line.size();) {
        at = std::min(line.find_first_of(kBlanks, at), line.size());
        if (const auto program = findProgram(std::string(line.substr(0, at))))
            return Command{*program, splitArguments(line.substr(at))};
        at = std::min(line.find_first_not_of(kBlanks, at), line.size());
    }
    return std::nullopt;
}

} // namespace inin
