#include "adapters/odbc/single_select.h"

#include "fuzz/server_reader.h"
#include "support/sample_size.h"

#include <doctest/doctest.h>
#include <nlohmann/json.hpp>

#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <vector>

using namespace inin;
using namespace inin::odbc;

namespace {

bool isAccepted(std::string_view sql)
{
    return singleSelectProblem(sql).empty();
}

const std::vector<std::string> kReads{
    "SELECT 1",
    "select * from RIYOUSHA;",
    " \r\n\tSELECT cName FROM RIYOUSHA ; ; ",
    "SELECT TOP 1 nIDNo FROM STAFF WHERE cName LIKE '%delete; drop table x--%'",
    "SELECT [delete], [a]]b; DROP] FROM [insert into]",
    "SELECT \"update\", \"a\"\"b; drop\" FROM t",
    "SELECT N'; DELETE FROM t', 'it''s; DROP' FROM t",
    "SELECT /* DELETE FROM t; /* nested; DROP */ still; DROP */ 1",
    "SELECT 1 -- DELETE FROM t; DROP TABLE t",
    "SELECT 1 -- DELETE\r\n, 2",
    "SELECT a FROM t UNION SELECT b FROM u UNION ALL SELECT c FROM v",
    "SELECT a FROM t EXCEPT SELECT b FROM u INTERSECT (SELECT c FROM v)",
    "SELECT (SELECT max(x) FROM u) AS m FROM t WHERE y IN (SELECT z FROM v)",
    "WITH a AS (SELECT 1 AS x), b (y) AS (SELECT 2) SELECT * FROM a, b",
    "WITH a AS (SELECT 1 AS x UNION ALL SELECT x FROM a) SELECT * FROM a UNION SELECT 3",
    "SELECT CASE WHEN a = 1 THEN 2 ELSE 3 END FROM t ORDER BY a DESC",
    "SELECT CONVERT(VARCHAR, tDay, 111), LEFT(c, 2), GetDate(), 0xFF, 1.5e3, .5 FROM t",
    "SELECT updated, deleted_at, into_x, setting, createdBy FROM inserts",
    "SELECT 単価, 往療費区分.nMaxLen, ﾃｽﾄ, Ａ１, 々〇 FROM 療養費単価",
    "SELECT\u3000a FROM t",
    "SELECT @@VERSION",
    "SELECT $1.5",
    "SELECT ''",
};

const std::vector<std::string> kWrites{
    "DELETE FROM t",
    "INSERT INTO t VALUES (1)",
    "UPDATE t SET a = 1",
    "DROP TABLE t",
    "EXEC sp_who",
    "TRUNCATE TABLE t",
    "CREATE TABLE u (a int)",
    "ALTER TABLE t ADD b int",
    "MERGE t USING u ON 1 = 1 WHEN MATCHED THEN DELETE",
    "GRANT ALL TO public",
    "SHUTDOWN",
    "USE master",
    "SET NOCOUNT ON",
    "DECLARE @x int",
    "BEGIN TRAN",
    "WAITFOR DELAY '0:0:9'",
    "DBCC CHECKDB",
    "KILL 51",
    "BACKUP DATABASE x TO DISK = 'x'",
};

/// Texts that may separate two statements, or seem to hide what follows.
const std::vector<std::string> kSeparators{
    " ",      ";",      "\n",      "\t",          "\r",       "\v",     "\f",     ";;",
    "; ; ",   "/**/",   "/* x */", "/* /* */ */", "-- x\n",   "--\n",   "--\r\n", "/*--*/",
    "--/*\n", "\u3000", "\u00A0",  "\u0085",      "\u2003",   "\u2028", "\u200B", "\uFEFF",
    "\u202E", "--\r",   "-- x\r",  "--\u2028",    "--\u0085", "--\v",   "''",     "'';",
    "'' ",    "N''",    "[]",      "\"\"",        ")",        "(",      ",",      " 1e",
    " 0x",    " $",     " $.",     " .",          " 1.",      "\\",     "`",      "{",
    "}",      "@x ",    "''''",    "/* ' */",     "-- '\n",   "'/*'",   "'--'",   "[']",
    "['']",   "\"'\"",  "*/",      "/*/**/*/",    "\x01",     "\x1F",   "\x7F",   std::string(1, '\0')};

} // namespace

