#include "viewer/app/ledger_report.h"
#include "viewer/ledger/ledger_world.h"
#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <variant>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

Row rowOf(const std::string &patient, const std::string &account = "(普) 1234567")
{
    Row row = ordinaryRow();
    row["対象開始日"] = "2026/11/01";
    row["対象終了日"] = "2026/11/30";
    row["保険者名"] = "高松市";
    row["利用者氏名"] = patient;
    row["口座番号"] = account;
    return row;
}

/// A ledger with one printed run of letter files, and a script of others.
struct ReportWorld : LedgerWorld {
    std::string script = writePrintJob(folder, kForm, {rowOf("山田"), rowOf("鈴木")});
    Ledger ledger = open();
    RunId run = printScript();

    RunId printScript()
    {
        const LetterSet set = openScript(script);
        return print(ledger, {markOf(set), textsOf(set)});
    }
    LedgerReport report(LedgerQuestion question, const std::string &of = "")
    {
        return reportOf(ledger, {question, of, std::nullopt, false});
    }
    nlohmann::json json(LedgerQuestion question, const std::string &of = "")
    {
        return nlohmann::json::parse(reportOf(ledger, {question, of, std::nullopt, true}).text);
    }
};

} // namespace

TEST_CASE("the status lists each run with its states")
{
    ReportWorld world;
    CHECK(world.ledger.setReturned(printedLetter(world.run, 1), true, kPrintDay));
    const LedgerReport report = world.report(LedgerQuestion::status);
    CHECK(report.exitCode == 0);
    CHECK(contains(report.text,
                   "2026-11-20 10:32:05　委任状37_01.wfd　2026-11　2通：未印刷 0、送信済み 0、紙で確認済み "
                   "1、返送済み 1\n"));
    const nlohmann::json json = world.json(LedgerQuestion::status, world.script);
    CHECK(json["ledger"] == world.ledger.number());
    REQUIRE(json["runs"].size() == 1);
    CHECK(json["runs"][0]["states"] ==
          nlohmann::json({{"unprinted", 0}, {"sent", 0}, {"onPaper", 1}, {"returned", 1}}));
    world.script = writePrintJob(world.folder, kForm, {rowOf("別人")});
    CHECK(world.json(LedgerQuestion::status, world.script)["runs"].empty());
}

TEST_CASE("the differences from the last print have the fields with both texts, and an exit code")
{
    ReportWorld world;
    const LedgerReport same = world.report(LedgerQuestion::diff, world.script);
    CHECK(same.text == "2026-11-20 10:32:05 の2通と同じ内容です。\n");
    CHECK(same.exitCode == 0);

    world.script = writePrintJob(world.folder, kForm, {rowOf("佐藤"), rowOf("山田", "(当) 9")});
    const LedgerReport changed = world.report(LedgerQuestion::diff, world.script);
    CHECK(changed.text == "前回（2026-11-20 10:32:05）から：新しい 1通、変わった 1通、なくなった 1通\n"
                          "新しい　1番　高松市　佐藤\n"
                          "変わった　2番　高松市　山田\n"
                          "　　口座番号：「(普) 1234567」→「(当) 9」\n"
                          "なくなった　2番　高松市　鈴木\n");
    CHECK(changed.exitCode == kLettersFound);
    const nlohmann::json json = world.json(LedgerQuestion::diff, world.script);
    CHECK(json["changed"][0]["fields"][0] ==
          nlohmann::json({{"column", "口座番号"}, {"before", "(普) 1234567"}, {"now", "(当) 9"}}));
    CHECK(json["added"][0]["patient"] == "佐藤");
    CHECK(json["gone"][0]["number"] == 2);

    REQUIRE(world.ledger.erase());
    const LedgerReport none = world.report(LedgerQuestion::diff, world.script);
    CHECK(none.text == "比べられる印刷の記録がありません。\n");
    CHECK(none.exitCode == 0);
}

