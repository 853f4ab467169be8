#include "adapters/script/script_player.h"
#include "adapters/suite/data_source.h"
#include "adapters/suite/suite_database.h"
#include "shell/start.h"
#include "system/file_path.h"
#include "system/program_edges.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <filesystem>
#include <iostream>

namespace inin {

namespace {

constexpr int kBadCommandLine = 2;

/// The problem with the folder on a command line; empty if the folder exists.
std::string existingFolder(const std::string &folder)
{
    std::error_code error;
    return std::filesystem::is_directory(pathOf(folder), error) ? std::string() : "Directory does not exist: " + folder;
}

int play(const script::ScriptOptions &options)
{
    const auto database = makeSuiteDatabase(dataSourceIn(options.applicationFolder));
    return script::playScript(options, {std::cin, std::cout, std::cerr}, *database, [](const Platform &platform) {
        App app(platform);
        Main(app);
    });
}

/// Prints errors with std::cerr, which does not throw if standard error is closed.
int run(int argc, char **argv)
{
    CLI::App line{"Plays the conditions screen from commands, one JSON object a line, without a window.",
                  "inin-script"};
    std::string folder;
    std::string now;
    script::ScriptOptions options;
    line.add_option("--app", folder, "application folder")->required()->check(existingFolder);
    line.add_option("--now", now, "moment at which the clock is stopped, \"YYYY-MM-DD HH:MM:SS\"");
    line.add_flag("--start", options.startProcesses, "start processes instead of only recording them");
    try {
        std::vector<std::string> arguments = programArguments(argc, argv);
        std::ranges::reverse(arguments); // the parser reads them from the back
        line.parse(std::move(arguments));
    } catch (const CLI::ParseError &error) {
        return line.exit(error) == 0 ? 0 : kBadCommandLine;
    }
    if (!now.empty() && !(options.now = script::readMoment(now))) {
        std::cerr << "--now: \"" << now << "\" is not of the form YYYY-MM-DD HH:MM:SS\n";
        return kBadCommandLine;
    }
    options.applicationFolder = textOf(std::filesystem::canonical(pathOf(folder)));
    return play(options);
}

} // namespace

} // namespace inin

int main(int argc, char **argv)
{
    inin::prepareStandardStreams();
    return inin::runProgram(
        inin::script::kPlayBroke, [&] { return inin::run(argc, argv); },
        [](const std::string &message) { inin::printLine(stderr, message); });
}
