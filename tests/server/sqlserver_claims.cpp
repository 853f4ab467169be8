// What the adapter relies on, tested on a real server of the T-SQL language. ININ_SERVER_SCRATCH is the connection
// string of a database in which tables may be created. Not part of the ordinary tests: scripts/test-sqlserver runs it.

#include "adapters/odbc/driver_stage.h"
#include "adapters/odbc/odbc_string.h"

#include <doctest/doctest.h>
#include <fmt/format.h>

using namespace inin;
using namespace inin::odbc;
using namespace inin::test;

namespace {

std::string server()
{
    return fromEnvironment("ININ_SERVER_SCRATCH");
}

Date moment(std::int32_t year, std::int32_t month, std::int32_t day, std::int32_t hour = 0, std::int32_t minute = 0,
            std::int32_t second = 0)
{
    return dateOf({year, month, day, hour, minute, second});
}

/// A new empty table. DROP … IF EXISTS is missing in older servers.
void newTable(const Session &session, const std::string &name, const std::string &columns)
{
    (void)errorOf([&] { session.run("DROP TABLE " + name); }); // it may not exist
    session.run("CREATE TABLE " + name + " (" + columns + ")");
}

void fillNumbers(const Session &session, int count)
{
    newTable(session, "numbers", "n INT NOT NULL PRIMARY KEY, t NVARCHAR(40)");
    session.connection->BeginTrans();
    for (int first = 1; first <= count; first += 100) {
        std::string rows;
        for (int n = first; n < first + 100 && n <= count; ++n)
            rows += fmt::format("{}({}, N'row {}')", rows.empty() ? "" : ",", n, n);
        session.run("INSERT INTO numbers (n, t) VALUES " + rows);
    }
    session.connection->CommitTrans();
}

std::int32_t wholeNumber(const Variant &value)
{
    if (const auto *small = value.getIf<std::int16_t>()) return *small;
    const auto *number = value.getIf<std::int32_t>();
    return number == nullptr ? -99999 : *number;
}

struct TypeRow {
    const char *type;
    const char *literal;
    Variant value;
};

} // namespace

TEST_CASE("a value of each type arrives as the runtime's own type, and NULL of each as Null")
{
    const Session session(server());
    for (const TypeRow &row : {
             TypeRow{"smallint", "-32768", static_cast<std::int16_t>(-32768)},
             {"int", "2147483647", std::int32_t{2147483647}},
             {"tinyint", "255", static_cast<std::int16_t>(255)},
             {"bigint", "7", std::int32_t{7}},
             {"bit", "1", static_cast<std::int16_t>(-1)},
             {"bit", "0", static_cast<std::int16_t>(0)},
             {"decimal(19,4)", "-123456.7891", -123456.7891},
             {"money", "1234.5", 1234.5},
             {"float", "0.1", 0.1},
             {"real", "0.1", 0.1},
             {"nvarchar(20)", "N'委任状𠮷'", "委任状𠮷"},
             {"nvarchar(20)", "N''", ""},
             {"nvarchar(max)", "N'長い文'", "長い文"},
             {"datetime", "'20240628 10:30:15'", moment(2024, 6, 28, 10, 30, 15)},
             {"datetime2", "'20240628 10:30:15'", moment(2024, 6, 28, 10, 30, 15)},
             {"date", "'20240628'", moment(2024, 6, 28)},
             {"varbinary(10)", "0x00FF10", Binary{std::byte{0}, std::byte{255}, std::byte{16}}},
             {"varbinary(max)", "0x00", Binary{std::byte{0}}},
         }) {
        CAPTURE(std::string(row.type));
        newTable(session, "typed", std::string("id INT NOT NULL, v ") + row.type + " NULL");
        session.run(std::string("INSERT INTO typed (id, v) VALUES (1, ") + row.literal + "), (2, NULL)");
        const auto values = session.column("SELECT v FROM typed ORDER BY id");
        REQUIRE(values.size() == 2);
        CHECK((values[0] == row.value));
        CHECK(values[1].isNull());
    }
}

TEST_CASE("text, ntext and image columns are read completely")
{
    const Session session(server());
    newTable(session, "old_types", "t text NULL, n ntext NULL, i image NULL");
    session.run("INSERT INTO old_types (t, n, i) VALUES ('plain', N'委任状𠮷', 0x00FF)");
    const auto rows = session.open("SELECT t, n, i FROM old_types");
    CHECK(rows->Value(0) == Variant("plain"));
    CHECK(rows->Value(1) == Variant("委任状𠮷"));
    CHECK((rows->Value(2) == Variant(Binary{std::byte{0}, std::byte{255}})));
}

