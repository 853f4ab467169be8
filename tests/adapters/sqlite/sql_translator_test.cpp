#include "adapters/sqlite/sql_translator.h"

#include <doctest/doctest.h>

#include <string>
#include <string_view>

using namespace inin;
using namespace inin::sqlite;

namespace {

const SqlSchema &schema()
{
    static const SqlSchema kSchema = [] {
        SqlSchema made;
        made.add("RIYOUSHA", "nIDNo", "INTEGER");
        made.add("RIYOUSHA", "cName", "TEXT");
        made.add("RIYOUSHA", "cHokenNo", "NVARCHAR(20)");
        made.add("RIYOUSHA", "tExpireDay", "DATETIME");
        made.add("HOKENJA", "cIDno", "TEXT");
        made.add("JISSEKI", "nID", "INTEGER");
        made.add("JISSEKI", "tStart", "DATETIME");
        made.add("STAFF", "nIDNo", "INTEGER");
        made.add("STAFF", "cName", "TEXT");
        made.add("療養費単価", "cStartDate", "TEXT");
        made.add("MAP", "bAddr1", "BLOB");
        return made;
    }();
    return kSchema;
}

struct TranslationRow {
    std::string_view sql, expected;
};

template <std::size_t count> void checkAll(const TranslationRow (&rows)[count])
{
    for (const TranslationRow &row : rows) {
        CAPTURE(row.sql);
        const Translation translation = translateSql(row.sql, schema());
        CHECK(translation.problem == "");
        CHECK(translation.text == row.expected);
    }
}

} // namespace

TEST_CASE("TOP becomes a LIMIT at the end of its own SELECT")
{
    static constexpr TranslationRow kRows[] = {
        {"SELECT TOP 1 nIDNo FROM RIYOUSHA ORDER BY nIDNo", "SELECT nIDNo FROM RIYOUSHA ORDER BY nIDNo LIMIT 1"},
        {"  select TOP 1      STAFF.nIDNo as nIDNo  FROM      STAFF",
         "  select      STAFF.nIDNo as nIDNo  FROM      STAFF LIMIT 1"},
        {"SELECT TOP (5) nIDNo FROM RIYOUSHA", "SELECT nIDNo FROM RIYOUSHA LIMIT 5"},
        {"SELECT DISTINCT TOP 3 nIDNo FROM RIYOUSHA;", "SELECT DISTINCT nIDNo FROM RIYOUSHA LIMIT 3;"},
        {"SELECT TOP 1 * FROM RIYOUSHA -- one", "SELECT * FROM RIYOUSHA LIMIT 1"},
        {"SELECT x FROM (SELECT TOP 2 nIDNo x FROM RIYOUSHA ORDER BY nIDNo)staff WHERE x > 1",
         "SELECT x FROM (SELECT nIDNo x FROM RIYOUSHA ORDER BY nIDNo LIMIT 2)staff WHERE x > 1"},
        {"SELECT TOP 1 nIDNo FROM RIYOUSHA WHERE nIDNo IN (SELECT TOP 2 nIDNo, 1 FROM STAFF)",
         "SELECT nIDNo FROM RIYOUSHA WHERE nIDNo IN (SELECT nIDNo, 1 FROM STAFF LIMIT 2) LIMIT 1"},
        {"SELECT nIDNo FROM RIYOUSHA UNION SELECT TOP 1 nIDNo FROM STAFF ORDER BY 1",
         "SELECT nIDNo FROM RIYOUSHA UNION SELECT * FROM (SELECT nIDNo FROM STAFF LIMIT 1) ORDER BY 1"},
        {"SELECT TOP 1 nIDNo FROM RIYOUSHA UNION ALL SELECT nIDNo FROM STAFF",
         "SELECT * FROM (SELECT nIDNo FROM RIYOUSHA LIMIT 1) UNION ALL SELECT nIDNo FROM STAFF"},
        {"SELECT [TOP] FROM RIYOUSHA", "SELECT [TOP] FROM RIYOUSHA"},
        {"SELECT 'TOP 1' FROM RIYOUSHA", "SELECT 'TOP 1' FROM RIYOUSHA"},
        {"SELECT TOP -1 nIDNo FROM RIYOUSHA", "SELECT TOP -1 nIDNo FROM RIYOUSHA"},
    };
    checkAll(kRows);
}

