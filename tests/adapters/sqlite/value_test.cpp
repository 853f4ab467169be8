#include "adapters/sqlite/database_file.h"

#include <doctest/doctest.h>

#include <string>
#include <string_view>

using namespace inin;
using namespace inin::sqlite;

namespace {

struct ValueRow {
    std::string_view declared, written, shown;
    std::int32_t type; ///< ADO's code
};

constexpr std::int32_t kSmallInt = 2, kInteger = 3, kDouble = 5, kDateTime = 135, kText = 202, kBinary = 204;

} // namespace

TEST_CASE("a value has its own type, and its field the declared type of the column")
{
    static constexpr ValueRow kRows[] = {
        {"INTEGER", "12", "12", kInteger},
        {"INTEGER", "-2147483648", "-2147483648", kInteger},
        {"INTEGER", "2147483648", "2147483648", kInteger}, // beyond 32 bits it is a double
        {"INTEGER", "NULL", "NULL", kInteger},
        {"SMALLINT", "7", "7", kSmallInt},
        {"TINYINT", "7", "7", kSmallInt},
        {"REAL", "2.5", "2.5", kDouble},
        {"DECIMAL(19,4)", "0.1", "0.1", kDouble},
        {"FLOAT", "NULL", "NULL", kDouble},
        {"TEXT", "'山田'", "山田", kText},
        {"NVARCHAR(50)", "''", "", kText},
        {"TEXT", "NULL", "NULL", kText},
        {"TEXT", "'2024-05-01'", "2024-05-01", kText}, // a text, despite its format
        {"TEXT", "12", "12", kText},
        {"DATETIME", "'2024-05-01 10:30:15'", "<2024-05-01 10:30:15>", kDateTime},
        {"DATETIME", "'2024-05-01'", "<2024-05-01 00:00:00>", kDateTime},
        {"DATETIME", "NULL", "NULL", kDateTime},
        {"DATETIME", "'不明'", "不明", kDateTime},
        {"DATETIME", "'2024/05/01'", "2024/05/01", kDateTime},
        {"BLOB", "x'00FF'", "0x00FF", kBinary},
        {"BLOB", "x''", "0x", kBinary},
        {"IMAGE", "NULL", "NULL", kBinary},
        {"INTEGER", "'abc'", "abc", kInteger}, // the conversion of the caller fails
        {"INTEGER", "'１２'", "１２", kInteger},
        {"INTEGER", "'12'", "12", kInteger},
    };
    for (const ValueRow &row : kRows) {
        CAPTURE(row.declared);
        CAPTURE(row.written);
        const DatabaseFile file("CREATE TABLE T (x " + std::string(row.declared) + "); INSERT INTO T VALUES (" +
                                std::string(row.written) + ")");
        Session session(file);
        const auto rows = session.open("SELECT x FROM T");
        CHECK(shown(rows->Value(0)) == row.shown);
        CHECK(rows->fieldType(0) == row.type);
    }
}

TEST_CASE("a number of more than 32 bits is a double, and a smaller one an integer")
{
    const DatabaseFile file("CREATE TABLE T (a INTEGER, b INTEGER); INSERT INTO T VALUES (2147483647, 2147483648)");
    Session session(file);
    const auto rows = session.open("SELECT a, b FROM T");
    REQUIRE(rows->Value(0).getIf<std::int32_t>() != nullptr);
    REQUIRE(rows->Value(1).getIf<double>() != nullptr);
    CHECK(*rows->Value(1).getIf<double>() == 2147483648.0);
}

TEST_CASE("the type of an expression is that of its value")
{
    const DatabaseFile file("CREATE TABLE T (x INTEGER); INSERT INTO T VALUES (1)");
    Session session(file);
    const auto rows = session.open("SELECT 1 + 1, 1.5, 'a' + 'b', 0xFF, NULL, count(*) FROM T");
    const std::int32_t types[] = {kInteger, kDouble, kText, kBinary, kText, kInteger};
    for (std::size_t index = 0; index < rows->fieldCount(); ++index) {
        CAPTURE(index);
        CHECK(rows->fieldType(index) == types[index]);
    }
    CHECK(shown(rows->Value(2)) == "ab");
}

