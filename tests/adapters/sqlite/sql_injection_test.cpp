#include "adapters/sqlite/practice_database.h"

#include <doctest/doctest.h>

#include <string>
#include <string_view>
#include <vector>

using namespace inin;
using namespace inin::sqlite;

namespace {

/// Everything that the statements of these tests could change.
const char *const kState =
    "SELECT (SELECT group_concat(nIDNo || cName, ',') FROM STAFF) || '/' || (SELECT count(*) FROM sqlite_schema) || '/' ||"
    " (SELECT user_version FROM pragma_user_version)";

struct WatchedSession : PracticeSession {
    std::string before = file.value(kState);
    WatchedSession() { REQUIRE(before.find("3施術三子,4施術四郎,5中止五郎,3別拠点の者/") == 0); }

    /// Checks that the record set refuses the statement with the error of a failed command, and that nothing changes.
    void checkRefused(const std::string &sql)
    {
        CAPTURE(sql);
        const auto rows = session.database().newRecordset();
        const Raised raised = raisedBy([&] { rows->Open(sql, session.connection(), 0, 1, 1); });
        CHECK(raised.number == ado_error::faultyStatement);
        REQUIRE(session.connection().Errors().size() == 1);
        CHECK(session.connection().Errors()[0].Number == ado_error::faultyStatement);
        CHECK(session.connection().Errors()[0].Description == raised.description);
        CHECK(session.connection().Errors()[0].Source == "SQLite");
        CHECK(rows->State() == adStateClosed);
        CHECK(file.value(kState) == before);
        session.connection().Errors().clear();
    }
};

/// A staff search for a name as the operator enters it.
std::string searchFor(const std::string &name)
{
    return "SELECT nIDNo, cName FROM STAFF WHERE cName LIKE '%" + name + "%' AND iKyotenCd = 1 ORDER BY nIDNo ";
}

} // namespace

TEST_CASE_FIXTURE(WatchedSession, "a read-only record set refuses every statement that writes")
{
    for (const char *sql : {"DELETE FROM STAFF", "delete from STAFF", "UPDATE STAFF SET cName = 'x'",
                            "INSERT INTO STAFF (nIDNo) VALUES (9)", "INSERT INTO STAFF SELECT * FROM STAFF",
                            "DELETE FROM STAFF RETURNING nIDNo", "DROP TABLE STAFF",
                            "REPLACE INTO STAFF (iKyotenCd, iKyotenEb, nIDNo) VALUES (1, 1, 3)", "TRUNCATE TABLE STAFF",
                            "ALTER TABLE STAFF RENAME TO X", "CREATE TABLE X (a)",
                            "CREATE TRIGGER T AFTER INSERT ON STAFF BEGIN SELECT 1; END", "SELECT * INTO X FROM STAFF",
                            "MERGE INTO STAFF USING HOKEN ON 1 = 1 WHEN MATCHED THEN DELETE",
                            "EXEC sp_rename 'STAFF', 'X'", "sp_rename 'STAFF', 'X'"})
        checkRefused(sql);
}

TEST_CASE_FIXTURE(WatchedSession, "a read-only record set refuses statements that reach beyond the rows of its file")
{
    for (const char *sql :
         {"PRAGMA user_version = 9", "PRAGMA writable_schema = ON", "ATTACH DATABASE ':memory:' AS y",
          "DETACH DATABASE main", "VACUUM", "VACUUM INTO 'copy.db'", "REINDEX", "ANALYZE", "BEGIN", "BEGIN TRAN",
          "COMMIT", "ROLLBACK", "SAVEPOINT a", "EXPLAIN DELETE FROM STAFF", "EXPLAIN QUERY PLAN SELECT 1",
          "SELECT load_extension('evil')", "SELECT writefile('x', 'y')", "SELECT readfile('/etc/passwd')",
          "SELECT fts3_tokenizer('simple', x'00')"})
        checkRefused(sql);
}

TEST_CASE_FIXTURE(WatchedSession, "a read-only record set refuses a second statement, with and without a semicolon")
{
    for (const char *sql :
         {"SELECT 1; DELETE FROM STAFF", "SELECT 1;DELETE FROM STAFF;", "SELECT 1; SELECT 2",
          "SELECT 1 DELETE FROM STAFF", "SELECT 1\nDELETE FROM STAFF", "SELECT 1 SELECT 2",
          "SELECT nIDNo FROM STAFF UPDATE STAFF SET cName = 'x'", "; DELETE FROM STAFF", ";;SELECT 1; DROP TABLE STAFF",
          "SELECT (1); DELETE FROM STAFF", "SELECT (1; DELETE FROM STAFF)", "SELECT 1 WHERE EXISTS (DELETE FROM STAFF)",
          "SELECT 1 UNION DELETE FROM STAFF"})
        checkRefused(sql);
}

