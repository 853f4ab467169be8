#include "runtime/conversion.h"
#include "support/errors.h"
#include "support/regional.h"

#include <doctest/doctest.h>

#include <ostream>
#include <string_view>

namespace inin {
namespace {

Date read(std::string_view text, const Regional &regional = kRegional)
{
    return toDate(Variant(text), regional);
}

TEST_CASE("a date is read with any of the customary separators")
{
    for (const std::string_view text :
         {"2024/5/1", "2024-05-01", "2024 5 1", "2024/5-1", "2024 / 5 / 1", "　2024/05/01　", "2024年5月1日",
          "2024年05月01日", "2024年 5月 1日", "5月 1, 2024", "2024,5,1", "2024, 5, 1", "2024/5,1", "2024,,5/1",
          ",2024,5", "2024年5月", "2024/5"}) {
        CAPTURE(text);
        CHECK(read(text) == dateOf({2024, 5, 1}));
    }
}

TEST_CASE("non-date text is a type mismatch")
{
    for (const std::string_view text : {"",
                                        " ",
                                        "x",
                                        "1",
                                        "45413",
                                        "240501",
                                        "5/1",
                                        "24/5",
                                        "5/24",
                                        "99/5",
                                        "2024",
                                        "2024//5/1",
                                        "/2024/5/1",
                                        "2024/5/1/",
                                        "2024/5/1/2",
                                        "2024.5.1",
                                        "2024,5,1,",
                                        "2024/5/1 , ",
                                        ",",
                                        "5,1",
                                        "2024-5.1",
                                        "2024/2/30",
                                        "2023/2/29",
                                        "2024/0/1",
                                        "2024/1/0",
                                        "2024/5/32",
                                        "10000/1/1",
                                        "02024/5/1",
                                        "2024/5/1x",
                                        "2024/5/1(水)",
                                        "２０２４/5/1",
                                        "令和6年5月1日",
                                        "2024月5年1日",
                                        "2024年5月日",
                                        "2024年月5日",
                                        "\xFF/1/1"}) {
        CAPTURE(text);
        CHECK(errorOf([&] { return read(text); }) == 13);
    }
}

TEST_CASE("a time is read alone, after and before a date, with and without seconds")
{
    struct Row {
        std::string_view text;
        DateParts expected;
    };
    const Row rows[] = {
        {"9:30", {1899, 12, 30, 9, 30, 0}},
        {"9:30:15", {1899, 12, 30, 9, 30, 15}},
        {"0:0:0", {1899, 12, 30, 0, 0, 0}},
        {"2024/5/1 9:3", {2024, 5, 1, 9, 3, 0}},
        {"2024/5/1　23:59:59", {2024, 5, 1, 23, 59, 59}},
        {"9:30 2024/5/1", {2024, 5, 1, 9, 30, 0}},
        {"2024年5月1日9:30", {2024, 5, 1, 9, 30, 0}},
        {"1899/12/29 6:00", {1899, 12, 29, 6, 0, 0}},
        {"2024,5,1,9:30", {2024, 5, 1, 9, 30, 0}},
        {"1.5", {1899, 12, 30, 1, 5, 0}},
        {"23.59.59", {1899, 12, 30, 23, 59, 59}},
        {"1:5.3", {1899, 12, 30, 1, 5, 3}},
        {"2024/5/1 9.30", {2024, 5, 1, 9, 30, 0}},
        {"1.5 2024,5,1", {2024, 5, 1, 1, 5, 0}},
    };
    for (const Row &row : rows) {
        CAPTURE(row.text);
        CHECK(read(row.text) == dateOf(row.expected));
    }
}

TEST_CASE("morning and afternoon are read in English and Japanese")
{
    struct Row {
        std::string_view text;
        std::int32_t hour;
    };
    const Row rows[] = {{"9:00 AM", 9},    {"9:00PM", 21},  {"9:00 pm", 21},  {"午前 9:00", 9}, {"午後9:00", 21},
                        {"9:00 午後", 21}, {"12:00 AM", 0}, {"12:00 PM", 12}, {"9 PM", 21},     {"13:00 PM", 13}};
    for (const Row &row : rows) {
        CAPTURE(row.text);
        CHECK(read(row.text) == dateOf({1899, 12, 30, row.hour, 0, 0}));
    }
}

TEST_CASE("a word for morning or afternoon between date and time belongs to the time")
{
    CHECK(read("2024/5/1 午前 9:30") == dateOf({2024, 5, 1, 9, 30, 0}));
    CHECK(read("2024 5 1 午後9:30") == dateOf({2024, 5, 1, 21, 30, 0}));
    CHECK(read("2024/5/1 9 PM") == dateOf({2024, 5, 1, 21, 0, 0}));
}

TEST_CASE("every kind of blank may surround a date")
{
    for (const std::string blank :
         {" ",      "\t",     "\u3000", "\u00A0", "\u0085", "\u1680", "\u2000", "\u2001", "\u2002", "\u2003", "\u2004",
          "\u2005", "\u2006", "\u2007", "\u2008", "\u2009", "\u200A", "\u2028", "\u2029", "\u202F", "\u205F"}) {
        CAPTURE(blank);
        CHECK(read(std::string(blank).append("2024/5/1").append(blank)) == dateOf({2024, 5, 1}));
    }
}

TEST_CASE("an invalid time is a type mismatch")
{
    for (const std::string_view text :
         {"24:00",       "24.0",        "1.60",          "1.",        ".5",      "1.5.",
          "1.5.3.4",     "9:30,",       "100.5",         "9:60",      "9:30:60", "9:",
          ":30",         "9:30:",       "9:30:15.5",     "9:30 9:30", "AM",      "午前",
          "13:00 AM",    "9:30 AM PM",  "2024/5/1 PM 3", "9:300",     "100:00",  "2024/5/1 AM",
          "2024/5 9 PM", "2024/5/9:30", "2024/5/1/9:30", "9:030",     "9:30:015"}) {
        CAPTURE(text);
        CHECK(errorOf([&] { return read(text); }) == 13);
    }
}

TEST_CASE("the order of the short date is tried first, then the other orders")
{
    struct Row {
        std::string_view shortDate;
        std::string_view text;
        DateParts expected;
    };
    const Row rows[] = {
        {"yyyy/MM/dd", "1/2/3", {2001, 2, 3}},      {"dd/MM/yyyy", "1/2/3", {2003, 2, 1}},
        {"M/d/yyyy", "1/2/3", {2003, 1, 2}},        {"yyyy/MM/dd", "2024/13/1", {2024, 1, 13}},
        {"yyyy/MM/dd", "5/1/2024", {2024, 5, 1}},   {"yyyy/MM/dd", "13/1/2024", {2024, 1, 13}},
        {"dd/MM/yyyy", "5/1/2024", {2024, 1, 5}},   {"dd/MM/yyyy", "5/13/2024", {2024, 5, 13}},
        {"dd/MM/yyyy", "2024/5/1", {2024, 5, 1}},   {"M/d/yyyy", "13/5/24", {2024, 5, 13}},
        {"M/d/yyyy", "2024-05-01", {2024, 5, 1}},   {"yyyy/dd/MM", "2024/1/5", {2024, 5, 1}},
        {"yyyy/MM/dd", "31/12/99", {1999, 12, 31}}, {"dd.MM.yyyy", "01.05.2024", {2024, 5, 1}},
        {"M/d/yyyy", "2024/20/5", {2024, 5, 20}},   {"dd/MM/yyyy", "2024/20/5", {2024, 5, 20}},
        {"yyyy/dd/MM", "2024/5/20", {2024, 5, 20}}, {"yyyy/dd/MM", "20/5/2024", {2024, 5, 20}},
        {"yyyy/dd/MM", "5/20/2024", {2024, 5, 20}},
    };
    for (const Row &row : rows) {
        CAPTURE(row.shortDate);
        CAPTURE(row.text);
        CHECK(read(row.text, Regional{std::string(row.shortDate)}) == dateOf(row.expected));
    }
}

TEST_CASE("a point that separates the parts of the short date does not separate a time")
{
    const Regional regional{"dd.MM.yyyy"};
    CHECK(read("01.05.2024 9:30", regional) == dateOf({2024, 5, 1, 9, 30, 0}));
    CHECK(errorOf([&] { return read("1.5", regional); }) == 13);
}

TEST_CASE("an era is read if the short date format has eras")
{
    struct Row {
        std::string_view shortDate;
        std::string_view text;
        DateParts expected;
    };
    const Row rows[] = {
        {"ggyy/MM/dd", "令和06/05/01", {2024, 5, 1}},
        {"gg y/M/d", "令和 6/5/1", {2024, 5, 1}},
        {"ggyy年MM月dd日", "令和06年05月01日", {2024, 5, 1}},
        {"ggy.M.d", "令和元.5.1", {2019, 5, 1}},
        {"ggyy/MM/dd", "令和元年5月1日", {2019, 5, 1}},
        {"ggyy/MM/dd", "昭和64-1-7 9:30", {1989, 1, 7, 9, 30, 0}},
        {"ggyy/MM/dd", "午後3:00 平成1/1/8", {1989, 1, 8, 15, 0, 0}},
        {"ggyy/MM/dd", "平成31/5/1", {2019, 5, 1}},
        {"ggyy/MM/dd", "明治1/1/25", {1868, 1, 25}},
        {"ggyy/MM/dd", "令和6年5月", {2024, 5, 1}},
        {"ggyy/MM/dd", "2024/5/1", {2024, 5, 1}},
        {"ggyy/MM/dd", "1867/1/24", {1867, 1, 24}},
    };
    for (const Row &row : rows) {
        CAPTURE(row.text);
        CHECK(read(row.text, Regional{std::string(row.shortDate)}) == dateOf(row.expected));
    }
}

TEST_CASE("an invalid date with an era is a type mismatch")
{
    const Regional regional{"ggyy/MM/dd"};
    for (const std::string_view text :
         {"令和", "令和6", "令和 9:30", "令和0/5/1", "令和100/5/1", "令和2024/5/1", "令和6/2/30", "令和令和6/5/1",
          "6令和/5/1", "6/5/1 令和", "令和/6/5/1", "令和6月5日1年", "慶応3/1/1", "R6/5/1", "元/5/1", "令和元元/5/1"}) {
        CAPTURE(text);
        CHECK(errorOf([&] { return read(text, regional); }) == 13);
    }
}

TEST_CASE("an era is not accepted if the short date format has none")
{
    for (const std::string_view shortDate : {"yyyy/MM/dd", "yy/MM/dd", "'gg'yyyy/MM/dd"}) {
        CAPTURE(shortDate);
        CHECK(errorOf([&] { return read("令和6/5/1", Regional{std::string(shortDate)}); }) == 13);
    }
}

TEST_CASE("every day from 明治 to 2100 survives conversion to text with an era and back")
{
    for (const std::string_view shortDate : {"ggyy/MM/dd", "gg y/M/d", "ggy年M月d日"}) {
        const Regional regional{std::string(shortDate)};
        for (int day = -12000; day <= 73415; ++day)
            if (day != 0 && read(dateText(Date(day), regional), regional) != Date(day))
                FAIL_CHECK(shortDate << " loses " << day);
        CHECK(dateText(Date(-11662), regional).starts_with("明治"));
    }
}

TEST_CASE("a NUL ends the text of a date")
{
    CHECK(read(std::string_view("2024/5/1\0/9", 11)) == dateOf({2024, 5, 1}));
}

TEST_CASE("every day from 1899-12-30 to 2100-12-31 survives conversion to text with a four-digit year and back")
{
    for (const std::string_view shortDate : {"yyyy/MM/dd", "dd/MM/yyyy", "M/d/yyyy"}) {
        const Regional regional{std::string(shortDate)};
        for (int day = 0; day <= 73415; ++day)
            if (read(dateText(Date(day), regional), regional) != Date(day)) FAIL_CHECK(shortDate << " loses " << day);
    }
    CHECK(dateText(Date(73415), kRegional) == "2100/12/31");
}

TEST_CASE("every day from 1930 to 2029 survives conversion to text with a two-digit year and back")
{
    const Regional regional{"yy/MM/dd"};
    for (int day = 10959; day <= 47483; ++day)
        if (read(dateText(Date(day), regional), regional) != Date(day)) FAIL_CHECK(day);
    CHECK(dateText(Date(10959), kRegional) == "1930/01/01");
    CHECK(dateText(Date(47483), kRegional) == "2029/12/31");
}

TEST_CASE("a day outside 1930 to 2029 returns from a two-digit year in that range")
{
    const Regional regional{"yy/MM/dd"};
    for (int day = 1; day < 10959; ++day) {
        const Date date(day);
        if (Month(date) == 2 && Day(date) == 29) continue;
        const std::int32_t year = Year(date) < 1900 ? 1999 : Year(date) + 100;
        const Date expected = dateOf({year, Month(date), Day(date)});
        if (read(dateText(date, regional), regional) != expected) FAIL_CHECK(day);
    }
}

TEST_CASE("every quarter of an hour survives conversion to text and back, also before the zero day")
{
    for (const double day : {45413.0, 0.0, -1.0, -657434.0})
        for (int quarter = 0; quarter < 96; ++quarter) {
            const Date date(day < 0 ? day - quarter / 96.0 : day + quarter / 96.0);
            if (read(dateText(date, kRegional)) != date) FAIL_CHECK(day << " quarter " << quarter);
        }
}

} // namespace
} // namespace inin
