#include "app/inin_site/options.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <vector>

using namespace inin::site;

namespace {

Command read(std::vector<const char *> arguments, const std::string &connection = {},
             inin::HelpLanguage language = inin::HelpLanguage::japanese)
{
    arguments.insert(arguments.begin(), "inin-site");
    return readCommandLine(static_cast<int>(arguments.size()), arguments.data(), connection, language);
}

std::string sentenceOf(const Command &command)
{
    const auto *bad = std::get_if<BadCommand>(&command);
    return bad == nullptr ? "" : bad->sentence;
}

constexpr const char *kBadPatients = "--patients には1から1000000までの人数を指定してください。";
constexpr const char *kBadStaff = "--staff には1から30000までの人数を指定してください。";
constexpr const char *kBadSeed = "--seed には0以上の整数を指定してください。";
constexpr const char *kBadMonth = "--month には1990-01から2098-12までの年月をYYYY-MMの形で指定してください。";

struct BadOption {
    const char *option;
    const char *value;
    const char *sentence;
};
constexpr BadOption kBadOptions[] = {
    {"--patients", "0", kBadPatients},
    {"--patients", "1000001", kBadPatients},
    {"--patients", "many", kBadPatients},
    {"--patients", "3.5", kBadPatients},
    {"--staff", "0", kBadStaff},
    {"--staff", "-1", kBadStaff},
    {"--staff", "30001", kBadStaff},
    {"--staff", "x", kBadStaff},
    {"--seed", "x", kBadSeed},
    {"--seed", "1 ", kBadSeed},
    {"--month", "2024-13", kBadMonth},
    {"--month", "2024-00", kBadMonth},
    {"--month", "2024-5", kBadMonth},
    {"--month", "2024/05", kBadMonth},
    {"--month", "1989-12", kBadMonth},
    {"--month", "2099-01", kBadMonth},
    {"--month", "20x4-05", kBadMonth},
};

} // namespace

TEST_CASE("make uses 300 patients and seed 1 by default")
{
    const auto command = std::get<MakeCommand>(read({"make", "here"}));
    CHECK(command.folder == "here");
    CHECK(command.order.patients == 300);
    CHECK(command.order.seed == 1);
    CHECK(command.overwrite == Overwrite::onlyOwnFolder);
}

TEST_CASE("make accepts patients, seed, month and force")
{
    const auto command = std::get<MakeCommand>(read(
        {"make", "here", "--patients", "30000", "--seed", "18446744073709551615", "--month", "2024-12", "--force"}));
    CHECK(command.order.patients == 30000);
    CHECK(command.order.seed == 18446744073709551615U);
    CHECK(yearMonthText(command.order.month) == "2024-12");
    CHECK(command.overwrite == Overwrite::anyFolder);
}

TEST_CASE("make accepts a number of staff, and derives it from the number of patients otherwise")
{
    CHECK(std::get<MakeCommand>(read({"make", "here"})).order.staff == 0);
    CHECK(std::get<MakeCommand>(read({"make", "here", "--staff", "5000"})).order.staff == 5000);
}

TEST_CASE("check accepts a folder")
{
    CHECK(std::get<CheckCommand>(read({"check", "there"})).folder == "there");
}

TEST_CASE("check prints lines by default, and accepts JSON and a bundle for support")
{
    CHECK(std::get<CheckCommand>(read({"check", "there"})).form == OutputForm::lines);
    CHECK(std::get<CheckCommand>(read({"check", "there"})).bundle.empty());
    const auto command = std::get<CheckCommand>(read({"check", "there", "--json", "--bundle", "site.zip"}));
    CHECK(command.form == OutputForm::json);
    CHECK(command.bundle == "site.zip");
    CHECK(sentenceOf(read({"check", "there", "--bundle", ""})) == "--bundle には zip の名前を指定してください。");
}

TEST_CASE("why asks for the planned visits of a month and the head office by default")
{
    const auto command = std::get<WhyCommand>(read({"why", "there", "--month", "2024-05"}));
    CHECK(command.folder == "there");
    CHECK(command.conditions.visits == inin::due::Visits::planned);
    CHECK(command.conditions.year == 2024);
    CHECK(command.conditions.month == 5);
    CHECK_FALSE(command.conditions.lastDay);
    CHECK(command.conditions.trustee == inin::due::Trustee::headOffice);
    CHECK(command.conditions.staff == 0);
    CHECK(std::get<WhyCommand>(read({"why", "there"})).conditions.year > 2000);
}

TEST_CASE("why accepts every condition of the screen")
{
    const auto command =
        std::get<WhyCommand>(read({"why", "there", "--last-day", "2024-05-31", "--visits", "actual", "--agent",
                                   "--patient", "5", "--staff", "8", "--insurance", "2", "--ended", "--json"}));
    CHECK(command.conditions.visits == inin::due::Visits::actual);
    CHECK(command.conditions.lastDay == 31);
    CHECK(command.conditions.month == 5);
    CHECK(command.conditions.trustee == inin::due::Trustee::agent);
    CHECK(command.conditions.patient == 5);
    CHECK(command.conditions.staff == 8);
    CHECK(command.conditions.insuranceKind == 2);
    CHECK(command.conditions.includesEnded);
    CHECK(command.form == OutputForm::json);
}

TEST_CASE("without visits the last day has no effect, as on the screen")
{
    const auto command = std::get<WhyCommand>(read({"why", "there", "--visits", "none", "--last-day", "2024-05-31"}));
    CHECK(command.conditions.visits == inin::due::Visits::ignored);
    CHECK_FALSE(command.conditions.lastDay);
}