TEST_CASE("a varchar column of a Japanese collation stores the characters of code page 932")
{
    const Session session(server());
    newTable(session, "narrow", "v varchar(40) COLLATE Japanese_CI_AS");
    session.run("INSERT INTO narrow (v) VALUES (N'髙橋 﨑子 ｶﾅ')");
    CHECK(session.value("SELECT v FROM narrow") == Variant("髙橋 﨑子 ｶﾅ"));
}

TEST_CASE("a Japanese text in a statement finds its row")
{
    const Session session(server());
    newTable(session, "names", "id INT, t NVARCHAR(40) COLLATE Japanese_CI_AS");
    session.run("INSERT INTO names (id, t) VALUES (1, N'髙橋'), (2, N'𠮷野')");
    CHECK(wholeNumber(session.value("SELECT id FROM names WHERE t = '髙橋'")) == 1);
    CHECK(wholeNumber(session.value("SELECT id FROM names WHERE t = N'𠮷野'")) == 2);
}

TEST_CASE("text of many pieces is complete, with surrogate pairs across the pieces")
{
    std::string text = "a";
    while (text.size() < 120000) text += "𠮷委";
    const Session session(server());
    newTable(session, "longs", "id INT, t NVARCHAR(MAX), n INT");
    session.run("INSERT INTO longs (id, t, n) VALUES (1, N'" + text + "', 7), (2, NULL, 8)");
    const auto rows = session.open("SELECT id, t, n FROM longs ORDER BY id");
    CHECK((rows->Value(1) == Variant(text)));
    CHECK(wholeNumber(rows->Value(2)) == 7);
    rows->MoveNext();
    CHECK(rows->Value(1).isNull());
    CHECK(wholeNumber(rows->Value(2)) == 8);
}

TEST_CASE("rows are fetched in blocks, each once")
{
    const Session session(server());
    fillNumbers(session, 1500);
    const auto rows = session.open("SELECT n, t FROM numbers ORDER BY n");
    std::int32_t expected = 0;
    for (; !rows->isEndOfFile(); rows->MoveNext()) {
        ++expected;
        REQUIRE(wholeNumber(rows->Value(0)) == expected);
        REQUIRE(rows->Field("T") == Variant("row " + std::to_string(expected)));
    }
    CHECK(expected == 1500);
}

TEST_CASE("a second statement runs while a record set is open, which then continues")
{
    const Session session(server());
    fillNumbers(session, 900);
    const auto outer = session.open("SELECT n FROM numbers ORDER BY n");
    outer->MoveNext();
    CHECK(wholeNumber(session.value("SELECT count(*) AS c FROM numbers")) == 900);
    CHECK(session.run("DELETE FROM numbers WHERE n > 10") == 890);
    std::int32_t last = 0;
    for (; !outer->isEndOfFile(); outer->MoveNext()) last = wholeNumber(outer->Value(0));
    CHECK(last == 900);
}

TEST_CASE("of two columns with one name the first is found")
{
    const Session session(server());
    const auto rows = session.open("SELECT 1 AS a, 2 AS b, 3 AS a");
    CHECK(rows->fieldCount() == 3);
    CHECK(wholeNumber(rows->Field("A")) == 1);
}

TEST_CASE("changed rows are counted; blank text returns -1 and a message is not an error")
{
    const Session session(server());
    fillNumbers(session, 5);
    CHECK(session.run("UPDATE numbers SET t = N'x' WHERE n > 1") == 4);
    CHECK(session.run("DELETE FROM numbers WHERE n > 99") == 0);
    CHECK(session.run(" ") == -1);
    CHECK(errorOf([&] { session.run("PRINT 'a message'"); }).number() == 0);
    CHECK(session.connection->Errors().empty());
}

TEST_CASE("a commit keeps a transaction; a rollback and a close undo it")
{
    const Session session(server());
    fillNumbers(session, 1);
    session.connection->BeginTrans();
    session.run("INSERT INTO numbers (n, t) VALUES (2, N'kept')");
    session.connection->CommitTrans();
    session.connection->BeginTrans();
    session.run("INSERT INTO numbers (n, t) VALUES (3, N'gone')");
    session.connection->RollbackTrans();
    session.connection->BeginTrans();
    session.run("INSERT INTO numbers (n, t) VALUES (4, N'gone')");
    session.connection->Close();
    session.connection->Open(server(), "", "", -1);
    CHECK(session.column("SELECT n FROM numbers").size() == 2);
}