TEST_CASE("a single SELECT is accepted, whatever its quotes and comments contain")
{
    for (const std::string &sql : kReads) {
        CAPTURE(sql);
        CHECK(singleSelectProblem(sql) == "");
    }
}

TEST_CASE("any other statement is refused")
{
    for (const std::string &sql : kWrites) {
        CAPTURE(sql);
        CHECK_FALSE(isAccepted(sql));
    }
    for (const char *sql : {"", " ", ";", "-- SELECT 1", "/* SELECT 1 */", "(SELECT 1)", "[SELECT] 1", "'SELECT 1'",
                            "WITH a AS (SELECT 1)", "WITH SELECT 1", "VALUES (1)", "PRINT 1", "SELECT 1)", "SELECT (1"})
        CHECK_FALSE(isAccepted(sql));
}

TEST_CASE("a second statement is refused, with a semicolon and without")
{
    for (const char *sql :
         {"SELECT 1; SELECT 2", "SELECT 1 SELECT 2", "SELECT (1) SELECT 2", "SELECT 1;;DELETE FROM t",
          "SELECT 1 DELETE FROM t", "SELECT 1 FROM t WITH (NOLOCK) DELETE FROM t",
          "WITH a AS (SELECT 1) SELECT 1 SELECT 2", "WITH a AS (SELECT 1) DELETE FROM t",
          "WITH a AS (SELECT 1), b AS (DELETE FROM t) SELECT 1", "WITH a AS (SELECT 1) SELECT (1) SELECT 2"}) {
        CAPTURE(sql);
        CHECK_FALSE(isAccepted(sql));
    }
}

TEST_CASE("a SELECT that writes is refused")
{
    for (const char *sql :
         {"SELECT * INTO u FROM t", "SELECT * FROM OPENQUERY(s, 'DELETE FROM t')",
          "SELECT * FROM OPENROWSET('x', 'y', 'DELETE FROM t')", "SELECT * FROM OPENDATASOURCE('x', 'y').a.b.c",
          "SELECT NEXT VALUE FOR s", "SELECT 1 RECEIVE * FROM q"}) {
        CAPTURE(sql);
        CHECK_FALSE(isAccepted(sql));
    }
}

TEST_CASE("an unterminated quote, bracket or comment is refused")
{
    for (const char *sql : {"SELECT 'a", "SELECT N'a", "SELECT [a", "SELECT \"a", "SELECT 1 /* a",
                            "SELECT 1 /* /* a */", "SELECT 'a''", "SELECT [a]]"}) {
        CAPTURE(sql);
        CHECK_FALSE(isAccepted(sql));
    }
}

TEST_CASE("a word directly after a number is refused, because the server ends the number earlier than it seems")
{
    for (const char *sql :
         {"SELECT 1edelete FROM t", "SELECT 1.edrop TABLE t", "SELECT .5einsert INTO t VALUES (1)",
          "SELECT 0xdelete FROM t", "SELECT 0xUPDATE t SET a = 1", "SELECT 1a", "SELECT $1.5.edelete FROM t"}) {
        CAPTURE(sql);
        CHECK_FALSE(isAccepted(sql));
    }
}

TEST_CASE("a blank that this scanner does not treat as one is refused")
{
    for (const char *blank :
         {"\u00A0", "\u0085", "\u1680", "\u2003", "\u2028", "\u200B", "\uFEFF", "\x80", "\xE3\x80"}) {
        CAPTURE(blank);
        CHECK_FALSE(isAccepted(std::string("SELECT a") + blank + "b FROM t"));
        CHECK_FALSE(isAccepted(std::string("SELECT 1") + blank + "DELETE FROM t"));
    }
}

TEST_CASE("an overlong form is refused, whatever it would encode")
{
    constexpr std::string_view kBlank = "\xE0\x80\xA0", kComma = "\xF0\x80\x80\xAC", kKana = "\xF0\x83\x82\xAB",
                               kNul{"\xE0\x80\x80"};
    for (const std::string_view overlong : {kBlank, kComma, kKana, kNul}) {
        CAPTURE(overlong);
        CHECK_FALSE(isAccepted("SELECT a" + std::string(overlong) + "b FROM t"));
        CHECK_FALSE(isAccepted("SELECT 1" + std::string(overlong) + "DELETE FROM t"));
    }
}