TEST_CASE("CONVERT to text formats a date by its style and does not change a text")
{
    static constexpr TranslationRow kRows[] = {
        {"SELECT CONVERT(VARCHAR, tExpireDay, 111) FROM RIYOUSHA",
         "SELECT inin_date_text(tExpireDay, 111) FROM RIYOUSHA"},
        {"SELECT convert(varchar,tExpireDay,112) FROM RIYOUSHA",
         "SELECT inin_date_text(tExpireDay, 112) FROM RIYOUSHA"},
        {"SELECT CONVERT(VARCHAR, cStartDate, 112) FROM 療養費単価", "SELECT (cStartDate) FROM 療養費単価"},
        {"SELECT CONVERT(VARCHAR, nIDNo) FROM STAFF", "SELECT CAST(nIDNo AS TEXT) FROM STAFF"},
        {"SELECT CONVERT(VARCHAR(7), tExpireDay, 111) FROM RIYOUSHA",
         "SELECT inin_left(inin_date_text(tExpireDay, 111), 7) FROM RIYOUSHA"},
        {"SELECT CONVERT(VARCHAR, GetDate(), 111)", "SELECT inin_date_text(datetime('now','localtime'), 111)"},
        {"SELECT CONVERT(INT, cName) FROM STAFF", "SELECT CONVERT(INT, cName) FROM STAFF"},
        {"SELECT CONVERT(VARCHAR, tExpireDay, 101) FROM RIYOUSHA",
         "SELECT CONVERT(VARCHAR, tExpireDay, 101) FROM RIYOUSHA"},
        {"SELECT CONVERT(VARCHAR)", "SELECT CONVERT(VARCHAR)"},
        {"SELECT CONVERT(VARCHAR, tExpireDay, 111, 1) FROM RIYOUSHA",
         "SELECT CONVERT(VARCHAR, tExpireDay, 111, 1) FROM RIYOUSHA"},
        {"SELECT 'CONVERT(VARCHAR, tExpireDay, 111)'", "SELECT 'CONVERT(VARCHAR, tExpireDay, 111)'"},
    };
    checkAll(kRows);
}

TEST_CASE("LEFT is a function before a bracket and a join elsewhere")
{
    static constexpr TranslationRow kRows[] = {
        {"SELECT max(nIDNo) FROM STAFF where LEFT(nIDNo,4) = '0102'",
         "SELECT max(nIDNo) FROM STAFF where inin_left(nIDNo,4) = '0102' COLLATE ININ_JA"},
        {"SELECT LEFT (cName, 1) FROM STAFF", "SELECT inin_left (cName, 1) FROM STAFF"},
        {"SELECT a.nIDNo FROM STAFF a LEFT JOIN (SELECT nIDNo FROM STAFF)b ON a.nIDNo = b.nIDNo",
         "SELECT a.nIDNo FROM STAFF a LEFT JOIN (SELECT nIDNo FROM STAFF)b ON a.nIDNo = b.nIDNo"},
    };
    checkAll(kRows);
}

