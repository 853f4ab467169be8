#include "runtime/conversion.h"

#include "support/errors.h"
#include "support/regional.h"

#include <doctest/doctest.h>

#include <limits>
#include <ostream>
#include <string_view>

namespace inin {
namespace {

TEST_CASE("halves round to the nearest even number")
{
    struct Row {
        double value;
        std::int16_t expected;
    };
    const Row rows[] = {{0.5, 0},   {1.5, 2},   {2.5, 2},  {3.5, 4},       {-0.5, 0},
                        {-1.5, -2}, {-2.5, -2}, {2.51, 3}, {2.4999999, 2}, {-2.51, -3}};
    for (const Row &row : rows) {
        CAPTURE(row.value);
        CHECK(toInteger(row.value) == row.expected);
        CHECK(toLong(row.value) == row.expected);
    }
}

TEST_CASE("a number outside 16 or 32 bits overflows after rounding")
{
    CHECK(toInteger(32767.4) == 32767);
    CHECK(errorOf([] { return toInteger(32767.5); }) == 6);
    CHECK(toInteger(-32768.5) == -32768);
    CHECK(errorOf([] { return toInteger(-32769.0); }) == 6);
    CHECK(toLong(2147483647.4) == 2147483647);
    CHECK(errorOf([] { return toLong(2147483648.0); }) == 6);
    CHECK(toLong(-2147483648.5) == std::numeric_limits<std::int32_t>::min());
    CHECK(errorOf([] { return toLong(-2147483649.0); }) == 6);
}

TEST_CASE("infinity and NaN overflow")
{
    CHECK(errorOf([] { return toLong(std::numeric_limits<double>::infinity()); }) == 6);
    CHECK(errorOf([] { return toLong(std::numeric_limits<double>::quiet_NaN()); }) == 6);
}

TEST_CASE("narrowing to 16 bits refuses larger numbers")
{
    CHECK(narrow(32767) == 32767);
    CHECK(narrow(-32768) == -32768);
    CHECK(errorOf([] { return narrow(32768); }) == 6);
    CHECK(errorOf([] { return narrow(-32769); }) == 6);
}

TEST_CASE("Null where a value is required is error 94")
{
    const Variant null(Null{});
    CHECK(errorOf([&] { return toInteger(null); }) == 94);
    CHECK(errorOf([&] { return toLong(null); }) == 94);
    CHECK(errorOf([&] { return toDouble(null); }) == 94);
    CHECK(errorOf([&] { return toText(null, kRegional); }) == 94);
    CHECK(errorOf([&] { return toDate(null, kRegional); }) == 94);
}

TEST_CASE("bytes do not convert to another type")
{
    const Variant bytes(Binary{std::byte{1}});
    CHECK(errorOf([&] { return toInteger(bytes); }) == 13);
    CHECK(errorOf([&] { return toLong(bytes); }) == 13);
    CHECK(errorOf([&] { return toDouble(bytes); }) == 13);
    CHECK(errorOf([&] { return toText(bytes, kRegional); }) == 13);
    CHECK(errorOf([&] { return toDate(bytes, kRegional); }) == 13);
}

TEST_CASE("Empty converts to 0, to the empty text and to the zero day")
{
    CHECK(toInteger(Variant()) == 0);
    CHECK(toLong(Variant()) == 0);
    CHECK(toDouble(Variant()) == 0);
    CHECK(toText(Variant(), kRegional).empty());
    CHECK(toDate(Variant(), kRegional) == Date(0));
}

TEST_CASE("a date converts to its number of days")
{
    CHECK(toLong(Variant(Date(45413.25))) == 45413);
    CHECK(toDouble(Variant(Date(45413.25))) == 45413.25);
    CHECK(errorOf([] { return toInteger(Variant(Date(45413))); }) == 6);
    CHECK(toInteger(Variant(Date(-1.5))) == -2);
}

TEST_CASE("a number converts to the date of its days, within the years 100 to 9999")
{
    CHECK(toDate(Variant(45413), kRegional) == Date(45413));
    CHECK(toDate(Variant(-657434.5), kRegional) == Date(-657434.5));
    CHECK(errorOf([] { return toDate(Variant(2958466), kRegional); }) == 6);
    CHECK(errorOf([] { return toDate(Variant(-657435), kRegional); }) == 6);
}

TEST_CASE("values have the runtime's default text")
{
    struct Row {
        Variant value;
        std::string_view text;
    };
    const Row rows[] = {
        {std::int16_t{-32768}, "-32768"},
        {2147483647, "2147483647"},
        {0, "0"},
        {-7, "-7"},
        {0.1, "0.1"},
        {-0.0, "0"},
        {1234567.5, "1234567.5"},
        {0.0001, "0.0001"},
        {0.00001, "1E-05"},
        {999999999999999.0, "999999999999999"},
        {1e15, "1E+15"},
        {-1.25e100, "-1.25E+100"},
        {" 委任状 ", " 委任状 "},
        {Date(45413), "2024/05/01"},
        {Date(45413.25), "2024/05/01 6:00:00"},
    };
    for (const Row &row : rows) {
        CAPTURE(row.text);
        CHECK(toText(row.value, kRegional) == row.text);
    }
}

TEST_CASE("infinity and NaN have a default text")
{
    CHECK(numberText(std::numeric_limits<double>::infinity()) == "1.#INF");
    CHECK(numberText(-std::numeric_limits<double>::infinity()) == "-1.#INF");
    CHECK(numberText(std::numeric_limits<double>::quiet_NaN()) == "1.#QNAN");
}

TEST_CASE("the default text of a date follows the short date format")
{
    struct Row {
        std::string_view shortDate;
        std::string_view text;
    };
    const Row rows[] = {
        {"yyyy/MM/dd", "2024/05/01 9:03:07"},           {"yy/MM/dd", "24/05/01 9:03:07"},
        {"dd/MM/yyyy", "01/05/2024 9:03:07"},           {"M/d/yyyy", "5/1/2024 9:03:07"},
        {"yyyy-MM-dd", "2024-05-01 9:03:07"},           {"d.M.yyyy", "1.5.2024 9:03:07"},
        {"yyyy'年'M'月'd'日'", "2024年5月1日 9:03:07"}, {"yyyy年M月d日", "2024年5月1日 9:03:07"},
    };
    for (const Row &row : rows) {
        CAPTURE(row.shortDate);
        CHECK(dateText(dateOf({2024, 5, 1, 9, 3, 7}), Regional{std::string(row.shortDate)}) == row.text);
    }
}

TEST_CASE("a short date format with an era writes the era and its year")
{
    struct Row {
        std::string_view shortDate;
        DateParts date;
        std::string_view text;
    };
    const Row rows[] = {
        {"ggyy/MM/dd", {2024, 5, 1}, "令和06/05/01"},
        {"gg y/M/d", {2024, 5, 1}, "令和 6/5/1"},
        {"ggyy年MM月dd日", {2019, 5, 1}, "令和01年05月01日"},
        {"ggy'年'M'月'd'日'", {2019, 4, 30}, "平成31年4月30日"},
        {"gg yy.MM.dd", {1989, 1, 7}, "昭和 64.01.07"},
        {"ggy/M/d", {1868, 1, 25}, "明治1/1/25"},
        {"ggy/M/d", {1868, 1, 24}, "1868/1/24"},
        {"ggyyyy/MM/dd", {2024, 5, 1}, "令和06/05/01"},
        {"dd/MM/yy gg", {2024, 5, 1}, "01/05/06 令和"},
        {"'gg' yy/M/d", {2024, 5, 1}, "gg 24/5/1"},
    };
    for (const Row &row : rows) {
        CAPTURE(row.text);
        CHECK(dateText(dateOf(row.date), Regional{std::string(row.shortDate)}) == row.text);
    }
}

TEST_CASE("the zero day is written as its time only")
{
    CHECK(dateText(Date(0), kRegional) == "0:00:00");
    CHECK(dateText(Date(0.5), kRegional) == "12:00:00");
    CHECK(dateText(Date(-0.5), kRegional) == "12:00:00");
}

TEST_CASE("converting a date outside the calendar to text is an invalid call")
{
    CHECK(errorOf([] { return toText(Variant(Date(1e10)), kRegional); }) == 5);
}

} // namespace
} // namespace inin
