#include "adapters/posix/command_line.h"

#include "adapters/native/native_platform.h"
#include "system/file_path.h"
#include "system/posix_io.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>

#include <sys/stat.h>
#include <unistd.h>

namespace inin::posix {

namespace {

constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kExtension = ".exe";
/// The form tool's option, followed by the path of the command script.
constexpr std::string_view kScriptOption = "/c";
constexpr std::string_view kScriptOptionInLine = " /c ";

bool isProgram(const std::string &systemPath)
{
    struct stat status {};
    return stat(systemPath.c_str(), &status) == 0 && S_ISREG(status.st_mode) && access(systemPath.c_str(), X_OK) == 0;
}

/// The name as given, then with or without the extension: both spellings occur among a site's tools.
std::vector<std::string> spellings(const std::string &name)
{
    if (foldedName(name).ends_with(kExtension)) return {name, name.substr(0, name.size() - kExtension.size())};
    return {name, name + std::string(kExtension)};
}

/// The absolute folders of PATH, each with a trailing slash. A relative one would depend on the current folder.
std::vector<std::string> systemFolders()
{
    std::vector<std::string> folders;
    const char *path = std::getenv("PATH");
    for (std::string_view rest = path ? path : ""; !rest.empty();) {
        const std::string_view folder = rest.substr(0, rest.find(':'));
        if (folder.starts_with('/')) folders.push_back(std::string(folder) + "/");
        rest.remove_prefix(std::min(folder.size() + 1, rest.size()));
    }
    return folders;
}

/// The folders that are searched for a name without a folder.
std::vector<std::string> searchFolders(const std::string &current)
{
    std::vector<std::string> folders = systemFolders();
    folders.insert(folders.begin(), current + "/");
    return folders;
}

/// The length of the current folder's path with its separator if the line starts with it, else 0.
std::size_t currentFolderSize(std::string_view line)
{
    std::error_code error;
    const std::string folder = (std::filesystem::current_path(error) / "").string();
    return !error && withSlashes(std::string(line.substr(0, folder.size()))) == folder ? folder.size() : 0;
}

/// A path argument gets the system's separators; other arguments keep their backslashes.
std::string passedOn(const std::string &argument)
{
    constexpr std::string_view beginnings[] = {"/", "./", "../", ".\\", "..\\"};
    const bool path = std::ranges::any_of(beginnings, [&](auto beginning) { return argument.starts_with(beginning); });
    return path ? withSlashes(argument) : argument;
}

/// Splits at blanks outside double quotes and removes the quotes.
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

void appendPath(std::vector<std::string> &arguments, std::string_view text)
{
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
    text = text.substr(0, text.find_last_not_of(kBlanks) + 1);
    if (text.size() > 1 && text.front() == '"' && text.back() == '"') text = text.substr(1, text.size() - 2);
    if (!text.empty()) arguments.push_back(passedOn(std::string(text)));
}

std::vector<std::string> argumentsOf(std::string_view text)
{
    const std::size_t option = text.find(kScriptOptionInLine);
    if (option == std::string_view::npos) return splitArguments(text);
    std::vector<std::string> arguments;
    appendPath(arguments, text.substr(0, option));
    arguments.emplace_back(kScriptOption);
    appendPath(arguments, text.substr(option + kScriptOptionInLine.size()));
    return arguments;
}

std::optional<Command> quotedCommand(std::string_view line)
{
    const auto end = std::min(line.find('"', 1), line.size());
    const auto program = findProgram(std::string(line.substr(1, end - 1)));
    if (!program) return std::nullopt;
    return Command{*program, argumentsOf(line.substr(std::min(end + 1, line.size())))};
}

std::optional<std::string> programIn(const std::vector<std::string> &folders, const std::string &name)
{
    for (const std::string &folder : folders)
        for (const std::string &spelling : spellings(name))
            if (const std::string path = systemPath(folder + spelling); isProgram(path)) return path;
    return std::nullopt;
}

} // namespace

std::optional<std::string> findProgram(const std::string &name)
{
    if (name.empty()) return std::nullopt;
    const bool withFolder = name.find_first_of("\\/") != std::string::npos;
    return programIn(withFolder ? std::vector<std::string>{""} : searchFolders("."), name);
}

std::optional<std::string> findSystemProgram(const std::string &name)
{
    for (const std::string &folder : systemFolders())
        if (isProgram(folder + name)) return folder + name;
    return std::nullopt;
}

std::optional<Command> parseCommandLine(const std::string &commandLine)
{
    std::string_view line = commandLine;
    line.remove_prefix(std::min(line.find_first_not_of(kBlanks), line.size()));
    if (line.starts_with('"')) return quotedCommand(line);
    for (std::size_t at = currentFolderSize(line); at < line.size();) {
        at = std::min(line.find_first_of(kBlanks, at), line.size());
        if (const auto program = findProgram(std::string(line.substr(0, at))))
            return Command{*program, argumentsOf(line.substr(at))};
        at = std::min(line.find_first_not_of(kBlanks, at), line.size());
    }
    return std::nullopt;
}

} // namespace inin::posix

bool inin::canStart(const std::string &folder, const std::string &name)
{
    return posix::programIn(posix::searchFolders(folder), name).has_value();
}