TEST_CASE("a date expression is a date, even next to a *")
{
    const DatabaseFile file("CREATE TABLE T (n INTEGER, t DATETIME, c TEXT);"
                            "INSERT INTO T VALUES (1, '2024-05-01 10:30:15', '2024-05-01'), (2, NULL, NULL)");
    Session session(file);
    const std::string shownDate = "<2024-05-01 10:30:15>";
    for (const char *item : {"max(t)", "MIN(t)", "(t)", "ISNULL(t, GetDate())", "CASE WHEN n = 1 THEN t ELSE NULL END",
                             "(SELECT max(t) FROM T)", "CASE n WHEN 1 THEN t ELSE '' END AS d"}) {
        CAPTURE(item);
        const auto rows = session.open(std::string("SELECT ") + item + " FROM T");
        CHECK(shown(rows->Value(0)) == shownDate);
        CHECK(rows->fieldType(0) == kDateTime);
    }
    const auto rows = session.open("SELECT TOP 1 max(t), *, T.*, min(c), min(t), 'x' FROM T WHERE n = 1");
    REQUIRE(rows->fieldCount() == 10);
    CHECK(shown(rows->Value(0)) == shownDate);
    CHECK(shown(rows->Value(3)) == "2024-05-01"); // from the *
    CHECK(shown(rows->Value(7)) == "2024-05-01");
    CHECK(rows->fieldType(7) == kText);
    CHECK(shown(rows->Value(8)) == shownDate);
    CHECK(shown(rows->Value(9)) == "x");
    CHECK(session.open("SELECT GetDate()")->Value(0).getIf<Date>() != nullptr);
    CHECK(session.value("SELECT ISNULL(t, '2024/5/2') FROM T WHERE n = 2") == "<2024-05-02 00:00:00>");
    CHECK(session.value("SELECT CONVERT(VARCHAR, max(t), 111) FROM T") == "2024/05/01");
    CHECK(session.value("SELECT max(c) FROM T") == "2024-05-01"); // a text, despite its format
    CHECK(session.value("SELECT n FROM T WHERE CASE n WHEN 1 THEN t END >= '2024/5/1'") == "1");
}

TEST_CASE("a text with a NUL is read completely, and invalid UTF-8 as replacement characters")
{
    const DatabaseFile file("CREATE TABLE T (x TEXT);"
                            "INSERT INTO T VALUES ('a' || char(0) || 'b'), (CAST(x'61FF' AS TEXT))");
    Session session(file);
    const auto rows = session.open("SELECT x FROM T");
    CHECK(shown(rows->Value(0)) == std::string("a\0b", 3));
    rows->MoveNext();
    CHECK(shown(rows->Value(0)) == "a\uFFFD");
}

TEST_CASE("LEFT counts UTF-16 units, keeps characters whole and refuses a negative length")
{
    const DatabaseFile file("CREATE TABLE T (x TEXT, n INTEGER); INSERT INTO T VALUES ('山田𠮷野', 12345)");
    Session session(file);
    CHECK(session.value("SELECT LEFT(x, 2) FROM T") == "山田");
    CHECK(session.value("SELECT LEFT(x, 3) FROM T") == "山田");
    CHECK(session.value("SELECT LEFT(x, 4) FROM T") == "山田𠮷");
    CHECK(session.value("SELECT LEFT(x, 99) FROM T") == "山田𠮷野");
    CHECK(session.value("SELECT LEFT(n, 2) FROM T") == "12");
    CHECK(session.value("SELECT LEFT(NULL, 2) FROM T") == "NULL");
    CHECK(raisedBy([&] { (void)session.value("SELECT LEFT(x, -1) FROM T"); }).number == ado_error::faultyStatement);
}

TEST_CASE("SUBSTRING counts from 1, and a smaller start shortens the result")
{
    const DatabaseFile file("CREATE TABLE T (x TEXT); INSERT INTO T VALUES ('2024/05/01')");
    Session session(file);
    CHECK(session.value("SELECT SUBSTRING(x, 1, 4) FROM T") == "2024");
    CHECK(session.value("SELECT SUBSTRING(x, 6, 2) FROM T") == "05");
    CHECK(session.value("SELECT SUBSTRING(x, 0, 3) FROM T") == "20");
    CHECK(session.value("SELECT SUBSTRING(x, -5, 3) FROM T") == "");
    CHECK(session.value("SELECT SUBSTRING(x, 20, 3) FROM T") == "");
    CHECK(session.value("SELECT SUBSTRING(NULL, 1, 3) FROM T") == "NULL");
    CHECK(raisedBy([&] { (void)session.value("SELECT SUBSTRING(x, 1, -1) FROM T"); }).number ==
          ado_error::faultyStatement);
}
