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
    CHECK(checkText({2, {}, {{Cause::noHolder, 1, ""}}}, names) == "2通を点検しました。1通に注意があります。\n"
                                                                   "\n"
                                                                   "■ 口座名義が入っていません（1通）\n"
                                                                   "   → 会社情報に口座名義を登録してください。\n"
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
    CHECK(json["causes"][0]["remedy"] == "会社情報に口座名義を登録してください。");
    CHECK(json["causes"][0]["findings"][0]["letter"] == 2);
    CHECK(json["causes"][0]["findings"][0]["insurer"] == "丸亀市");
    CHECK(json["causes"][0]["findings"][0]["patient"] == "乙川　二");
    CHECK(json["causes"][1]["findings"][0]["detail"] == "利用者氏名：?");
}

TEST_CASE("the command-line check prints the findings and exits with 1")
{
    const TempFolder folder;
    const std::string script = writePrintJob(folder, kForm, twoLettersOneWithoutHolder());
    const Outcome outcome = runViewer(folder, "--check '" + script + "'");
    CHECK(outcome.code == 1);
    CHECK(contains(outcome.output, "■ 口座名義が入っていません（1通）"));
}

TEST_CASE("the command-line check as JSON checks all letters and reports the requested ones")
{
    const TempFolder folder;
    std::vector<Row> rows = twoLettersOneWithoutHolder();
    rows.push_back(rows[1]);
    const std::string script = writePrintJob(folder, kForm, rows);
    const Outcome outcome = runViewer(folder, "--check --json --letters 2 '" + script + "'");
    REQUIRE(outcome.code == 1);
    const auto json = nlohmann::json::parse(outcome.output);
    CHECK(json["letters"] == 1);
    REQUIRE(json["causes"].size() == 2);
    CHECK(json["causes"][1]["cause"] == "sameLetter");
    CHECK(json["causes"][1]["findings"].size() == 1);
    CHECK(json["causes"][1]["findings"][0]["detail"] == "2-3番");
}
