#include "adapters/sqlite/sql_date_text.h"

#include "adapters/sqlite/database_file.h"
#include "runtime/date.h"

#include <doctest/doctest.h>

#include <optional>
#include <string>
#include <string_view>

using namespace inin;

TEST_CASE("a date literal is read as the server reads it")
{
    struct Row {
        std::string_view text, lowest, highest, stored;
    };
    static constexpr Row kRows[] = {
        {"2024/5/1", "2024-05-01", "2024-05-01 00:00:00.000", "2024-05-01 00:00:00"},
        {"2024/05/01", "2024-05-01", "2024-05-01 00:00:00.000", "2024-05-01 00:00:00"},
        {"2024-05-01", "2024-05-01", "2024-05-01 00:00:00.000", "2024-05-01 00:00:00"},
        {"20240501", "2024-05-01", "2024-05-01 00:00:00.000", "2024-05-01 00:00:00"},
        {" 2024/05/01 ", "2024-05-01", "2024-05-01 00:00:00.000", "2024-05-01 00:00:00"},
        {"24/5/1", "2024-05-01", "2024-05-01 00:00:00.000", "2024-05-01 00:00:00"},
        {"50/12/31", "1950-12-31", "1950-12-31 00:00:00.000", "1950-12-31 00:00:00"},
        {"2024/02/29", "2024-02-29", "2024-02-29 00:00:00.000", "2024-02-29 00:00:00"},
        {"2024/05/01 9:30:15", "2024-05-01 09:30:15", "2024-05-01 09:30:15.000", "2024-05-01 09:30:15"},
        {"2024/05/01 9:30", "2024-05-01 09:30:00", "2024-05-01 09:30:00.000", "2024-05-01 09:30:00"},
        {"2024-05-01T09:30:15", "2024-05-01 09:30:15", "2024-05-01 09:30:15.000", "2024-05-01 09:30:15"},
        {"20240501 23:59:59.5", "2024-05-01 23:59:59.5", "2024-05-01 23:59:59.500", "2024-05-01 23:59:59.5"},
        {"2024/05/01 0:00:00.000", "2024-05-01", "2024-05-01 00:00:00.000", "2024-05-01 00:00:00"},
        {"", "1900-01-01", "1900-01-01 00:00:00.000", "1900-01-01 00:00:00"},
    };
    for (const Row &row : kRows) {
        CAPTURE(row.text);
        const std::optional<SqlMoment> moment = momentFromText(row.text);
        REQUIRE(moment);
        CHECK(moment->lowest == row.lowest);
        CHECK(moment->highest == row.highest);
        CHECK(moment->stored == row.stored);
    }
}

TEST_CASE("a text that is not a valid date is not a date literal")
{
    for (const char *text : {"2024/05", "202405", "2024/13/01", "2023/02/29", "2024/5/32", "2024/05-01", "01.07.2024",
                             "05/01/2024", "令和6年5月1日", "R6.5.1", "2024/05/01 25:00", "2024/05/01 9", "abc",
                             "2024/05/01x", "2024/05/01 9:30:15.", "1752/12/31", "2024//01", "0000/00/00"}) {
        CAPTURE(text);
        CHECK_FALSE(momentFromText(text));
    }
}

TEST_CASE("the value of a date column is a date with or without its time")
{
    struct Row {
        std::string_view text, date;
    };
    static constexpr Row kRows[] = {{"2024-05-01", "<2024-05-01 00:00:00>"},
                                    {"2024-05-01 09:30:15", "<2024-05-01 09:30:15>"},
                                    {"2024-05-01 09:30", "<2024-05-01 09:30:00>"},
                                    {"2024-05-01T09:30:15", "<2024-05-01 09:30:15>"},
                                    {"2024-06-28 10:30:15.997", "<2024-06-28 10:30:16>"},
                                    {"1899-12-29 06:00:00", "<1899-12-29 06:00:00>"},
                                    {"1936-02-29 00:00:00", "<1936-02-29 00:00:00>"}};
    for (const Row &row : kRows) {
        CAPTURE(row.text);
        const std::optional<Date> date = dateFromColumn(row.text);
        REQUIRE(date);
        CHECK(shown(*date) == row.date);
    }
}

TEST_CASE("other values of a date column are texts")
{
    for (const char *text : {"", "2024/05/01", "20240501", "2024-13-01", "2024-05-01 24:00:00", "2024-5-1",
                             "0099-01-01", "不明", "2024-05-01 x"}) {
        CAPTURE(text);
        CHECK_FALSE(dateFromColumn(text));
    }
}

TEST_CASE("a date is converted to yyyy/mm/dd or yyyymmdd, and any other text is unchanged")
{
    CHECK(convertDateText("2024-05-01 09:30:15", 111) == "2024/05/01");
    CHECK(convertDateText("2024-05-01", 111) == "2024/05/01");
    CHECK(convertDateText("2024-05-01 09:30:15", 112) == "20240501");
    CHECK(convertDateText("2024/05/01", 112) == "2024/05/01");
}

TEST_CASE("two formats of the same time are equal, and different times compare by time")
{
    CHECK(compareDateTexts("2024-05-01", "2024-05-01 00:00:00") == 0);
    CHECK(compareDateTexts("2024-05-01 00:00:00", "2024-05-01 00:00:00.000") == 0);
    CHECK(compareDateTexts("2024-05-01 10:00:00", "2024-05-01 10:00:00.000") == 0);
    CHECK(compareDateTexts("2024-05-01", "2024-05-01 00:00:01") < 0);
    CHECK(compareDateTexts("2024-05-01 00:00:00.5", "2024-05-01") > 0);
    CHECK(compareDateTexts("2024-05-02", "2024-05-01 23:59:59") > 0);
    CHECK(compareDateTexts("", "2024-05-01") < 0);
}
