#include "adapters/script/script_player.h"
#include "adapters/suite/data_source.h"
#include "adapters/suite/suite_database.h"
#include "command_line/command_help.h"
#include "shell/start.h"
#include "system/file_path.h"
#include "system/program_edges.h"

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
    if (std::filesystem::is_directory(pathOf(folder), error)) return {};
    return HelpText{"フォルダーがありません：", "no such folder: "}.in(helpLanguage()) + folder;
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
    const HelpLanguage language = helpLanguage();
    CLI::App line{HelpText{"条件の画面を、一行に一つの JSON で書いた命令で、画面を出さずに操作します。",
                           "Plays the conditions screen from commands, one JSON object a line, without a window."}
                      .in(language),
                  "inin-script"};
    setHelpLanguage(line, language);
    std::string folder;
    std::string now;
    script::ScriptOptions options;
    line.add_option("--app", folder, HelpText{"アプリケーションのフォルダー。", "Application folder."}.in(language))
        ->option_text(HelpText{"フォルダー", "FOLDER"}.in(language))
        ->required()
        ->check(existingFolder);
    line.add_option("--now", now,
                    HelpText{"現在とみなす日時 \"YYYY-MM-DD HH:MM:SS\"。",
                             "Moment at which the clock is stopped, \"YYYY-MM-DD HH:MM:SS\"."}
                        .in(language))
        ->option_text(HelpText{"日時", "MOMENT"}.in(language));
    line.add_flag(
        "--start", options.startProcesses,
        HelpText{"プログラムを記録するだけでなく、起動します。", "Starts programs instead of only recording them."}.in(
            language));
    try {
        std::vector<std::string> arguments = programArguments(argc, argv);
        std::ranges::reverse(arguments); // the parser reads them from the back
        line.parse(std::move(arguments));
    } catch (const CLI::Success &request) {
        std::cout << requestedText(line, request) << '\n';
        return 0;
    } catch (const CLI::ParseError &error) {
        std::cerr << refusedCommandLine("inin-script", error.what(), language) << '\n';
        return kBadCommandLine;
    }
    if (!now.empty() && !(options.now = script::readMoment(now))) {
        std::cerr << HelpText{"--now には日時を YYYY-MM-DD HH:MM:SS の形で指定してください：",
                              "--now is not of the form YYYY-MM-DD HH:MM:SS: "}
                         .in(language)
                  << now << '\n';
        return kBadCommandLine;
    }
    options.applicationFolder = fullPath(folder);
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