TEST_CASE("+ concatenates texts and adds numbers, depending on its operands")
{
    static constexpr TranslationRow kRows[] = {
        {"SELECT * FROM 療養費単価 WHERE SUBSTRING(CONVERT(VARCHAR, cStartDate, 112),1,4)+SUBSTRING(CONVERT(VARCHAR, cStartDate, 112),6,2) <=   '201904'",
         "SELECT * FROM 療養費単価 WHERE SUBSTRING((cStartDate),1,4)||SUBSTRING((cStartDate),6,2) <=   '201904' COLLATE ININ_JA"},
        {"SELECT cName + '様' FROM STAFF", "SELECT cName || '様' FROM STAFF"},
        {"SELECT 'a' + 'b' + 'c'", "SELECT 'a' || 'b' || 'c'"},
        {"SELECT nIDNo + 1 FROM STAFF", "SELECT nIDNo + 1 FROM STAFF"},
        {"SELECT nIDNo + '1' FROM STAFF", "SELECT nIDNo + '1' FROM STAFF"},
        {"SELECT 1 + 2 * 3", "SELECT 1 + 2 * 3"},
        {"SELECT cName FROM STAFF WHERE nIDNo = +1 AND nIDNo > -1",
         "SELECT cName FROM STAFF WHERE nIDNo = +1 AND nIDNo > -1"},
        {"SELECT count(*) + 1 FROM STAFF", "SELECT count(*) + 1 FROM STAFF"},
        {"SELECT (cName) + (cName) FROM STAFF", "SELECT (cName) || (cName) FROM STAFF"},
    };
    checkAll(kRows);
}

TEST_CASE("0x values become binary literals of whole bytes")
{
    static constexpr TranslationRow kRows[] = {
        {"UPDATE MAP set bAddr1 = 0x00", "UPDATE MAP set bAddr1 = x'00'"},
        {"INSERT INTO MAP (bAddr1)VALUES (       0xFFd8, 0x00,0x)",
         "INSERT INTO MAP (bAddr1)VALUES (       x'FFd8', x'00',x'')"},
        {"SELECT 0xABC", "SELECT x'0ABC'"},
        {"SELECT '0x00'", "SELECT '0x00'"},
    };
    checkAll(kRows);
}

TEST_CASE("GetDate in any case is the local time")
{
    static constexpr TranslationRow kRows[] = {
        {"UPDATE STAFF set x = GetDate()", "UPDATE STAFF set x = datetime('now','localtime')"},
        {"INSERT INTO STAFF (x) VALUES (     getdate())",
         "INSERT INTO STAFF (x) VALUES (     datetime('now','localtime'))"},
        {"SELECT 'GetDate()'", "SELECT 'GetDate()'"},
    };
    checkAll(kRows);
}

