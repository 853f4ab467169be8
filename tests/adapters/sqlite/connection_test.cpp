#include "adapters/sqlite/database_file.h"
#include "adapters/sqlite/sqlite_error.h"

#include <doctest/doctest.h>
#include <sqlite3.h>

#include <memory>
#include <string>
#include <string_view>

using namespace inin;
using namespace inin::sqlite;

namespace {

constexpr std::int32_t kNotOpen = 3704, kAlreadyOpen = 3705, kBadArgument = 3001;

const char *const kTableOfNames = "CREATE TABLE T (nID INTEGER PRIMARY KEY, cName TEXT NOT NULL);"
                                  "INSERT INTO T VALUES (1, 'a'), (2, 'b')";

} // namespace

TEST_CASE("a session is closed until it is opened, and again after it is closed")
{
    const DatabaseFile file(kTableOfNames);
    const auto database = plainDatabase();
    const auto connection = database->newConnection();
    CHECK(connection->State() == adStateClosed);
    connection->Open(file.connectionString(), "", "", -1);
    CHECK(connection->State() == adStateOpen);
    connection->Close();
    CHECK(connection->State() == adStateClosed);
    connection->Open(file.connectionString(), "", "", -1);
    CHECK(connection->State() == adStateOpen);
}

TEST_CASE("an open session cannot be opened again, and a closed session can only be opened")
{
    const DatabaseFile file(kTableOfNames);
    Session session(file);
    CHECK(raisedBy([&] { session.connection().Open(file.connectionString(), "", "", -1); }).number == kAlreadyOpen);
    CHECK(session.connection().State() == adStateOpen);
    session.connection().Close();
    CHECK(raisedBy([&] { session.connection().Close(); }).number == kNotOpen);
    CHECK(raisedBy([&] { session.execute("DELETE FROM T"); }).number == kNotOpen);
    CHECK(raisedBy([&] { session.connection().BeginTrans(); }).number == kNotOpen);
    CHECK(raisedBy([&] { session.connection().CommitTrans(); }).number == kNotOpen);
    CHECK(raisedBy([&] { session.connection().RollbackTrans(); }).number == kNotOpen);
    CHECK(file.value("SELECT count(*) FROM T") == "2");
}

TEST_CASE("the default database is the name of the file, and empty while the session is closed")
{
    const DatabaseFile file(kTableOfNames);
    const auto database = makeSqliteDatabaseAt(file.path());
    struct Row {
        const char *source, *name;
    };
    for (const Row &row :
         {Row{"demo.db", "demo"}, Row{"C:\\data\\demo.db", "demo"}, Row{"/srv/suite/demo.v2.db", "demo.v2"},
          Row{"demo", "demo"}, Row{".hidden", ".hidden"}, Row{"業務.db", "業務"}}) {
        CAPTURE(row.source);
        const auto connection = database->newConnection();
        CHECK(connection->DefaultDatabase() == "");
        connection->Open(std::string("Provider=SQLite;Data Source=") + row.source, "", "", -1);
        CHECK(connection->DefaultDatabase() == row.name);
        connection->Close();
        CHECK(connection->DefaultDatabase() == "");
    }
}

TEST_CASE("Execute returns the number of affected rows, and -1 for other statements")
{
    const DatabaseFile file(kTableOfNames);
    Session session(file);
    CHECK(session.execute("INSERT INTO T VALUES (3, 'c'), (4, 'd')") == 2);
    CHECK(session.execute("UPDATE T SET cName = 'x'") == 4);
    CHECK(session.execute("UPDATE T SET cName = 'x' WHERE nID = 99") == 0);
    CHECK(session.execute("DELETE FROM T WHERE nID > 2") == 2);
    CHECK(session.execute("SELECT * FROM T") == -1);
    CHECK(session.execute("CREATE TABLE U (a INTEGER)") == -1);
    CHECK(session.execute("DROP TABLE U") == -1);
    CHECK(session.execute("   ") == -1);
    CHECK(session.execute("-- nothing") == -1);
    CHECK(session.execute("DELETE FROM T;") == 2);
}

