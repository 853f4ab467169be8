#include "adapters/script/script_player.h"
#include "demo_site/site_play.h"
#include "suite_text/code_page_932.h"
#include "system/file_path.h"

#include <doctest/doctest.h>

#include <algorithm>

using namespace inin;
using namespace inin::script;
using namespace inin::test;

namespace {

/// A staff member's letters of the month's last day, by agent, printed twice.
struct PrintStaffDay : SitePlay {
    PrintStaffDay() : SitePlay("print-staff-day.jsonl", "2024-05-31 10:00:00") {}
};

constexpr const char *kLettersOfStaff8 =
    "AND JISSEKI.nStaffIDNo = 8 AND RIYOUSHA.iHoken = 5 ORDER BY JISSEKI.nStaffIDNo\"}";

} // namespace

TEST_CASE("the scenario of a staff member's day ends by itself, without a box and without a refused command")
{
    const PrintStaffDay play;
    CHECK(play.result() == kPlayedToTheEnd);
    CHECK(play.errors().empty());
    CHECK_FALSE(play.reports("\"event\":\"box\""));
    CHECK_FALSE(play.reports("\"event\":\"refused\""));
    CHECK(play.reports("Main.exe 2\""));
}

TEST_CASE("the scenario of a staff member's day queries that member and the index of the insurance kind, twice alike")
{
    const PrintStaffDay play;
    const std::vector<std::string> asked = play.linesWith(kLettersOfStaff8);
    REQUIRE(asked.size() == 2);
    CHECK(asked[0].substr(asked[0].find("\"text\"")) == asked[1].substr(asked[1].find("\"text\"")));
    CHECK(asked[0].find("CORP.nIDNo = RIYOUSHA.nDairiID") != std::string::npos);
    CHECK(asked[0].find("JISSEKI.tServicyDayStart >= '2024/05/31'") != std::string::npos);
    const std::vector<std::string> started = play.linesWith("\"command\":\"wfrfv10.exe /c ");
    REQUIRE(started.size() == 2);
    CHECK(started[0] == started[1]);
}

TEST_CASE(
    "the scenario of a staff member's day writes a letter for each visit that was the patient's last of the month")
{
    const PrintStaffDay play;
    const std::int64_t due = countOf(
        play.at("demo.db"),
        "SELECT COUNT(*) FROM JISSEKI j JOIN RIYOUSHA p ON p.nIDNo = j.nRiyoushaIDNo AND p.iKyotenEb = j.iKyotenEb"
        " JOIN HOKENJA h ON h.cIDno = p.cHokenNo WHERE j.iKyotenCd = 1 AND j.iKyotenEb = 1 AND j.nStaffIDNo = 8"
        " AND p.iHoken = 5 AND date(j.tServicyDayStart) = '2024-05-31'");
    REQUIRE(due == 10);
    CHECK(std::ranges::count(play.csv(), '\n') == 1 + 10);
    CHECK(play.reports("\"iRowCount\":10"));
    CHECK(play.reports("\"nStaffNo\":8"));
}

TEST_CASE("the scenario of a staff member's day stores its options")
{
    const PrintStaffDay play;
    CHECK(decodeCp932(bytesOf(play.at("DATA") / pathOf("印刷設定.ini"))) ==
          "[委任状]\r\n対象期間=2\r\n対象データ=2\r\n表示期間=1\r\n受任者=2\r\n帳票種類=0\r\n署名日=0\r\n");
}