TEST_CASE("a date literal compared with a date column has the column's format")
{
    static constexpr TranslationRow kRows[] = {
        {"SELECT 1 FROM RIYOUSHA WHERE tExpireDay >= '2024/5/1'",
         "SELECT 1 FROM RIYOUSHA WHERE tExpireDay >= '2024-05-01'"},
        {"SELECT 1 FROM RIYOUSHA WHERE tExpireDay < '20240501'",
         "SELECT 1 FROM RIYOUSHA WHERE tExpireDay < '2024-05-01'"},
        {"SELECT 1 FROM RIYOUSHA WHERE tExpireDay > '2024-05-01'",
         "SELECT 1 FROM RIYOUSHA WHERE tExpireDay > '2024-05-01 00:00:00.000'"},
        {"SELECT 1 FROM RIYOUSHA WHERE tExpireDay <= '2024/05/01 9:30:15'",
         "SELECT 1 FROM RIYOUSHA WHERE tExpireDay <= '2024-05-01 09:30:15.000'"},
        {"SELECT 1 FROM RIYOUSHA WHERE tExpireDay = '2024/05/01'",
         "SELECT 1 FROM RIYOUSHA WHERE tExpireDay BETWEEN '2024-05-01' AND '2024-05-01 00:00:00.000'"},
        {"SELECT 1 FROM RIYOUSHA WHERE tExpireDay <> '2024/05/01'",
         "SELECT 1 FROM RIYOUSHA WHERE tExpireDay NOT BETWEEN '2024-05-01' AND '2024-05-01 00:00:00.000'"},
        {"SELECT 1 FROM RIYOUSHA WHERE '2024/05/01' <= tExpireDay",
         "SELECT 1 FROM RIYOUSHA WHERE tExpireDay >= '2024-05-01'"},
        {"SELECT 1 FROM RIYOUSHA WHERE tExpireDay !< '2024/05/01'",
         "SELECT 1 FROM RIYOUSHA WHERE tExpireDay >= '2024-05-01'"},
        {"SELECT 1 FROM RIYOUSHA WHERE tExpireDay BETWEEN '2024/05/01' AND '2024/05/31'",
         "SELECT 1 FROM RIYOUSHA WHERE tExpireDay BETWEEN '2024-05-01' AND '2024-05-31 00:00:00.000'"},
        {"SELECT 1 FROM RIYOUSHA WHERE tExpireDay NOT IN ('2024/05/01', NULL)",
         "SELECT 1 FROM RIYOUSHA WHERE tExpireDay NOT IN ('2024-05-01', '2024-05-01 00:00:00', '2024-05-01 00:00:00.000', NULL)"},
        {"SELECT 1 FROM JISSEKI j1 WHERE j1.tStart >=  '2024/05/01' ",
         "SELECT 1 FROM JISSEKI j1 WHERE j1.tStart >=  '2024-05-01'"},
        {"SELECT 1 FROM JISSEKI AS j WHERE J.TSTART >= N'2024/05/01'",
         "SELECT 1 FROM JISSEKI AS j WHERE J.TSTART >= '2024-05-01'"},
        {"SELECT 1 FROM [JISSEKI] j WHERE j.[tStart] >= '2024/05/01'",
         "SELECT 1 FROM [JISSEKI] j WHERE j.[tStart] >= '2024-05-01'"},
        {"SELECT max(tStart) FROM JISSEKI HAVING max(tStart) < '2024/05/01'",
         "SELECT max(tStart) FROM JISSEKI HAVING max(tStart) < '2024-05-01'"},
        {"SELECT 1 FROM JISSEKI j1 WHERE j1.tStart = (select max(tStart) from JISSEKI j2 where j1.nID = j2.nID)",
         "SELECT 1 FROM JISSEKI j1 WHERE j1.tStart = (select max(tStart) from JISSEKI j2 where j1.nID = j2.nID) COLLATE ININ_DATE"},
    };
    checkAll(kRows);
}

TEST_CASE("the columns of a table are read once, for the first statement that names it")
{
    std::vector<std::string> read;
    const SqlSchema lazy([&read](const std::string &table) {
        read.push_back(table);
        return SqlSchema::Columns{{"td", ColumnKind::date}};
    });
    const std::string sql = "SELECT 1 FROM P WHERE tD = '2024/5/1'";
    const std::string first = translateSql(sql, lazy).text;
    CHECK(first.find("'2024-05-01'") != std::string::npos);
    CHECK(translateSql(sql, lazy).text == first);
    CHECK(read == std::vector<std::string>{"p"});
}

