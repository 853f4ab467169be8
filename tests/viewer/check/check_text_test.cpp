#include "viewer/check/check_text.h"
#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>
#include <nlohmann/json.hpp>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

std::vector<Row> twoLettersOneWithoutHolder()
{
    std::vector<Row> rows(2, ordinaryRow());
    rows[0]["保険者名"] = "高松市";
    rows[0]["利用者氏名"] = "甲山　一";
    rows[1]["保険者名"] = "丸亀市";
    rows[1]["利用者氏名"] = "乙川　二";
    rows[1]["口座名義"] = "";
    return rows;
}

} // namespace

TEST_CASE("the check reports the cause, the remedy and the letters")
{
    const LetterSet set = lettersOn(svgPage(""), twoLettersOneWithoutHolder());
    const LetterNames names(set);
    CHECK(checkText({2, {}, {{Cause::noHolder, 1, ""}}}, names) ==
          "2通を点検しました。1通に注意があります。\n"
          "\n"
          "■ 口座名義が入っていません（1通）\n"
          "   → 本社情報か代理人情報に口座名義を登録してください。\n"
          "   2番　丸亀市　乙川　二\n");
}

TEST_CASE("the check reports that it found nothing")
{
    const LetterSet set = lettersOn(svgPage(""), twoLettersOneWithoutHolder());
    CHECK(checkText({2, {"お知らせ"}, {}}, LetterNames(set)) ==
          "お知らせ\n2通を点検しました。注意が必要な委任状はありません。\n");
}

TEST_CASE("the check as JSON counts letters from 1 and uses the causes' names")
{
    const LetterSet set = lettersOn(svgPage(""), twoLettersOneWithoutHolder());
    const auto json = nlohmann::json::parse(checkJson(
        {2, {"お知らせ"}, {{Cause::noHolder, 1, ""}, {Cause::lostCharacter, 1, "利用者氏名：?"}}}, LetterNames(set)));
    CHECK(json["letters"] == 2);
    CHECK(json["lettersWithFindings"] == 1);
    CHECK(json["notices"] == nlohmann::json::array({"お知らせ"}));
    REQUIRE(json["causes"].size() == 2);
    CHECK(json["causes"][0]["cause"] == "noHolder");
    CHECK(json["causes"][0]["heading"] == "口座名義が入っていません");
    CHECK(json["causes"][0]["remedy"] == "本社情報か代理人情報に口座名義を登録してください。");
    CHECK(json["causes"][0]["findings"][0]["letter"] == 2);
    CHECK(json["causes"][0]["findings"][0]["insurer"] == "丸亀市");
    CHECK(json["causes"][0]["findings"][0]["patient"] == "乙川　二");
    CHECK(json["causes"][1]["findings"][0]["detail"] == "利用者氏名：?");
}

TEST_CASE("the command-line check prints the findings and exits with 1")
{
    const TempFolder folder;
    const std::string script = writePrintJob(folder, kForm, twoLettersOneWithoutHolder());
    const Outcome outcome = runViewer(folder, "--check --today 2024-05-20 '" + script + "'");
    CHECK(outcome.code == 1);
    CHECK(contains(outcome.output, "■ 口座名義が入っていません（1通）"));
}

TEST_CASE("the command-line check as JSON checks all letters and reports the requested ones")
{
    const TempFolder folder;
    std::vector<Row> rows = twoLettersOneWithoutHolder();
    rows.push_back(rows[1]);
    const std::string script = writePrintJob(folder, kForm, rows);
    const Outcome outcome = runViewer(folder, "--check --json --today 2024-05-20 --letters 2 '" + script + "'");
    REQUIRE(outcome.code == 1);
    const auto json = nlohmann::json::parse(outcome.output);
    CHECK(json["letters"] == 1);
    REQUIRE(json["causes"].size() == 2);
    CHECK(json["causes"][1]["cause"] == "sameLetter");
    CHECK(json["causes"][1]["findings"].size() == 1);
    CHECK(json["causes"][1]["findings"][0]["detail"] == "2-3番");
}

TEST_CASE("the check reports a note for the run apart from the findings, and the checks that were left out")
{
    const LetterSet set = lettersOn(svgPage(""), twoLettersOneWithoutHolder());
    const LetterNames names(set);
    CheckReport report{2, {}, {}, {{Cause::signatureOutside, 9, 10, "署名日 2024/06/01"}}, {}};
    report.switchedOff.set(static_cast<std::size_t>(Cause::shrunk));
    CHECK(checkText(report, names) == "2通を点検しました。注意が必要な委任状はありません。\n"
                                      "行わない点検：縮小\n"
                                      "\n"
                                      "■ 全体の注意：署名日が委任期間の外です（10通のうち9通）\n"
                                      "   → 条件の画面の署名日か委任期間を入力し直してください。\n"
                                      "   署名日 2024/06/01\n");
    const auto json = nlohmann::json::parse(checkJson(report, names));
    CHECK(json["lettersWithFindings"] == 0);
    CHECK(json["causes"].empty());
    REQUIRE(json["runNotes"].size() == 1);
    CHECK(json["runNotes"][0]["cause"] == "signatureOutside");
    CHECK(json["runNotes"][0]["letters"] == 9);
    CHECK(json["runNotes"][0]["of"] == 10);
    CHECK(json["switchedOff"] == nlohmann::json::array({"shrunk"}));
}

TEST_CASE("the command-line check leaves out the named causes")
{
    const TempFolder folder;
    std::vector<Row> rows = twoLettersOneWithoutHolder();
    rows[0]["署名日"] = "2024/06/01";
    const std::string script = writePrintJob(folder, kForm, rows);
    const auto causes = [&](const std::string &options) {
        const Outcome outcome = runViewer(folder, "--check --json --today 2024-05-20 " + options + " '" + script + "'");
        const auto json = nlohmann::json::parse(outcome.output);
        std::vector<std::string> names;
        for (const auto &cause : json["causes"]) names.push_back(cause["cause"]);
        return names;
    };
    CHECK(causes("") == std::vector<std::string>{"noHolder", "signatureOutside"});
    CHECK(causes("--without-check noHolder") == std::vector<std::string>{"signatureOutside"});
    CHECK(causes("--without-check=noHolder,signatureOutside").empty());
}