TEST_CASE("a comment with an ambiguous end is refused")
{
    for (const char *end : {"\r", "\v", "\f", "\u0085", "\u2028", "\u2029"}) {
        CHECK_FALSE(isAccepted(std::string("SELECT 1 -- x") + end + "DELETE FROM t"));
        CHECK_FALSE(isAccepted(std::string("SELECT 1 -- x") + end));
    }
}

TEST_CASE("a parameter marker and an ODBC escape are refused")
{
    CHECK(singleSelectProblem("SELECT 1 WHERE a = ?") == "a value for a parameter is missing");
    CHECK(singleSelectProblem("SELECT {fn user()}") == "an escape of ODBC is no part of a statement");
    CHECK(isAccepted("SELECT '?', [?], '{fn x}'"));
}

TEST_CASE("no separator makes a writing statement acceptable after a reading one")
{
    for (const std::string &read : kReads)
        for (const std::string &separator : kSeparators)
            for (const std::string &write : kWrites) {
                // A comment at the end of the SELECT hides what follows, and DBCC is read as digits of a binary value.
                const bool isHidden = read.find("-- DELETE FROM t; DROP") != std::string::npos;
                if (isHidden && separator.find('\n') == std::string::npos) continue;
                if (separator.ends_with("0x") && write.starts_with("DBCC")) continue;
                std::string sql = read;
                sql.append(separator).append(write);
                CAPTURE(sql);
                REQUIRE_FALSE(isAccepted(sql));
            }
}

TEST_CASE("no random splice of a write into a SELECT is accepted")
{
    std::mt19937 dice(20240615);
    const auto pick = [&dice](const std::vector<std::string> &from) { return from[dice() % from.size()]; };
    int accepted = 0;
    for (int round = 0; round < sampleSize(60000); ++round) {
        std::string sql = pick(kReads);
        for (std::size_t piece = dice() % 3 + 1; piece > 0; --piece) {
            const std::string insert = pick(kSeparators) + (dice() % 3 == 0 ? pick(kReads) : pick(kWrites)) +
                                       (dice() % 2 == 0 ? pick(kSeparators) : std::string());
            sql.insert(dice() % (sql.size() + 1), insert);
        }
        if (!isAccepted(sql)) continue;
        ++accepted;
        CAPTURE(sql);
        REQUIRE(fuzz::ServerReader(sql).firstWrite() == "");
    }
    CHECK(accepted > sampleSize(100)); // writes within quotes: the check does not refuse everything
}

TEST_CASE("no random change of single characters makes a write acceptable")
{
    std::mt19937 dice(19890108);
    const std::string signs = "'\"[]-/*;() \n\r\t{}$@#0eExX.,\\`";
    for (int round = 0; round < sampleSize(60000); ++round) {
        std::string sql = kReads[dice() % kReads.size()] + kSeparators[dice() % kSeparators.size()] +
                          kWrites[dice() % kWrites.size()];
        for (std::size_t change = dice() % 4; change > 0; --change) {
            const std::size_t at = dice() % sql.size();
            if (dice() % 2 == 0)
                sql[at] = signs[dice() % signs.size()];
            else
                sql.erase(at, 1);
            if (sql.empty()) sql = "SELECT 1";
        }
        if (!isAccepted(sql)) continue;
        CAPTURE(sql);
        REQUIRE(fuzz::ServerReader(sql).firstWrite() == "");
    }
}

TEST_CASE("every statement of the scenarios is accepted except the injected one")
{
    int statements = 0;
    for (const auto &entry : std::filesystem::directory_iterator(ININ_SCENARIOS)) {
        if (entry.path().extension() != ".play") continue;
        std::ifstream file(entry.path());
        for (std::string line; std::getline(file, line);) {
            if (!line.starts_with("<") || line.find("\"event\":\"sql\"") == std::string::npos) continue;
            const auto event = nlohmann::json::parse(line.substr(line.find('{')));
            const std::string sql = event.value("text", "");
            if (!sql.starts_with("SELECT") && !sql.starts_with("select")) continue;
            CAPTURE(sql);
            ++statements;
            // One scenario types a quote and a DELETE into a filter.
            CHECK(isAccepted(sql) == (sql.find("'; DELETE") == std::string::npos));
        }
    }
    CHECK(statements > 5);
}