TEST_CASE("a qualifier is an alias or table of its own FROM, regardless of other tables in the database")
{
    SqlSchema made;
    made.add("P", "nIDNo", "INTEGER");
    made.add("P", "tD", "DATETIME");
    for (const char *table : {"A", "S1", "J1", "DANTAICORP"}) made.add(table, "tD", "TEXT");
    const auto isDate = [&made](const std::string &sql) {
        CAPTURE(sql);
        const Translation translation = translateSql(sql, made);
        CHECK(translation.problem == "");
        const bool asDate = translation.text.find("'2024-05-01'") != std::string::npos;
        CHECK(asDate == (translation.text.find("'2024/5/1' COLLATE ININ_JA") == std::string::npos));
        return asDate;
    };
    // An alias hides the table of the same name.
    CHECK(isDate("SELECT a.nIDNo FROM P a WHERE a.tD>='2024/5/1'"));
    CHECK(isDate("SELECT S1.nIDNo FROM P AS S1 WHERE S1.tD>='2024/5/1'"));
    CHECK(isDate("SELECT 1 FROM A x, P J1 WHERE J1.tD>='2024/5/1'"));
    CHECK_FALSE(isDate("SELECT 1 FROM A x, P J1 WHERE x.tD>='2024/5/1'"));
    CHECK(isDate("SELECT 1 FROM A x LEFT JOIN P DANTAICORP ON DANTAICORP.tD>='2024/5/1'"));
    CHECK(isDate("SELECT 1 FROM A x INNER JOIN S1 y ON x.tD = y.tD, P a WHERE a.tD>='2024/5/1'"));
    CHECK_FALSE(isDate("SELECT 1 FROM A P, P A WHERE P.tD>='2024/5/1'"));
    CHECK(isDate("SELECT 1 FROM A P, P A WHERE A.tD>='2024/5/1'"));
    CHECK(isDate("SELECT 1 FROM (P a INNER JOIN S1 b ON a.nIDNo = b.nIDNo) WHERE a.tD>='2024/5/1'"));
    CHECK(isDate("SELECT 1 FROM main.P a WHERE a.tD>='2024/5/1'"));
    // A column or a text with the name of a table is not a table.
    CHECK(isDate("SELECT x.A, A, 'A' FROM P x WHERE tD>='2024/5/1'"));
    CHECK(isDate("SELECT x.A tD FROM P x WHERE A.tD>='2024/5/1'"));
    // An inner SELECT has its own names and those of the outer ones.
    CHECK(isDate("SELECT 1 FROM A x WHERE EXISTS (SELECT 1 FROM P x WHERE x.tD>='2024/5/1')"));
    CHECK_FALSE(isDate("SELECT 1 FROM A x WHERE EXISTS (SELECT 1 FROM P x) AND x.tD>='2024/5/1'"));
    CHECK(isDate("SELECT 1 FROM A x WHERE x.tD IN (SELECT tD FROM P WHERE tD>='2024/5/1')"));
    CHECK_FALSE(isDate("SELECT 1 FROM A x WHERE EXISTS (SELECT 1 FROM P y WHERE x.tD>='2024/5/1')"));
    CHECK(isDate("SELECT x.tD FROM (SELECT P.tD FROM P) x WHERE x.tD>='2024/5/1'"));
    CHECK_FALSE(isDate("SELECT 1 FROM P x UNION SELECT 1 FROM A x WHERE x.tD>='2024/5/1'"));
    CHECK(isDate("SELECT 1 FROM A x UNION SELECT 1 FROM P x WHERE x.tD>='2024/5/1'"));
    // UPDATE and INSERT name their table without FROM.
    CHECK(isDate("UPDATE P SET nIDNo = 1 WHERE P.tD>='2024/5/1'"));
    CHECK(isDate("DELETE FROM P WHERE tD>='2024/5/1'"));
}

TEST_CASE("a date literal stored in a date column has the stored format")
{
    static constexpr TranslationRow kRows[] = {
        {"UPDATE RIYOUSHA set tExpireDay =  '2024/5/1', cName = '2024/5/1' where tExpireDay = '2024/5/1'",
         "UPDATE RIYOUSHA set tExpireDay =  '2024-05-01 00:00:00', cName = '2024/5/1' where tExpireDay BETWEEN '2024-05-01' AND '2024-05-01 00:00:00.000'"},
        {" insert into RIYOUSHA (nIDNo,tExpireDay,cName)values( 1,'2024/5/1 9:30:15','2024/5/1' ) ",
         " insert into RIYOUSHA (nIDNo,tExpireDay,cName)values( 1,'2024-05-01 09:30:15','2024/5/1' )"},
        {"INSERT INTO JISSEKI VALUES (1, '2024/5/1'), (2, Null)",
         "INSERT INTO JISSEKI VALUES (1, '2024-05-01 00:00:00'), (2, Null)"},
        {"INSERT JISSEKI (tStart) SELECT '2024/5/1'", "INSERT JISSEKI (tStart) SELECT '2024/5/1'"},
    };
    checkAll(kRows);
}