TEST_CASE("the missing letters of the latest period are listed with their codes")
{
    ReportWorld world;
    const std::string code = codeText(world.ledger.codeOf(world.run, 1).value());
    CHECK(world.ledger.setReturned(printedLetter(world.run, 0), true, kPrintDay));
    const LedgerReport report = world.report(LedgerQuestion::missing);
    CHECK(contains(report.text, "2026-11：印刷した 2通のうち 1通が戻っていません。\n"));
    CHECK(contains(report.text, "　鈴木　2026-11-20 10:32:05　" + code + "\n"));
    CHECK(report.exitCode == kLettersFound);
    CHECK(world.json(LedgerQuestion::missing)["missing"][0]["code"] == code);
    CHECK(reportOf(world.ledger, {LedgerQuestion::missing, "", kDecember, false}).exitCode == 0);
    CHECK(world.ledger.setReturned(printedLetter(world.run, 1), true, kPrintDay));
    CHECK(world.report(LedgerQuestion::missing).exitCode == 0);
}

TEST_CASE("the export contains every letter with its texts, and doubles quotes")
{
    ReportWorld world;
    world.script = writePrintJob(world.folder, kForm, {rowOf("\"佐藤\"")});
    world.printScript();
    const std::string csv = world.report(LedgerQuestion::exportAll).text;
    CHECK(csv.starts_with(
        "\xEF\xBB\xBF\"整理番号\",\"帳票\",\"期間\",\"番号\",\"状態\",\"記録\",\"印刷\",\"返送\",\"対象開始日\""));
    CHECK(std::ranges::count(csv, '\n') == 4);
    CHECK(contains(csv, "\"\"\"佐藤\"\"\""));
    CHECK(contains(csv, "\"" + codeText(world.ledger.codeOf(world.run, 0).value()) +
                            "\",\"委任状37_01.wfd\",\"2026-11\",\"1\",\"紙で確認済み\""));
    const nlohmann::json json = world.json(LedgerQuestion::exportAll);
    CHECK(json["runs"][1]["content"][1]["texts"]["利用者氏名"] == "鈴木");
    CHECK(json["runs"][1]["content"][1]["state"] == "onPaper");
}

TEST_CASE("no text of the exported table is a formula for a spreadsheet, and the JSON has the texts as they are")
{
    ReportWorld world;
    for (const char *sign : {"=", "+", "-", "@", "\t", "＝", "＋", "－", "＠"}) {
        CAPTURE(sign);
        const std::string formula = sign + std::string("HYPERLINK(1)");
        world.script = writePrintJob(world.folder, kForm, {rowOf(formula)});
        world.printScript();
        const std::string csv = world.report(LedgerQuestion::exportAll).text;
        CHECK(contains(csv, ",\"'" + formula + "\","));
        CHECK_FALSE(contains(csv, "\"" + formula));
        CHECK(world.json(LedgerQuestion::exportAll)["runs"][0]["content"][0]["texts"]["利用者氏名"] == formula);
    }
}

TEST_CASE("a ledger that cannot be read has its own exit code")
{
    Ledger off;
    CHECK(reportOf(off, {LedgerQuestion::status, "", std::nullopt, false}).exitCode == kLedgerUnreadable);
}

TEST_CASE("the options of the ledger are read")
{
    const auto parsed = [](const std::vector<std::string> &words) { return readViewerCommand(words); };
    const ViewerCommand missing =
        parsed({"formviewer", "--ledger", "missing", "--period", "2026-10..2026-11", "--json"});
    REQUIRE(std::holds_alternative<LedgerCommand>(missing));
    CHECK(std::get<LedgerCommand>(missing).question == LedgerQuestion::missing);
    CHECK(std::get<LedgerCommand>(missing).months == MonthRange{kNovember.first - 1, kNovember.last});
    CHECK(std::get<LedgerCommand>(missing).json);
    const ViewerCommand difference = parsed({"formviewer", "--ledger", "diff", "s.dat"});
    REQUIRE(std::holds_alternative<LedgerCommand>(difference));
    CHECK(std::get<LedgerCommand>(difference).script == "s.dat");
    const std::vector<std::vector<std::string>> refused = {
        {"formviewer", "--ledger", "diff"},
        {"formviewer", "--ledger", "all"},
        {"formviewer", "--ledger", "missing", "--period", "2026-13"},
        {"formviewer", "--ledger", "missing", "--period", "2026-11..2026-10"},
    };
    for (const std::vector<std::string> &words : refused) CHECK(std::holds_alternative<BadCommandLine>(parsed(words)));
}
