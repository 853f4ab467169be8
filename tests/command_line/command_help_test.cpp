#include "command_line/command_help.h"
#include "system/program_version.h"

#include <doctest/doctest.h>

using namespace inin;

namespace {

std::string helpOf(HelpLanguage language)
{
    CLI::App app(HelpText{"委任状を数えます。", "Counts letters."}.in(language), "count");
    setHelpLanguage(app, language);
    std::string file, limit = "10";
    bool isQuiet = false;
    app.add_option("file", file, "CSV")->required()->option_text(HelpText{"ファイル", "FILE"}.in(language));
    app.add_option("--limit", limit, "上限")->capture_default_str();
    app.add_flag("--quiet-and-without-any-line", isQuiet, "静か");
    app.add_subcommand("again", "もう一度");
    return app.help();
}

} // namespace

TEST_CASE("the Japanese help page has no English word of the parser, and its columns are aligned")
{
    // Versions of the parser end the page with one or two line breaks.
    const std::string page = helpOf(HelpLanguage::japanese);
    CHECK(page.substr(0, page.find_last_not_of('\n') + 1) == "委任状を数えます。\n"
                                                             "使い方: count [オプション] ファイル [コマンド]\n"
                                                             "\n引数:\n"
                                                             "  ファイル                CSV（必須）\n"
                                                             "\nオプション:\n"
                                                             "  -h,--help               この説明を表示します。\n"
                                                             "  --version               バージョンを表示します。\n"
                                                             "  --limit 値              上限（既定：10）\n"
                                                             "  --quiet-and-without-any-line\n"
                                                             "                          静か\n"
                                                             "\nコマンド:\n"
                                                             "  again                   もう一度");
}

TEST_CASE("the English help page is in English throughout")
{
    CHECK(helpOf(HelpLanguage::english)
              .starts_with("Counts letters.\n"
                           "Usage: count [OPTIONS] FILE [COMMAND]\n"
                           "\nArguments:\n"
                           "  FILE                    CSV (required)\n"
                           "\nOptions:\n"
                           "  -h,--help               Shows this help.\n"));
}

TEST_CASE("--version asks for the program's name and version, and --help for the help page")
{
    CLI::App app("委任状を数えます。", "count");
    setHelpLanguage(app, HelpLanguage::japanese);
    const auto asked = [&app](const char *option) -> std::string {
        try {
            app.parse(std::vector<std::string>{option});
        } catch (const CLI::Success &request) {
            return requestedText(app, request);
        }
        return "nothing";
    };
    CHECK(asked("--version") == "count " + std::string(programVersion()));
    CHECK(asked("--help") == app.help());
}

TEST_CASE("an English locale selects English, and the first locale that names a language decides")
{
    CHECK(languageOf({"", "", "en_US.UTF-8"}) == HelpLanguage::english);
    CHECK(languageOf({"", "", "en"}) == HelpLanguage::english);
    CHECK(languageOf({"C.UTF-8", "", "en_GB.UTF-8"}) == HelpLanguage::english);
    CHECK(languageOf({"POSIX", "", "en.UTF-8"}) == HelpLanguage::english);
    CHECK(languageOf({"ja_JP.UTF-8", "", "en_US.UTF-8"}) == HelpLanguage::japanese);
    CHECK(languageOf({"", "en_US", "ja_JP"}) == HelpLanguage::english);
    CHECK(languageOf({"", "", "C"}) == HelpLanguage::japanese);
    CHECK(languageOf({"", "", "enx"}) == HelpLanguage::japanese);
    CHECK(languageOf({}) == HelpLanguage::japanese);
}

TEST_CASE("a refused command line names the program's help and the parser's words")
{
    CHECK(refusedCommandLine("count", "--x", HelpLanguage::japanese) ==
          "コマンドラインが正しくありません。使い方は count --help で見られます。（--x）");
    CHECK(refusedCommandLine("count", "--x", HelpLanguage::english) == "Invalid command line. See count --help. (--x)");
}