TEST_CASE("a date compared with a text column, or within a text, is unchanged")
{
    static constexpr TranslationRow kRows[] = {
        {"SELECT 1 FROM 療養費単価 WHERE cStartDate <= '2024/05/01'",
         "SELECT 1 FROM 療養費単価 WHERE cStartDate <= '2024/05/01' COLLATE ININ_JA"},
        {"SELECT 1 FROM STAFF WHERE cName LIKE '2024/05/01'", "SELECT 1 FROM STAFF WHERE cName LIKE '2024/05/01'"},
        {"SELECT 1 FROM RIYOUSHA WHERE ('2024/05' <= SUBSTRING(CONVERT(VARCHAR, tExpireDay, 111),1,7))",
         "SELECT 1 FROM RIYOUSHA WHERE ('2024/05' <= SUBSTRING(inin_date_text(tExpireDay, 111),1,7) COLLATE ININ_JA)"},
        {"SELECT '2024/05/01'", "SELECT '2024/05/01'"},
        {"SELECT 1 FROM STAFF WHERE nIDNo = '20240501'", "SELECT 1 FROM STAFF WHERE nIDNo = '20240501'"},
    };
    checkAll(kRows);
}

TEST_CASE("texts compare and sort under the server's collation, numbers and keys without it")
{
    static constexpr TranslationRow kRows[] = {
        {"SELECT 1 FROM STAFF WHERE nIDNo != 5 AND cName = '山田' ",
         "SELECT 1 FROM STAFF WHERE nIDNo != 5 AND cName = '山田' COLLATE ININ_JA"},
        {"SELECT 1 FROM RIYOUSHA, HOKENJA WHERE HOKENJA.cIDno = RIYOUSHA.cHokenNo ",
         "SELECT 1 FROM RIYOUSHA, HOKENJA WHERE HOKENJA.cIDno = RIYOUSHA.cHokenNo COLLATE ININ_JA"},
        {"SELECT 1 FROM STAFF WHERE cName IN ('a','b')",
         "SELECT 1 FROM STAFF WHERE cName COLLATE ININ_JA IN ('a','b')"},
        {"SELECT 1 FROM STAFF WHERE cName BETWEEN 'a' AND 'b'",
         "SELECT 1 FROM STAFF WHERE cName COLLATE ININ_JA BETWEEN 'a' AND 'b'"},
        {"SELECT 1 FROM STAFF WHERE cName = 'a' + 'b'",
         "SELECT 1 FROM STAFF WHERE cName = ('a' || 'b') COLLATE ININ_JA"},
        {"SELECT 1 FROM STAFF ORDER BY cName DESC, nIDNo",
         "SELECT 1 FROM STAFF ORDER BY cName COLLATE ININ_JA DESC, nIDNo"},
        {"SELECT 1 FROM STAFF WHERE nIDNo = 5 AND nIDNo >= 0", "SELECT 1 FROM STAFF WHERE nIDNo = 5 AND nIDNo >= 0"},
        {"SELECT 1 FROM STAFF ORDER BY cName + 'x'", "SELECT 1 FROM STAFF ORDER BY (cName || 'x') COLLATE ININ_JA"},
        {"SELECT cName, max(nIDNo) FROM STAFF GROUP BY cName HAVING nIDNo > 1",
         "SELECT cName, max(nIDNo) FROM STAFF GROUP BY cName COLLATE ININ_JA HAVING nIDNo > 1"},
        {"SELECT DISTINCT cName, nIDNo FROM STAFF", "SELECT DISTINCT cName COLLATE ININ_JA AS cName, nIDNo FROM STAFF"},
        {"SELECT DISTINCT s.[cName], s.cName n, cName AS [m], LEFT(cName,1), 'a' FROM STAFF s",
         "SELECT DISTINCT s.[cName] COLLATE ININ_JA AS [cName], s.cName COLLATE ININ_JA n, cName COLLATE ININ_JA AS [m], inin_left(cName,1) COLLATE ININ_JA, 'a' FROM STAFF s"},
        {"SELECT min(cName), count(DISTINCT cName) FROM STAFF",
         "SELECT min(cName COLLATE ININ_JA), count(DISTINCT cName COLLATE ININ_JA) FROM STAFF"},
        {"SELECT CASE cName WHEN 'a' THEN 1 END FROM STAFF",
         "SELECT CASE cName COLLATE ININ_JA WHEN 'a' THEN 1 END FROM STAFF"},
        {"SELECT CASE nIDNo WHEN 1 THEN 'a' END FROM STAFF", "SELECT CASE nIDNo WHEN 1 THEN 'a' END FROM STAFF"},
        {"SELECT (CASE WHEN nIDNo = 1 THEN cName ELSE '' END) as x FROM STAFF",
         "SELECT (CASE WHEN nIDNo = 1 THEN cName ELSE '' END) as x FROM STAFF"},
        {"UPDATE STAFF set cName = 'a' where cName = 'b'",
         "UPDATE STAFF set cName = 'a' where cName = 'b' COLLATE ININ_JA"},
        {"SELECT ISNULL(cName, '') FROM STAFF WHERE ISNULL(cName,'') = ''",
         "SELECT IFNULL(cName, '') FROM STAFF WHERE IFNULL(cName,'') = '' COLLATE ININ_JA"},
    };
    checkAll(kRows);
}

