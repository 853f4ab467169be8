// Types and NULLs, on PostgreSQL's driver.

#include "adapters/odbc/driver_stage.h"

#include <doctest/doctest.h>

using namespace inin;
using namespace inin::odbc;
using namespace inin::test;

namespace {

struct TypeRow {
    const char *expression;
    Variant value;
    std::int32_t adoType;
};

Date moment(std::int32_t year, std::int32_t month, std::int32_t day, std::int32_t hour = 0, std::int32_t minute = 0,
            std::int32_t second = 0)
{
    return dateOf({year, month, day, hour, minute, second});
}

Binary bytes(std::initializer_list<int> values)
{
    Binary result;
    for (const int value : values) result.push_back(static_cast<std::byte>(value));
    return result;
}

} // namespace

TEST_CASE("a value of each type arrives as the runtime's own type")
{
    const Session session(postgres() + ";BoolsAsChar=0");
    for (const TypeRow &row : {
             TypeRow{"CAST(-32768 AS smallint)", static_cast<std::int16_t>(-32768), 2},
             {"CAST(2147483647 AS integer)", std::int32_t{2147483647}, 3},
             {"CAST(7 AS bigint)", std::int32_t{7}, 20},
             {"CAST(9007199254740993 AS bigint)", 9007199254740992.0, 20},
             {"true", static_cast<std::int16_t>(-1), 11},
             {"false", static_cast<std::int16_t>(0), 11},
             {"CAST(0.1 AS real)", 0.1, 4},
             {"CAST(0.1 AS double precision)", 0.1, 5},
             {"CAST(-12345678901234.5678 AS numeric(19,4))", -12345678901234.5678, 131},
             {"CAST(0.5 AS numeric(5,2))", 0.5, 131},
             {"CAST('委任状' AS varchar(10))", "委任状", 202},
             {"CAST('ab' AS char(4))", "ab  ", 130},
             {"CAST('委' AS text)", "委", 203},
             {"TIMESTAMP '2024-06-28 10:30:15'", moment(2024, 6, 28, 10, 30, 15), 135},
             {"DATE '2024-06-28'", moment(2024, 6, 28), 133},
             {"DATE '1899-12-29'", Date(-1.0), 133},
             {"TIME '06:00:00'", Date(0.25), 134},
             {"CAST('\\x00ff10' AS bytea)", bytes({0, 255, 16}), 205},
             {"CAST('6f9619ff-8b86-d011-b42d-00c04fc964ff' AS uuid)", "{6F9619FF-8B86-D011-B42D-00C04FC964FF}", 72},
         }) {
        CAPTURE(row.expression);
        const auto rows = session.open(std::string("SELECT ") + row.expression + " AS a");
        CHECK((rows->Value(0) == row.value));
        CHECK(rows->fieldType(0) == row.adoType);
    }
}

TEST_CASE("a date keeps fractions of a second")
{
    const Session session(postgres());
    const Variant value = session.value("SELECT TIMESTAMP '2024-06-28 10:30:15.250' AS a");
    REQUIRE(value.getIf<Date>() != nullptr);
    CHECK(value.getIf<Date>()->days() == doctest::Approx(moment(2024, 6, 28, 10, 30, 15).days() + 0.25 / 86400));
    const Variant early = session.value("SELECT TIMESTAMP '1899-12-29 06:00:00.500' AS a");
    REQUIRE(early.getIf<Date>() != nullptr);
    CHECK(early.getIf<Date>()->days() == doctest::Approx(-1.25 - 0.5 / 86400));
}

TEST_CASE("a day before the runtime's calendar stays text")
{
    const Session session(postgres());
    CHECK(session.value("SELECT DATE '0044-03-15' AS a") == Variant("0044-03-15"));
}

TEST_CASE("NULL of each type is Null")
{
    const Session session(postgres() + ";BoolsAsChar=0");
    for (const char *type : {"smallint", "integer", "bigint", "boolean", "real", "double precision", "numeric(19,4)",
                             "varchar(10)", "char(4)", "text", "timestamp", "date", "time", "bytea", "uuid"}) {
        CAPTURE(type);
        CHECK(session.value(std::string("SELECT CAST(NULL AS ") + type + ") AS a").isNull());
    }
}

TEST_CASE("a block of bound columns mixes NULLs and values row by row")
{
    const Session session(postgres());
    const auto rows = session.open("SELECT n, CASE WHEN n % 3 = 0 THEN NULL ELSE CAST(n AS varchar(9)) END AS t"
                                   " FROM generate_series(1, 2000) AS n");
    for (std::int32_t n = 1; n <= 2000; ++n, rows->MoveNext()) {
        REQUIRE(rows->Value(0) == Variant(n));
        if (n % 3 == 0)
            REQUIRE(rows->Value(1).isNull());
        else
            REQUIRE(rows->Value(1) == Variant(std::to_string(n)));
    }
    CHECK(rows->isEndOfFile());
}

TEST_CASE("short binary values are fetched in blocks")
{
    const Session session(postgres() + ";ByteaAsLongVarBinary=0");
    const auto rows = session.open("SELECT CAST('\\x00ff10' AS bytea) AS a UNION ALL SELECT NULL UNION ALL SELECT ''");
    CHECK(rows->fieldType(0) == 204);
    CHECK((rows->Value(0) == Variant(bytes({0, 255, 16}))));
    rows->MoveNext();
    CHECK(rows->Value(0).isNull());
    rows->MoveNext();
    CHECK((rows->Value(0) == Variant(Binary())));
}

TEST_CASE("a picture of many pieces is complete")
{
    const Session session(postgres());
    const Variant value = session.value("SELECT decode(repeat('00ff7f0a0d', 30000), 'hex') AS a");
    REQUIRE(value.getIf<Binary>() != nullptr);
    CHECK(value.getIf<Binary>()->size() == 150000);
    CHECK((*value.getIf<Binary>())[149999] == std::byte{0x0d});
    CHECK((*value.getIf<Binary>())[149996] == std::byte{0xff});
}

TEST_CASE("rows kept in memory for a second statement have all types")
{
    const Session session(postgres());
    const auto rows = session.open("SELECT 1 AS a, 'x' AS b, DATE '2024-06-28' AS c, CAST(NULL AS text) AS d"
                                   " UNION ALL SELECT 2, 'y', NULL, '長い'");
    CHECK(session.value("SELECT 1") == Variant(std::int32_t{1}));
    CHECK(rows->Field("c") == Variant(moment(2024, 6, 28)));
    CHECK(rows->Field("d").isNull());
    rows->MoveNext();
    CHECK(rows->Field("c").isNull());
    CHECK(rows->Field("d") == Variant("長い"));
    rows->MoveNext();
    CHECK(rows->isEndOfFile());
}