TEST_CASE("errors have ADO's numbers")
{
    const Session session(server());
    fillNumbers(session, 1);
    CHECK(errorOf([&] { (void)session.open("SELECT FROM WHERE"); }).number() == -2147217900);
    CHECK(errorOf([&] { (void)session.open("SELECT no_such_column FROM numbers"); }).number() == -2147217900);
    CHECK(errorOf([&] { (void)session.open("SELECT a FROM no_such_table"); }).number() == -2147217865);
    CHECK(errorOf([&] { session.run("INSERT INTO numbers (n, t) VALUES (1, N'again')"); }).number() == -2147217873);
    CHECK(errorOf([&] { session.run("INSERT INTO numbers (n, t) VALUES (NULL, N'x')"); }).number() == -2147217873);
    CHECK_FALSE(session.connection->Errors().empty());
    CHECK(errorOf([&] { session.run("DELETE FROM numbers WHERE n = ?"); }).number() != 0);
    CHECK(wholeNumber(session.value("SELECT 1 AS a")) == 1);
}

TEST_CASE("a division by zero in the middle of the rows is reported and ends them")
{
    const Session session(server());
    fillNumbers(session, 900);
    std::int32_t read = 0;
    const RuntimeError error = errorOf([&] {
        for (const auto rows = session.open("SELECT 1000 / (700 - n) AS a FROM numbers ORDER BY n");
             !rows->isEndOfFile(); rows->MoveNext())
            ++read;
    });
    CHECK(error.number() == -2147217900);
    CHECK(read <= 699);
    CHECK(wholeNumber(session.value("SELECT 1 AS a")) == 1);
}

TEST_CASE("a command that takes too long fails with a timeout")
{
    const Session session(server());
    session.connection->setCommandTimeout(2);
    CHECK(errorOf([&] { session.run("WAITFOR DELAY '00:00:20'"); }).number() == -2147217871);
    // Some servers close the connection as well: the session must reopen.
    session.connection->Close();
    session.connection->Open(server(), "", "", -1);
    CHECK(wholeNumber(session.value("SELECT 1 AS a")) == 1);
}

TEST_CASE("after a killed connection the next operation fails and the session can be reopened")
{
    const Session session(server());
    const std::int32_t process = wholeNumber(session.value("SELECT @@SPID AS a"));
    {
        const Session killer(server());
        killer.run("KILL " + std::to_string(process));
    }
    const RuntimeError error = errorOf([&] { (void)session.open("SELECT 1 AS a"); });
    CHECK(error.number() != 0);
    CHECK_FALSE(session.connection->Errors().empty());
    session.connection->Close();
    session.connection->Open(server(), "", "", -1);
    CHECK(wholeNumber(session.value("SELECT 1 AS a")) == 1);
}

TEST_CASE("an idle connection that was killed is not reused")
{
    const std::shared_ptr<OdbcDatabase> library = makeOdbcDatabase();
    {
        const Session session(server(), library);
        const std::int32_t process = wholeNumber(session.value("SELECT @@SPID AS a"));
        const Session killer(server());
        killer.run("KILL " + std::to_string(process));
    }
    const Session next(server(), library);
    CHECK(wholeNumber(next.value("SELECT 1 AS a")) == 1);
}

TEST_CASE("the default database is the scratch database")
{
    const Session session(server());
    CHECK(session.connection->DefaultDatabase() == fromEnvironment("ININ_SERVER_SCRATCH_NAME"));
}

TEST_CASE("a wrong password and a wrong database are refused without the password in any message")
{
    const auto database = makeOdbcDatabase();
    const auto connection = database->newConnection();
    const RuntimeError refused =
        errorOf([&] { connection->Open(server(), "nobody_of_that_name", "falsches-geheimnis", -1); });
    CHECK(refused.number() == -2147217843);
    for (const ProviderError &error : connection->Errors())
        CHECK(error.Description.find("falsches-geheimnis") == std::string::npos);
    CHECK(errorOf([&] {
              connection->Open(withDatabase(server(), "no_such_database_anywhere"), "", "", -1);
          }).number() != 0);
    CHECK(connection->State() == adStateClosed);
}

TEST_CASE("consecutive sessions share one log-in")
{
    const std::shared_ptr<OdbcDatabase> library = makeOdbcDatabase();
    for (int unit = 0; unit < 20; ++unit) {
        const Session session(server(), library);
        CHECK(wholeNumber(session.value("SELECT 1 AS a")) == 1);
    }
    CHECK(library->logIns() == 1);
}

TEST_CASE("a read-only record set does not change the table")
{
    const Session session(server());
    fillNumbers(session, 3);
    for (const char *sql : {"DELETE FROM numbers", "SELECT 1 DELETE FROM numbers", "SELECT 1; DELETE FROM numbers",
                            "SELECT 1edelete FROM numbers", "SELECT * INTO other_numbers FROM numbers",
                            "SELECT 1\u00A0DELETE FROM numbers"}) {
        CAPTURE(std::string(sql));
        CHECK(errorOf([&] { (void)session.open(sql); }).number() == -2147217900);
    }
    CHECK(session.column("SELECT n FROM numbers").size() == 3);
}