TEST_CASE("LIKE and its pattern are unchanged, as its function applies the collation")
{
    static constexpr TranslationRow kRows[] = {
        {"SELECT 1 FROM STAFF WHERE cName LIKE '%ﾔﾏﾀﾞ%' AND nIDNo LIKE '1_'",
         "SELECT 1 FROM STAFF WHERE cName LIKE '%ﾔﾏﾀﾞ%' AND nIDNo LIKE '1_'"},
        {"SELECT 1 FROM STAFF WHERE cName not like N'[0-9]%'", "SELECT 1 FROM STAFF WHERE cName not like '[0-9]%'"},
        {"SELECT 1 FROM STAFF WHERE cName LIKE '%!%%' ESCAPE '!'",
         "SELECT 1 FROM STAFF WHERE cName LIKE '%!%%' ESCAPE '!'"},
        {"SELECT 1 FROM STAFF WHERE cName LIKE '%' + '山' + '%'",
         "SELECT 1 FROM STAFF WHERE cName LIKE '%' || '山' || '%'"},
    };
    checkAll(kRows);
}

TEST_CASE("a quoted text is unchanged, whatever it contains")
{
    static constexpr TranslationRow kRows[] = {
        {"SELECT 'LEFT(a,1) + 0xFF /* x */ -- y [z] \"w\" ''v''; TOP 1'",
         "SELECT 'LEFT(a,1) + 0xFF /* x */ -- y [z] \"w\" ''v''; TOP 1'"},
        {"SELECT N'山田'", "SELECT '山田'"},
        {"SELECT [a]]b], [c\"d], [e]]f\"g]", "SELECT \"a]b\", [c\"d], \"e]f\"\"g\""},
        {"SELECT x'41'", "SELECT x '41'"},
        {"SELECT 1FROM STAFF", "SELECT 1 FROM STAFF"},
    };
    checkAll(kRows);
}

TEST_CASE("comments are not passed to SQLite")
{
    static constexpr TranslationRow kRows[] = {
        {"SELECT/* a /* b */ c */1 -- d\n, 2", "SELECT 1 , 2"},
        {"SELECT 1 -- '", "SELECT 1"},
    };
    checkAll(kRows);
}

TEST_CASE("a quoted text that is not a date cannot be compared with a date column")
{
    CHECK(translateSql("SELECT 1 FROM RIYOUSHA WHERE tExpireDay >= '令和6年5月1日'", schema()).problem ==
          "'令和6年5月1日' is not a date and time");
    CHECK(translateSql("SELECT 1 FROM RIYOUSHA WHERE tExpireDay BETWEEN '2024/13/01' AND '2024/05/01'", schema())
              .problem == "'2024/13/01' is not a date and time");
    CHECK(translateSql("SELECT 1 FROM RIYOUSHA WHERE tExpireDay IN ('x')", schema()).problem ==
          "'x' is not a date and time");
    CHECK(translateSql("UPDATE RIYOUSHA SET tExpireDay = 'x'", schema()).problem == "'x' is not a date and time");
}

