#include "demo_site/database_maker.h"
#include "demo_site/scratch_site.h"

#include <doctest/doctest.h>
#include <fmt/format.h>

using namespace inin;
using namespace inin::test;

namespace {

constexpr const char *kTables[] = {"RIYOUSHA",   "HOKENJA",    "SCHEDULE",     "JISSEKI",      "RIYOUSHA_SUB",
                                   "CORP",       "STAFF",      "KYOTEN",       "HOKEN",        "SHINSEISYO",
                                   "療養費単価", "往療費区分", "RIYOUSHA_MAP", "SOUDAN_TANTOU"};

/// Every value of every row, in the order in which the rows were written.
std::string dump(const std::filesystem::path &database)
{
    std::string text;
    for (const char *table : kTables) {
        std::string values;
        for (const std::string &column :
             query(database, fmt::format("SELECT name FROM pragma_table_info('{}')", table))) {
            values += fmt::format("{}quote({})", values.empty() ? "" : "||','||", column);
        }
        text += fmt::format("-- {}\n", table);
        for (const std::string &row : query(database, fmt::format("SELECT {} FROM {} ORDER BY rowid", values, table))) {
            text += row + "\n";
        }
    }
    return text;
}

std::string dumpOf(const site::SiteOrder &order)
{
    const TempFolder folder;
    const auto file = folder.folder() / "any.db";
    site::makeDatabase(file.string(), order);
    return dump(file);
}

} // namespace

TEST_CASE("the same seed produces the same bytes of every row")
{
    CHECK(dumpOf(ordinaryOrder()) == dump(sharedDatabase()));
}

TEST_CASE("another seed produces other persons")
{
    site::SiteOrder order = ordinaryOrder();
    order.seed = 2;
    const TempFolder folder;
    const auto file = folder.folder() / "any.db";
    site::makeDatabase(file.string(), order);

    const auto ours = query(sharedDatabase(), "SELECT cNameKana FROM RIYOUSHA ORDER BY nIDNo");
    const auto others = query(file, "SELECT cNameKana FROM RIYOUSHA ORDER BY nIDNo");

    REQUIRE(ours.size() == others.size());
    std::size_t same = 0;
    for (std::size_t i = 0; i < ours.size(); ++i) same += ours[i] == others[i] ? 1U : 0U;
    CHECK(same < 10);
}

TEST_CASE("another month moves the visits and keeps the names")
{
    site::SiteOrder order = ordinaryOrder();
    order.month = std::chrono::year{2023} / 12;
    const TempFolder folder;
    const auto file = folder.folder() / "any.db";
    site::makeDatabase(file.string(), order);

    CHECK(query(file, "SELECT cName FROM RIYOUSHA") == query(sharedDatabase(), "SELECT cName FROM RIYOUSHA"));
    CHECK(query(file, "SELECT DISTINCT nDate / 100 FROM SCHEDULE WHERE nDate IS NOT NULL ORDER BY 1") ==
          std::vector<std::string>{"202311", "202312", "202401"});
}

TEST_CASE("a site has the requested number of patients")
{
    site::SiteOrder order = ordinaryOrder();
    order.patients = 7;
    const TempFolder folder;
    const auto file = folder.folder() / "any.db";
    site::makeDatabase(file.string(), order);

    CHECK(countOf(file, "SELECT COUNT(*) FROM RIYOUSHA WHERE iKyotenCd = 1 AND iKyotenEb = 1") == 7);
}

TEST_CASE("planned visits are in the previous, the given and the next month")
{
    CHECK(query(sharedDatabase(), "SELECT DISTINCT nDate / 100 FROM SCHEDULE WHERE nDate IS NOT NULL ORDER BY 1") ==
          std::vector<std::string>{"202404", "202405", "202406"});
}

TEST_CASE("actual visits are in the previous, the given and the next month")
{
    CHECK(query(sharedDatabase(), "SELECT DISTINCT substr(tServicyDayStart, 1, 7) FROM JISSEKI"
                                  " WHERE tServicyDayStart IS NOT NULL ORDER BY 1") ==
          std::vector<std::string>{"2024-04", "2024-05", "2024-06"});
}

TEST_CASE("every planned visit has a valid date")
{
    CHECK(countOf(sharedDatabase(),
                  "SELECT COUNT(*) FROM SCHEDULE WHERE nDate IS NOT NULL AND date(substr(nDate, 1, 4) || '-' ||"
                  " substr(nDate, 5, 2) || '-' || substr(nDate, 7, 2)) IS NULL") == 0);
}

TEST_CASE("date columns contain ISO text with a time")
{
    const std::vector<std::string> columns =
        query(sharedDatabase(), "SELECT m.name || '.' || c.name FROM sqlite_master m, pragma_table_info(m.name) c"
                                " WHERE m.type = 'table' AND c.type = 'DATETIME' ORDER BY 1");
    REQUIRE(columns.size() > 50);
    for (const std::string &column : columns) {
        CAPTURE(column);
        const std::string table = column.substr(0, column.find('.'));
        const std::string name = column.substr(column.find('.') + 1);
        CHECK(countOf(sharedDatabase(), fmt::format("SELECT COUNT(*) FROM {0} WHERE {1} IS NOT NULL AND"
                                                    " ifnull(strftime('%Y-%m-%d %H:%M:%S', {1}), '') <> {1}",
                                                    table, name)) == 0);
    }
}

TEST_CASE("the tables are in the order in which the program names them")
{
    CHECK(query(sharedDatabase(), "SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY rowid") ==
          std::vector<std::string>(std::begin(kTables), std::end(kTables)));
}

TEST_CASE("visits, companies and consultations have the indexes that their queries use")
{
    CHECK(query(sharedDatabase(),
                "SELECT name FROM sqlite_master WHERE type = 'index' AND sql IS NOT NULL ORDER BY name") ==
          std::vector<std::string>{"CORP_TYPE", "JISSEKI_DAY", "JISSEKI_PATIENT", "SCHEDULE_DAY", "SCHEDULE_PATIENT",
                                   "SOUDAN_TANTOU_STAFF"});
}

TEST_CASE("the database passes its integrity check")
{
    CHECK(query(sharedDatabase(), "PRAGMA integrity_check") == std::vector<std::string>{"ok"});
}

TEST_CASE("a site has the requested number of staff, followed by the blank row")
{
    const TempFolder folder;
    const auto file = folder.folder() / "any.db";
    for (const std::int64_t staff : {1, 500}) {
        site::SiteOrder order = ordinaryOrder();
        order.staff = staff;
        std::filesystem::remove(file);
        site::makeDatabase(file.string(), order);
        CAPTURE(staff);
        CHECK(countOf(file, "SELECT COUNT(*) FROM STAFF WHERE iKyotenEb = 1") == staff + 1);
        CHECK(countOf(file, fmt::format("SELECT COUNT(*) FROM RIYOUSHA WHERE nTantou > {}", staff)) == 0);
    }
}