TEST_CASE("each condition of why with an invalid value has its own message")
{
    const char *const badDay = "--last-day には1990-01-01から2098-12-31までの日付をYYYY-MM-DDの形で指定してください。";
    const BadOption options[] = {
        {"--month", "2024-13", kBadMonth},
        {"--last-day", "2024-02-30", badDay},
        {"--last-day", "2024-05", badDay},
        {"--last-day", "2024-05-1x", badDay},
        {"--visits", "all", "--visits には planned、actual、none のどれかを指定してください。"},
        {"--patient", "0", "--patient には1以上の番号を指定してください。"},
        {"--staff", "x", "--staff には1以上の番号を指定してください。"},
        {"--insurance", "-1", "--insurance には1以上の番号を指定してください。"},
    };
    for (const BadOption &bad : options) {
        CAPTURE(bad.option);
        CAPTURE(bad.value);
        CHECK(sentenceOf(read({"why", "here", bad.option, bad.value})) == bad.sentence);
    }
    CHECK(sentenceOf(read({"why", "here", "--month", "2024-05", "--last-day", "2024-05-31"})) ==
          "--month と --last-day は、どちらか一つを指定してください。");
}

TEST_CASE("make takes its connection from the command line, a file or the environment, in this order")
{
    CHECK(std::get<MakeCommand>(read({"make", "here", "--into", "DSN=a"}, "DSN=b")).into == "DSN=a");
    const auto file = std::get<MakeCommand>(read({"make", "--connection-file", "secret.txt"}, "DSN=b"));
    CHECK(file.connectionFile == "secret.txt");
    CHECK(file.into.empty());
    CHECK(std::get<MakeCommand>(read({"make"}, "DSN=b")).into == "DSN=b");
    CHECK(std::get<MakeCommand>(read({"make", "here"}, "DSN=b")).into == "DSN=b");
    CHECK(sentenceOf(read({"make", "--into", "DSN=a", "--connection-file", "secret.txt"})) ==
          "--into と --connection-file は、どちらか一つを指定してください。");
    CHECK(sentenceOf(read({"make", "--connection-file", ""})) == "--connection-file にはファイルを指定してください。");
}

TEST_CASE("each option with an invalid value has its own message")
{
    for (const BadOption &bad : kBadOptions) {
        CAPTURE(bad.option);
        CAPTURE(bad.value);
        CHECK(sentenceOf(read({"make", "here", bad.option, bad.value})) == bad.sentence);
    }
}

TEST_CASE("an invalid command line is refused with a sentence")
{
    for (const std::vector<const char *> &line : {std::vector<const char *>{},
                                                  {"make"},
                                                  {"check"},
                                                  {"paint", "here"},
                                                  {"make", "here", "--colour"},
                                                  {"make", "here", "there"}}) {
        CHECK(sentenceOf(read(line)).starts_with("コマンドラインが正しくありません。"));
    }
}

TEST_CASE("make accepts a server's database with or without a folder")
{
    const auto both = std::get<MakeCommand>(read({"make", "here", "--into", "DSN=massage;PWD=x"}));
    CHECK(both.folder == "here");
    CHECK(both.into == "DSN=massage;PWD=x");
    const auto rowsOnly = std::get<MakeCommand>(read({"make", "--into", "DSN=massage", "--patients", "20"}));
    CHECK(rowsOnly.folder.empty());
    CHECK(rowsOnly.order.patients == 20);
    CHECK(std::get<MakeCommand>(read({"make", "here"})).into.empty());
}

TEST_CASE("an empty connection string is refused")
{
    CHECK(sentenceOf(read({"make", "--into", ""})) == "--into には接続文字列を指定してください。");
    CHECK(sentenceOf(read({"make", "", "--into", "DSN=massage"})) == "フォルダーを指定してください。");
}

TEST_CASE("forms keeps existing form documents without --replace")
{
    CHECK(std::get<FormsCommand>(read({"forms", "here"})).existing == Existing::keep);
    CHECK(std::get<FormsCommand>(read({"forms", "here", "--replace"})).existing == Existing::replace);
    CHECK(std::get<ToolsCommand>(read({"tools", "here"})).folder == "here");
    CHECK(sentenceOf(read({"forms", ""})) == "フォルダーを指定してください。");
    CHECK(sentenceOf(read({"tools", ""})) == "フォルダーを指定してください。");
}

TEST_CASE("an empty folder name is refused")
{
    CHECK(sentenceOf(read({"make", ""})) == "フォルダーを指定してください。");
}

TEST_CASE("the help pages have no English word of the parser in Japanese, and no Japanese one in English")
{
    const auto helpOf = [](inin::HelpLanguage language, std::vector<const char *> line) {
        return std::get<HelpCommand>(read(std::move(line), {}, language)).text;
    };
    for (const std::vector<const char *> &line : {std::vector<const char *>{"--help"},
                                                  {"make", "--help"},
                                                  {"check", "--help"},
                                                  {"why", "--help"},
                                                  {"forms", "--help"},
                                                  {"tools", "--help"}}) {
        const std::string japanese = helpOf(inin::HelpLanguage::japanese, line),
                          english = helpOf(inin::HelpLanguage::english, line);
        for (const char *word : {"Usage", "Options", "OPTIONS", "Positionals", "REQUIRED", "Subcommand", "TEXT"})
            CHECK(japanese.find(word) == std::string::npos);
        CHECK(japanese.find("使い方") != std::string::npos);
        CHECK(
            std::ranges::all_of(english, [](char character) { return static_cast<unsigned char>(character) < 0x80; }));
    }
}

TEST_CASE("a request for help is not an invalid command")
{
    CHECK(std::holds_alternative<HelpCommand>(read({"--help"})));
    CHECK(std::holds_alternative<HelpCommand>(read({"make", "--help"})));
}