TEST_CASE("a text with invalid tokens is reported and not translated")
{
    CHECK(translateSql("SELECT 'a", schema()).problem == "the quoted text or name has no end");
    CHECK(translateSql("SELECT [a", schema()).problem == "the quoted text or name has no end");
    CHECK(translateSql("SELECT 1 /* a", schema()).problem == "the comment has no end");
    CHECK(translateSql("SELECT `a`", schema()).problem == "a character that no statement holds");
    CHECK(translateSql("SELECT ?", schema()).problem == "a value for a parameter is missing");
    CHECK(translateSql("SELECT :a", schema()).problem == "a value for a parameter is missing");
    CHECK(translateSql("SELECT @a", schema()).problem == "a value for a parameter is missing");
    CHECK(translateSql("SELECT $a", schema()).problem == "a value for a parameter is missing");
    CHECK(translateSql("SELECT " + std::string(150, '(') + "1" + std::string(150, ')'), schema()).problem ==
          "the statement is nested too deeply");
}

TEST_CASE("a single SELECT is distinguished from everything else")
{
    for (const char *sql : {"SELECT 1", "select * from STAFF;", "SELECT 1 -- x", "/* a */ SELECT 1 ; /* b */",
                            "WITH a AS (SELECT 1 x) SELECT x FROM a", "SELECT 1 UNION ALL SELECT 2",
                            "SELECT 'x; DELETE FROM STAFF'", "SELECT [update] FROM STAFF", "SELECT a.[delete] FROM a",
                            "SELECT (SELECT 1)", "SELECT 1 WHERE EXISTS (SELECT 1)", "SELECT replace('a','b','c')"}) {
        CAPTURE(sql);
        CHECK(isSingleSelect(sql));
    }
    for (const char *sql : {"",
                            "  ",
                            "-- x",
                            ";",
                            "DELETE FROM STAFF",
                            "SELECT 1; DELETE FROM STAFF",
                            "SELECT 1; SELECT 2",
                            "SELECT 1 SELECT 2",
                            "SELECT 1 DELETE FROM STAFF",
                            "SELECT 1 /* */ UPDATE STAFF SET a = 1",
                            "WITH a AS (SELECT 1 x) INSERT INTO STAFF SELECT x FROM a",
                            "WITH a AS (DELETE FROM STAFF) SELECT 1",
                            "SELECT * INTO x FROM STAFF",
                            "PRAGMA user_version",
                            "ATTACH 'x' AS y",
                            "EXPLAIN SELECT 1",
                            "VALUES (1)",
                            "(SELECT 1)",
                            "SELECT (1",
                            "SELECT 1)",
                            "SELECT 'x",
                            "EXEC x",
                            "SELECT 1 EXEC x",
                            "BEGIN TRAN",
                            "WITH a AS (SELECT 1 x)"}) {
        CAPTURE(sql);
        CHECK_FALSE(isSingleSelect(sql));
    }
}

TEST_CASE("the declared type determines the kind of a column")
{
    CHECK(kindOfDeclaredType("DATETIME") == ColumnKind::date);
    CHECK(kindOfDeclaredType("smalldatetime") == ColumnKind::date);
    CHECK(kindOfDeclaredType("Date") == ColumnKind::date);
    CHECK(kindOfDeclaredType("NVARCHAR(50)") == ColumnKind::text);
    CHECK(kindOfDeclaredType("TEXT") == ColumnKind::text);
    CHECK(kindOfDeclaredType("INTEGER") == ColumnKind::number);
    CHECK(kindOfDeclaredType("DECIMAL(19,4)") == ColumnKind::number);
    CHECK(kindOfDeclaredType("VARBINARY(MAX)") == ColumnKind::binary);
    CHECK(kindOfDeclaredType("image") == ColumnKind::binary);
    CHECK(kindOfDeclaredType("") == ColumnKind::unknown);
}
