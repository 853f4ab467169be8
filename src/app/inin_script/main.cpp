#include "adapters/common/program_edges.h"
#include "adapters/script/script_player.h"
#include "app/data_source.h"
#include "app/suite_database/suite_database.h"
#include "runtime/file_path.h"
#include "shell/start.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <filesystem>
#include <iostream>

namespace inin {

namespace {

constexpr int kBadCommandLine = 2;

/// What is wrong with the folder of a command line, empty when it is there.
std::string existingFolder(const std::string &folder)
{
    std::error_code error;
    return std::filesystem::is_directory(pathOf(folder), error) ? std::string() : "Directory does not exist: " + folder;
}

int play(const ScriptOptions &options)
{
    const auto database = makeSuiteDatabase(dataSourceIn(options.applicationFolder));
    return playScript(options, {std::cin, std::cout, std::cerr}, *database, [](const Platform &platform) {
        App app(platform);
        Main(app);
    });
}

/// Errors on standard error go through std::cerr, which does not throw when nothing takes them.
int run(int argc, char **argv)
{
    CLI::App line{"Plays the conditions screen from commands, one JSON object a line, without a window.",
                  "inin-script"};
    std::string folder;
    std::string now;
    ScriptOptions options;
    line.add_option("--app", folder, "application folder")->required()->check(existingFolder);
    line.add_option("--now", now, "moment at which the clock stands still, \"YYYY-MM-DD HH:MM:SS\"");
    line.add_flag("--start", options.startProcesses, "really start processes instead of only telling them");
    try {
        std::vector<std::string> arguments = programArguments(argc, argv);
        std::ranges::reverse(arguments); // the reader takes them from the back
        line.parse(std::move(arguments));
    } catch (const CLI::ParseError &error) {
        return line.exit(error) == 0 ? 0 : kBadCommandLine;
    }
    if (!now.empty() && !(options.now = readMoment(now))) {
        std::cerr << "--now: \"" << now << "\" is no moment of the form YYYY-MM-DD HH:MM:SS\n";
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
        inin::kPlayBroke, [&] { return inin::run(argc, argv); },
        [](const std::string &message) { inin::printLine(stderr, message); });
}
