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

/// The scenario that scripts/run plays.
struct PrintMonth : SitePlay {
    PrintMonth() : SitePlay("print-month.jsonl", "2024-05-20 10:00:00") {}
};

} // namespace

TEST_CASE("the scenario of a month's print ends by itself, without a box and without a refused command")
{
    const PrintMonth play;
    CHECK(play.result() == kPlayedToTheEnd);
    CHECK(play.errors().empty());
    CHECK_FALSE(play.reports("\"event\":\"box\""));
    CHECK_FALSE(play.reports("\"event\":\"refused\""));
}

TEST_CASE("the scenario of a month's print passes its letters to the form tool and returns to the menu")
{
    const PrintMonth play;
    CHECK(play.reports("\"command\":\"wfrfv10.exe /c "));
    CHECK(play.reports("Main.exe 2\""));
}

TEST_CASE("the scenario of a month's print writes a letter for each patient with a visit and an insurer")
{
    const PrintMonth play;
    const std::string csv = play.csv();
    // A patient has two letters if the last day was planned twice, and none after the end of the treatment.
    const std::int64_t due = countOf(
        play.at("demo.db"),
        "SELECT COUNT(*) FROM SCHEDULE s JOIN (SELECT nIDRiyoushaNo AS id, max(nDate) AS last FROM SCHEDULE WHERE nDate"
        " BETWEEN 20240501 AND 20240531 GROUP BY nIDRiyoushaNo) v ON s.nIDRiyoushaNo = v.id AND s.nDate = v.last"
        " WHERE EXISTS (SELECT 1 FROM RIYOUSHA p, HOKENJA h WHERE p.nIDNo = v.id AND h.cIDno = p.cHokenNo"
        " AND p.tExpireDay IS NULL)");
    REQUIRE(due == 273);
    CHECK(std::ranges::count(csv, '\n') == 1 + 273);
}

TEST_CASE("the scenario of a month's print fills both lists at the start and stores its options at the end")
{
    const PrintMonth play;
    CHECK(play.linesWith("\"event\":\"sql\"").size() == 4); // company, staff, insurance kinds, letters
    CHECK(decodeCp932(bytesOf(play.at("DATA") / pathOf("印刷設定.ini"))) ==
          "[委任状]\r\n対象期間=1\r\n対象データ=1\r\n表示期間=1\r\n受任者=1\r\n帳票種類=0\r\n署名日=0\r\n");
}
