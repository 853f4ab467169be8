#include "adapters/sqlite/sql_shape.h"

#include <doctest/doctest.h>

#include <string>
#include <string_view>
#include <vector>

using namespace inin;

TEST_CASE("statements that differ only in compared numbers have the same shape")
{
    const SqlShape one =
        shapeOf(tokenizeSql("SELECT * FROM SCHEDULE WHERE nIDRiyoushaNo = 7 AND nDate BETWEEN 20240500 AND 20240599"));
    const SqlShape other =
        shapeOf(tokenizeSql("SELECT * FROM SCHEDULE WHERE nIDRiyoushaNo = 31 AND nDate BETWEEN 20240600 AND 20240699"));
    CHECK(one.key == "SELECT * FROM SCHEDULE WHERE nIDRiyoushaNo = ?1 AND nDate BETWEEN ?2 AND ?3");
    CHECK(other.key == one.key);
    CHECK(one.numbers == std::vector<std::int64_t>{7, 20240500, 20240599});
    CHECK(other.numbers == std::vector<std::int64_t>{31, 20240600, 20240699});
}

TEST_CASE("a number that is not compared remains in the shape")
{
    struct Row {
        std::string_view sql;
    };
    static constexpr Row kRows[] = {
        {"SELECT TOP 1 a FROM t"},         {"SELECT a FROM t ORDER BY 2"},
        {"SELECT LEFT(a, 3) FROM t"},      {"SELECT a FROM t WHERE a = 1.5"},
        {"SELECT a FROM t WHERE a = -5"},  {"SELECT a FROM t WHERE a IN (1, 2)"},
        {"SELECT a FROM t WHERE a = '5'"}, {"SELECT a FROM t WHERE a = 12345678901234567890"}};
    for (const Row &row : kRows) {
        CAPTURE(row.sql);
        const SqlShape shape = shapeOf(tokenizeSql(row.sql));
        CHECK(shape.key == row.sql);
        CHECK(shape.numbers.empty());
    }
}

TEST_CASE("a shape has at most sixteen parameters")
{
    std::string sql = "SELECT a FROM t WHERE a = 0";
    for (int i = 1; i < 20; ++i) sql += " OR a = " + std::to_string(i);
    const SqlShape shape = shapeOf(tokenizeSql(sql));
    CHECK(shape.numbers.size() == 16);
    CHECK(shape.key.find("OR a = ?16 OR a = 16 OR a = 17") != std::string::npos);
}
