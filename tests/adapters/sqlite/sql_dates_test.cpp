#include "adapters/sqlite/database_file.h"
#include "adapters/sqlite/sql_translator.h"

#include <doctest/doctest.h>

#include <string>
#include <vector>

using namespace inin;
using namespace inin::sqlite;

namespace {

using Texts = std::vector<std::string>;

/// One point in time in each format of a date column, and its neighbours.
constexpr const char *kMoments = "CREATE TABLE V (n INTEGER, t DATETIME, c TEXT);"
                                 "INSERT INTO V VALUES (1, '2024-04-30 23:59:59', '2024/04/30'),"
                                 "(2, '2024-05-01', '2024/05/01'),"
                                 "(3, '2024-05-01 00:00:00', '2024/05/01'),"
                                 "(4, '2024-05-01 00:00:00.000', '20240501'),"
                                 "(5, '2024-05-01 00:00:01', '2024-05-01'),"
                                 "(6, '2024-05-01 09:30:15', ''),"
                                 "(7, '2024-05-02', ''),"
                                 "(8, NULL, NULL)";

struct DateRow {
    const char *condition;
    Texts numbers;
};

} // namespace

TEST_CASE("a date column compares by time, whatever the format of its values")
{
    const DatabaseFile file(kMoments);
    Session session(file);
    const DateRow rows[] = {
        {"t >= '2024/5/1'", {"2", "3", "4", "5", "6", "7"}},
        {"t > '2024/05/01'", {"5", "6", "7"}},
        {"t <= '2024-05-01'", {"1", "2", "3", "4"}},
        {"t < '20240501'", {"1"}},
        {"t = '2024/05/01'", {"2", "3", "4"}},
        {"t <> '2024/05/01'", {"1", "5", "6", "7"}},
        {"t != '2024/05/01'", {"1", "5", "6", "7"}},
        {"'2024/05/01' = t", {"2", "3", "4"}},
        {"'2024/05/01' < t", {"5", "6", "7"}},
        {"'2024/05/01' >= t", {"1", "2", "3", "4"}},
        {"t BETWEEN '2024/05/01' AND '2024/05/02'", {"2", "3", "4", "5", "6", "7"}},
        {"t NOT BETWEEN '2024/05/01' AND '2024/05/02'", {"1"}},
        {"t IN ('2024/05/01', '2024/05/02')", {"2", "3", "4", "7"}},
        {"t = '2024/05/01 9:30:15'", {"6"}},
        {"t >= '2024/05/01 9:30:15'", {"6", "7"}},
        {"t > '2024/05/01 9:30:15'", {"7"}},
        {"t >= '2024/05/01' AND t < '2024/05/02'", {"2", "3", "4", "5", "6"}},
        {"t IS NULL", {"8"}},
        {"NOT t >= '2024/05/01'", {"1"}},
        {"t = (select max(t) from V v2 where v2.t <= '2024/05/01')", {"2", "3", "4"}},
        {"t <= GetDate() AND t >= '2024/05/02'", {"7"}},
        {"c = '2024/05/01'", {"2", "3"}},
        {"c = '20240501'", {"4"}},
        {"c >= '2024/04' AND c < '2024/05'", {"1"}},
        {"CONVERT(VARCHAR, t, 111) = '2024/05/01'", {"2", "3", "4", "5", "6"}},
        {"CONVERT(VARCHAR, t, 112) = '20240502'", {"7"}},
        {"SUBSTRING(CONVERT(VARCHAR, t, 111),1,7) = '2024/04'", {"1"}},
        {"CONVERT(VARCHAR, c, 112) = '2024/05/01'", {"2", "3"}},
    };
    for (const DateRow &row : rows) {
        CAPTURE(row.condition);
        CHECK(session.firstColumn(std::string("SELECT n FROM V WHERE ") + row.condition + " ORDER BY n") ==
              row.numbers);
    }
}

TEST_CASE("an alias takes precedence over a table of the same name")
{
    const DatabaseFile file("CREATE TABLE P (nIDNo INTEGER, tD DATETIME); CREATE TABLE A (x INTEGER);"
                            "CREATE TABLE S1 (tD TEXT); INSERT INTO P VALUES (7, '2024-05-01 00:00:00')");
    Session session(file);
    CHECK(session.firstColumn("SELECT a.nIDNo FROM P a WHERE a.tD='2024/5/1'") == Texts{"7"});
    CHECK(session.firstColumn("SELECT S1.nIDNo FROM P S1 WHERE S1.tD='2024/5/1'") == Texts{"7"});
}

TEST_CASE("a date column sorts by time")
{
    const DatabaseFile file(kMoments);
    Session session(file);
    CHECK(session.firstColumn("SELECT n FROM V WHERE n IN (6, 1, 7, 3) ORDER BY t DESC") == Texts{"7", "6", "3", "1"});
}

TEST_CASE("a comparison with a date literal uses the index of the column")
{
    const DatabaseFile file("CREATE TABLE V (n INTEGER, t DATETIME); CREATE INDEX V_T ON V (t)");
    SqlSchema schema;
    schema.add("V", "t", "DATETIME");
    for (const char *condition :
         {"t >= '2024/05/01'", "t = '2024/05/01'", "t BETWEEN '2024/05/01' AND '2024/05/31'", "t IN ('2024/05/01')"}) {
        CAPTURE(condition);
        const Translation translation = translateSql(std::string("SELECT n FROM V WHERE ") + condition, schema);
        CHECK(file.plan(translation.text).find("USING INDEX V_T") != std::string::npos);
    }
}

TEST_CASE("a date literal is stored in one format, however it is written")
{
    const DatabaseFile file("CREATE TABLE V (n INTEGER, t DATETIME, c TEXT)");
    Session session(file);
    CHECK(session.execute("INSERT INTO V (n, t, c) VALUES (1, '2024/5/1', '2024/5/1')") == 1);
    CHECK(file.value("SELECT t || '|' || c FROM V") == "2024-05-01 00:00:00|2024/5/1");
    CHECK(session.execute("UPDATE V SET t = '20240502 9:30:15', c = '20240502' WHERE t = '2024/05/01'") == 1);
    CHECK(file.value("SELECT t || '|' || c FROM V") == "2024-05-02 09:30:15|20240502");
    CHECK(session.execute("UPDATE V SET t =  Null") == 1);
    CHECK(file.value("SELECT t FROM V") == "NULL");
    CHECK(session.execute("UPDATE V SET t = GetDate()") == 1);
    CHECK(file.value("SELECT t GLOB '20[0-9][0-9]-[01][0-9]-[0-3][0-9] [0-2][0-9]:[0-5][0-9]:[0-5][0-9]' FROM V") ==
          "1");
}

TEST_CASE("a text that is not a date fails with the message and SQL state of an invalid value")
{
    const DatabaseFile file(kMoments);
    Session session(file);
    const Raised raised = raisedBy([&] { (void)session.open("SELECT n FROM V WHERE t >= '令和6年5月1日'"); });
    CHECK(raised.number == ado_error::faultyStatement);
    CHECK(raised.description == "'令和6年5月1日' is not a date and time");
    REQUIRE(session.connection().Errors().size() == 1);
    CHECK(session.connection().Errors()[0].SQLState == "22007");
}
