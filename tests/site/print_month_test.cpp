#include "adapters/script/script_player.h"
#include "adapters/sqlite/sqlite_database.h"
#include "shell/start.h"
#include "site/scratch_site.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <sstream>

using namespace inin;
using namespace inin::test;

namespace {

/// The scenario that every checkout is tried with, played on a demo site of May 2024.
struct PrintMonth {
    ScratchFolder folder;
    std::filesystem::path folderBefore = std::filesystem::current_path(); ///< the program makes the site's current
    std::ostringstream transcript;
    std::ostringstream errors;
    int result = 0;

    PrintMonth()
    {
        site::makeSite(folder.path(), ordinaryOrder(), site::Overwrite::onlyOwnFolder);
        const std::filesystem::path site = folder.path();
        const auto database = makeSqliteDatabase([site](const std::string &path) { return (site / path).string(); });
        std::istringstream commands(bytesOf(std::string(ININ_SITE) + "/scenarios/print-month.jsonl"));
        ScriptOptions options;
        options.applicationFolder = site.string();
        options.now = readMoment("2024-05-20 10:00:00");
        result = playScript(options, {commands, transcript, errors}, *database, [](const Platform &platform) {
            App app(platform);
            Main(app);
        });
    }
    ~PrintMonth() { std::filesystem::current_path(folderBefore); }
    PrintMonth(const PrintMonth &) = delete;
    PrintMonth &operator=(const PrintMonth &) = delete;
    [[nodiscard]] bool tells(const std::string &text) const { return transcript.str().find(text) != std::string::npos; }
    [[nodiscard]] std::string csv() const { return bytesOf(folder.path() / "TMP" / "委任状.csv"); }
};

} // namespace

TEST_CASE("the scenario of a month's print ends by itself, without a box and without a refusal")
{
    const PrintMonth play;
    CHECK(play.result == kPlayedToTheEnd);
    CHECK(play.errors.str().empty());
    CHECK_FALSE(play.tells("\"event\":\"box\""));
    CHECK_FALSE(play.tells("\"event\":\"refused\""));
}

TEST_CASE("the scenario of a month's print hands its letters to the form tool and goes back to the menu")
{
    const PrintMonth play;
    CHECK(play.tells("\"command\":\"wfrfv10.exe /c "));
    CHECK(play.tells("Main.exe 2\""));
}

TEST_CASE("the scenario of a month's print writes a letter for each patient with a visit and an insurer")
{
    const PrintMonth play;
    const std::string csv = play.csv();
    // A patient stands twice when the last day was planned twice, and not at all when the treatment has ended.
    const std::int64_t due = countOf(
        play.folder.path() / "demo.db",
        "SELECT COUNT(*) FROM SCHEDULE s JOIN (SELECT nIDRiyoushaNo AS id, max(nDate) AS last FROM SCHEDULE WHERE nDate"
        " BETWEEN 20240501 AND 20240531 GROUP BY nIDRiyoushaNo) v ON s.nIDRiyoushaNo = v.id AND s.nDate = v.last"
        " WHERE EXISTS (SELECT 1 FROM RIYOUSHA p, HOKENJA h WHERE p.nIDNo = v.id AND h.cIDno = p.cHokenNo"
        " AND p.tExpireDay IS NULL)");
    REQUIRE(due == 273);
    CHECK(std::ranges::count(csv, '\n') == 1 + 273);
}
