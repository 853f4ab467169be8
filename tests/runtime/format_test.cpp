#include "runtime/format.h"

#include "support/errors.h"
#include "support/regional.h"

#include <doctest/doctest.h>

#include <ostream>
#include <string_view>

namespace inin {
namespace {

struct DateRow {
    DateParts date;
    std::string_view pattern;
    std::string_view text;
};

void checkRows(std::span<const DateRow> rows)
{
    for (const DateRow &row : rows) {
        CAPTURE(row.pattern);
        CAPTURE(row.text);
        CHECK(formatText(dateOf(row.date), row.pattern, kRegional) == row.text);
    }
}

TEST_CASE("the program's date patterns write the named parts")
{
    const DateRow rows[] = {
        {{2024, 2, 29}, "yyyy/mm/dd", "2024/02/29"},
        {{2024, 12, 31}, "yyyy/mm/dd", "2024/12/31"},
        {{2024, 12, 31}, "yyyy/mm", "2024/12"},
        {{2024, 12, 31}, "yyyy/mm/1", "2024/12/1"},
        {{2005, 1, 9}, "yy/MM/dd", "05/01/09"},
        {{2024, 2, 29}, "yyyy", "2024"},
        {{2024, 2, 29, 9, 3, 7}, "hh:nn:ss", "09:03:07"},
        {{2024, 2, 29, 23, 59, 59}, "yyyy/mm/dd hh:nn:ss", "2024/02/29 23:59:59"},
    };
    checkRows(rows);
}

TEST_CASE("single pattern characters write parts without a leading zero")
{
    const DateRow rows[] = {
        {{2024, 2, 9}, "yyyy-m-d", "2024-2-9"},
        {{2024, 2, 9, 4, 5, 6}, "h:n:s", "4:5:6"},
        {{2024, 12, 31}, "y", "366"},
        {{2023, 3, 1}, "y", "60"},
    };
    checkRows(rows);
}

TEST_CASE("an m after the hour means minutes, elsewhere the month")
{
    const DateRow rows[] = {
        {{2024, 2, 9, 4, 5, 6}, "hh:mm", "04:05"},
        {{2024, 2, 9, 4, 5, 6}, "mm hh:mm:ss mm", "02 04:05:06 02"},
    };
    checkRows(rows);
}

TEST_CASE("pattern characters are not case-sensitive")
{
    const DateRow rows[] = {{{2024, 2, 9, 4, 5, 6}, "YYYY/MM/DD HH:NN:SS", "2024/02/09 04:05:06"}};
    checkRows(rows);
}

TEST_CASE("a year before 1000 is padded to four digits")
{
    const DateRow rows[] = {{{100, 1, 1}, "yyyy/mm/dd", "0100/01/01"}, {{105, 1, 1}, "yy", "05"}};
    checkRows(rows);
}

TEST_CASE("era patterns write the name, short name, initial and year of the era")
{
    const DateRow rows[] = {
        {{2024, 5, 1}, "gggee年 mm月", "令和06年 05月"},
        {{2024, 5, 1}, "ggg ee年mm月dd日", "令和 06年05月01日"},
        {{2024, 5, 1}, "ggg ee年mm月", "令和 06年05月"},
        {{2024, 5, 1}, "ggge年m月d日", "令和6年5月1日"},
        {{2024, 5, 1}, "gge.m.d", "令6.5.1"},
        {{2024, 5, 1}, "ge.m.d", "R6.5.1"},
        {{2028, 12, 31}, "ggge", "令和10"},
        {{2028, 12, 31}, "gggee", "令和10"},
    };
    checkRows(rows);
}

TEST_CASE("the first and last days of an era are written with its own year")
{
    const DateRow rows[] = {
        {{1868, 1, 25}, "ggg ee年mm月dd日", "明治 01年01月25日"},
        {{1912, 7, 29}, "gggee", "明治45"},
        {{1912, 7, 30}, "gggee", "大正01"},
        {{1926, 12, 24}, "gggee", "大正15"},
        {{1926, 12, 25}, "gggee", "昭和01"},
        {{1989, 1, 7}, "gggee", "昭和64"},
        {{1989, 1, 8}, "gggee", "平成01"},
        {{2019, 4, 30}, "gggee", "平成31"},
        {{2019, 5, 1}, "gggee", "令和01"},
        {{2019, 5, 1}, "ggge年", "令和1年"},
    };
    checkRows(rows);
}

TEST_CASE("before the first era only the western year is written")
{
    const DateRow rows[] = {{{1868, 1, 24}, "ggge年", "1868年"}, {{1868, 1, 24}, "gee", "1868"}};
    checkRows(rows);
}

TEST_CASE("an escaped or quoted pattern character is literal")
{
    const DateRow rows[] = {
        {{2024, 5, 1}, "yyyy\\y", "2024y"},
        {{2024, 5, 1}, "\"day \"d", "day 1"},
        {{2024, 5, 1}, "d\\", "1\\"},
    };
    checkRows(rows);
}

TEST_CASE("a time is rounded and carried before it is written")
{
    CHECK(formatText(Date(45657.999999), "yyyy/mm/dd hh:nn:ss", kRegional) == "2025/01/01 00:00:00");
    CHECK(formatText(Date(43585.999999), "gggee", kRegional) == "令和01");
}

TEST_CASE("number patterns pad with zeros and round halves away from zero")
{
    struct Row {
        double value;
        std::string_view pattern;
        std::string_view text;
    };
    const Row rows[] = {
        {1, "00", "01"},
        {12, "00", "12"},
        {123, "00", "123"},
        {-5, "00", "-05"},
        {2.5, "00", "03"},
        {3.5, "0", "4"},
        {-2.5, "0", "-3"},
        {0, "########0", "0"},
        {0, "#", ""},
        {7, "#", "7"},
        {-0.4, "0", "0"},
        {123456789, "########0", "123456789"},
        {5, "(000号)", "(005号)"},
    };
    for (const Row &row : rows) {
        CAPTURE(row.pattern);
        CAPTURE(row.value);
        CHECK(formatText(row.value, row.pattern, kRegional) == row.text);
    }
}

TEST_CASE("a number or Empty under a date pattern is written as the day that it counts to")
{
    CHECK(formatText(45413, "yyyy/mm/dd", kRegional) == "2024/05/01");
    CHECK(formatText(std::int16_t{2}, "yyyy/mm/dd", kRegional) == "1900/01/01");
    CHECK(formatText(Variant(), "yyyy/mm/dd", kRegional) == "1899/12/30");
}

TEST_CASE("a number outside the calendar overflows under a date pattern")
{
    CHECK(errorOf([] { return formatText(20240501, "yyyy/mm/dd", kRegional); }) == 6);
    CHECK(errorOf([] { return formatText("20240501", "yyyy/mm/dd", kRegional); }) == 6);
}

TEST_CASE("text under a date pattern is read as a date or as a number of days")
{
    CHECK(formatText("2024/5/1", "yyyy/mm/dd", kRegional) == "2024/05/01");
    CHECK(formatText("2024/5/1 9:30", "hh:nn:ss", kRegional) == "09:30:00");
    CHECK(formatText("45413", "yyyy/mm/dd", kRegional) == "2024/05/01");
    CHECK(formatText("01/05/2024", "yyyy/mm/dd", Regional{"dd/MM/yyyy"}) == "2024/05/01");
}

TEST_CASE("text under a number pattern is read as a number")
{
    CHECK(formatText(" 7 ", "00", kRegional) == "07");
}

TEST_CASE("text that is neither a date nor a number is returned unchanged")
{
    CHECK(formatText("委任状", "yyyy/mm/dd", kRegional) == "委任状");
    CHECK(formatText("委任状", "00", kRegional) == "委任状");
    CHECK(formatText("2024/5/1", "00", kRegional) == "2024/5/1");
    CHECK(formatText("", "yyyy/mm/dd", kRegional).empty());
}

TEST_CASE("a date under a number pattern and any value under an empty one have their default text")
{
    CHECK(formatText(Date(45413), "00", kRegional) == "2024/05/01");
    CHECK(formatText(Date(45413), "", kRegional) == "2024/05/01");
    CHECK(formatText(1.5, "", kRegional) == "1.5");
}

TEST_CASE("Null is returned as Null, and is error 94 where text is required")
{
    CHECK(Format(Null{}, "yyyy/mm/dd", kRegional).isNull());
    CHECK(errorOf([] { return formatText(Null{}, "yyyy/mm/dd", kRegional); }) == 94);
}

TEST_CASE("bytes and dates outside the calendar cannot be formatted")
{
    CHECK(errorOf([] { return Format(Binary{}, "00", kRegional); }) == 13);
    CHECK(errorOf([] { return Format(Date(1e10), "yyyy", kRegional); }) == 5);
}

} // namespace
} // namespace inin