TEST_CASE("a command timeout survives closing and opening, and cannot be negative")
{
    const DatabaseFile file(kTableOfNames);
    Session session(file);
    CHECK(session.connection().CommandTimeout() == 30);
    session.connection().setCommandTimeout(180);
    CHECK(session.connection().CommandTimeout() == 180);
    CHECK(raisedBy([&] { session.connection().setCommandTimeout(-1); }).number == kBadArgument);
    CHECK(session.connection().CommandTimeout() == 180);
    CHECK(raisedBy([&] { session.connection().setCommandTimeout(0); }).number == 0);
}

TEST_CASE("a failure leaves one entry in the error list, which the next failure replaces")
{
    const DatabaseFile file(kTableOfNames);
    Session session(file);
    struct Row {
        std::string_view sql, description, state;
        std::int32_t number;
        std::string_view newer = {}; ///< the description by SQLite 3.41 and later where it differs
    };
    constexpr std::int32_t kNative = 1; // SQLite's code for all errors in a statement
    static constexpr Row kRows[] = {
        {"SELECT * FROM MISSING", "テーブルがありません。（no such table: MISSING）", "42S02", ado_error::noSuchTable},
        {"SELECT missing FROM T", "列がありません。（no such column: missing）", "42S22", ado_error::faultyStatement},
        {"SELECT T.missing FROM T", "列がありません。（no such column: T.missing）", "42S22",
         ado_error::faultyStatement},
        {"SELECT \"missing\" FROM T", "列がありません。（no such column: missing）", "42S22",
         ado_error::faultyStatement,
         "列がありません。（no such column: \"missing\" - should this be a string literal in single-quotes?）"},
        {"SELECT FROM T", "near \"FROM\": syntax error", "42000", ado_error::faultyStatement},
        {"SELECT inexistent(1)", "no such function: inexistent", "42000", ado_error::faultyStatement},
        {"SELECT 'a", "the quoted text or name has no end", "42000", ado_error::faultyStatement},
    };
    for (const Row &row : kRows) {
        CAPTURE(row.sql);
        const Raised raised = raisedBy([&] { (void)session.open(std::string(row.sql)); });
        CHECK(raised.number == row.number);
        CHECK((raised.description == row.description || (!row.newer.empty() && raised.description == row.newer)));
        REQUIRE(session.connection().Errors().size() == 1);
        const ProviderError &error = session.connection().Errors().front();
        CHECK(error.Number == row.number);
        CHECK(error.Description == raised.description);
        CHECK(error.Source == "SQLite");
        CHECK(error.SQLState == row.state);
        CHECK(error.NativeError == kNative);
    }
}

TEST_CASE("a common error is shown in Japanese with the provider's message in brackets, any other as it is")
{
    struct Row {
        int code;
        std::string_view message, shown;
    };
    static constexpr Row kRows[] = {
        {SQLITE_LOCKED, "database table is locked",
         "データベースがほかのプログラムに使われています。（database table is locked）"},
        {SQLITE_CONSTRAINT_UNIQUE, "UNIQUE constraint failed: T.nID",
         "データの制約に反するため、書き込めません。（UNIQUE constraint failed: T.nID）"},
        {SQLITE_FULL, "database or disk is full", "ディスクの空きがありません。（database or disk is full）"},
        {SQLITE_READONLY_DIRECTORY, "attempt to write a readonly database",
         "データベースは読み取り専用です。（attempt to write a readonly database）"},
        {SQLITE_ERROR, "near \"FROM\": syntax error", "near \"FROM\": syntax error"},
        {SQLITE_INTERRUPT, "interrupted", "interrupted"},
    };
    for (const Row &row : kRows) CHECK(sqlite::shownMessage(row.code, row.message) == row.shown);
}

TEST_CASE("a write that violates a constraint is reported as such and changes nothing")
{
    const DatabaseFile file(kTableOfNames);
    Session session(file);
    constexpr std::int32_t kPrimaryKey = 1555, kNotNull = 1299; // SQLite's extended codes
    CHECK(raisedBy([&] { session.execute("INSERT INTO T VALUES (9, 'x'), (1, 'x')"); }).number ==
          ado_error::constraint);
    CHECK(session.connection().Errors().at(0).NativeError == kPrimaryKey);
    CHECK(session.connection().Errors().at(0).SQLState == "23000");
    CHECK(raisedBy([&] { session.execute("UPDATE T SET cName = NULL"); }).number == ado_error::constraint);
    CHECK(session.connection().Errors().at(0).NativeError == kNotNull);
    CHECK(file.value("SELECT group_concat(nID || cName) FROM T") == "1a,2b");
}