TEST_CASE_FIXTURE(WatchedSession, "a write after a text, a name or a comment is refused")
{
    for (const char *sql :
         {"SELECT 'a''; '; DELETE FROM STAFF", "SELECT 'a -- '\n; DELETE FROM STAFF",
          "SELECT '/*'; DELETE FROM STAFF --*/", "SELECT N'a'; DELETE FROM STAFF", "SELECT N'''' DELETE FROM STAFF",
          "SELECT 1 AS [x]; DELETE FROM STAFF", "SELECT 1 AS [x]]; ]; DELETE FROM STAFF",
          "SELECT 1 AS [--]; DELETE FROM STAFF", "SELECT 1 AS \"x\"\"\"; DELETE FROM STAFF",
          "SELECT 1 AS [']; DELETE FROM STAFF --'", "SELECT 1 /* ; */ DELETE FROM STAFF",
          "SELECT 1 -- x\n; DELETE FROM STAFF", "SELECT 1 /**/;/**/ DELETE FROM STAFF",
          "SELECT 1 /* /* */ */; DELETE FROM STAFF", "/* SELECT */ DELETE FROM STAFF",
          "SELECT 1 `; DELETE FROM STAFF --`", "SELECT 'a\\'; DELETE FROM STAFF --'", "SELECT 0x; DELETE FROM STAFF",
          "SELECT 1 　; DELETE FROM STAFF"})
        checkRefused(sql);
    checkRefused(std::string("SELECT 1\0; DELETE FROM STAFF", 28));
    checkRefused(std::string("SELECT 'a\0'; DELETE FROM STAFF", 30));
}

TEST_CASE_FIXTURE(WatchedSession, "a WITH must end in a SELECT")
{
    for (const char *sql :
         {"WITH a AS (SELECT 1 x) DELETE FROM STAFF", "WITH a AS (SELECT 1 x) UPDATE STAFF SET cName = 'x'",
          "WITH a AS (SELECT 1 x) INSERT INTO STAFF (nIDNo) SELECT x FROM a",
          "WITH a AS (SELECT 1 x) REPLACE INTO STAFF (iKyotenCd, iKyotenEb, nIDNo) SELECT 1, 1, x FROM a",
          "WITH a AS (DELETE FROM STAFF RETURNING 1) SELECT * FROM a", "WITH a AS (SELECT 1 x)",
          "WITH a AS (SELECT 1 x) SELECT x FROM a; DELETE FROM STAFF"})
        checkRefused(sql);
    CHECK(session.value("WITH a AS (SELECT 1 x) SELECT x FROM a") == "1");
}

TEST_CASE_FIXTURE(WatchedSession, "an entry in a search box cannot change the database")
{
    for (const char *typed :
         {"'; DELETE FROM STAFF --", "' DELETE FROM STAFF --", "'; DROP TABLE STAFF; SELECT '",
          "' OR 1 = 1; UPDATE STAFF SET cName = 'x' --", "' UNION SELECT 1, 2; DELETE FROM STAFF /*",
          "'; ATTACH ':memory:' AS y --", "'", "''' ; DELETE FROM STAFF --"})
        checkRefused(searchFor(typed));
}

TEST_CASE_FIXTURE(WatchedSession, "a SELECT that only resembles a write runs and changes nothing")
{
    CHECK(session.value(searchFor("''; DELETE FROM STAFF --")) == "-");
    CHECK(session.value("SELECT '; DELETE FROM STAFF'") == "; DELETE FROM STAFF");
    CHECK(session.value("SELECT 5 AS [; DELETE FROM STAFF]") == "5");
    CHECK(session.value("SELECT 5 /* /* */ ; DELETE FROM STAFF */") == "5");
    CHECK(session.value("SELECT 5 --; DELETE FROM STAFF") == "5");
    CHECK(session.value("SELECT 5 ; ; ") == "5");
    CHECK(file.value(kState) == before);
}

TEST_CASE_FIXTURE(WatchedSession, "a client-side cursor refuses a write like a server-side one")
{
    const auto rows = session.database().newRecordset();
    rows->setCursorLocation(adUseClient);
    CHECK(raisedBy([&] { rows->Open("DELETE FROM STAFF", session.connection(), 0, 1, 1); }).number ==
          ado_error::faultyStatement);
    CHECK(file.value(kState) == before);
}

TEST_CASE_FIXTURE(WatchedSession, "Execute accepts a single statement and refuses other files and transactions")
{
    for (const std::string_view sql :
         {"DELETE FROM STAFF; DELETE FROM HOKEN", "PRAGMA user_version = 9", "ATTACH ':memory:' AS y", "BEGIN",
          "COMMIT", "VACUUM INTO 'copy.db'", "DELETE FROM STAFF WHERE cName = 'x", "EXEC x"}) {
        CAPTURE(sql);
        const Raised raised = raisedBy([&] { session.execute(std::string(sql)); });
        CHECK(raised.number == ado_error::faultyStatement);
        CHECK(session.connection().Errors().size() == 1);
        CHECK(file.value(kState) == before);
    }
}
