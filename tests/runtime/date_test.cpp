#include "runtime/date.h"

#include "support/errors.h"

#include <doctest/doctest.h>

#include <cmath>
#include <limits>
#include <ostream>
#include <string_view>

namespace inin {
namespace {

bool isAt(Date date, const DateParts &expected)
{
    const DateParts parts = partsOf(date);
    return parts.year == expected.year && parts.month == expected.month && parts.day == expected.day &&
           parts.hour == expected.hour && parts.minute == expected.minute && parts.second == expected.second;
}

TEST_CASE("a date counts days from 1899-12-30")
{
    CHECK(isAt(Date(0), {1899, 12, 30, 0, 0, 0}));
    CHECK(isAt(Date(2), {1900, 1, 1, 0, 0, 0}));
    CHECK(isAt(Date(45413), {2024, 5, 1, 0, 0, 0}));
    CHECK(isAt(Date(-657434), {100, 1, 1, 0, 0, 0}));
    CHECK(isAt(Date(2958465), {9999, 12, 31, 0, 0, 0}));
}

TEST_CASE("the time of a day before the zero day counts forward from midnight")
{
    CHECK(isAt(Date(-1.25), {1899, 12, 29, 6, 0, 0}));
    CHECK(isAt(Date(-0.75), {1899, 12, 30, 18, 0, 0}));
    CHECK(dateOf({1899, 12, 29, 6, 0, 0}) == Date(-1.25));
    CHECK(dateOf({1899, 12, 30, 18, 0, 0}) == Date(0.75));
}

TEST_CASE("the parts of a date are rounded to the nearest second")
{
    constexpr double kSecond = 1.0 / 86400;
    CHECK(isAt(Date(45413 + 29.6 * kSecond), {2024, 5, 1, 0, 0, 30}));
    CHECK(isAt(Date(45413 + 29.4 * kSecond), {2024, 5, 1, 0, 0, 29}));
    CHECK(isAt(Date(45413 + 59.6 * kSecond), {2024, 5, 1, 0, 1, 0}));
}

TEST_CASE("a time that rounds up to midnight carries into the day, month and year")
{
    CHECK(isAt(Date(45657.999999), {2025, 1, 1, 0, 0, 0}));
    CHECK(isAt(Date(-1.999999), {1899, 12, 30, 0, 0, 0}));
    CHECK(dayOf(Date(45413.999999)) == Date(45414));
}

TEST_CASE("a date outside the years 100 to 9999 has no parts")
{
    CHECK(errorOf([] { return partsOf(Date(-657435)); }) == 5);
    CHECK(errorOf([] { return partsOf(Date(2958466)); }) == 5);
    CHECK(errorOf([] { return partsOf(Date(2958465.999999)); }) == 5);
    CHECK(errorOf([] { return partsOf(Date(1e300)); }) == 5);
    CHECK(errorOf([] { return partsOf(Date(std::numeric_limits<double>::quiet_NaN())); }) == 5);
}

TEST_CASE("parts that are not a valid day or time are an invalid call")
{
    struct Row {
        DateParts parts;
        std::int32_t error;
    };
    const Row rows[] = {
        {{2024, 2, 29, 23, 59, 59}, 0}, {{2023, 2, 29, 0, 0, 0}, 5},        {{2024, 4, 31, 0, 0, 0}, 5},
        {{2024, 13, 1, 0, 0, 0}, 5},    {{2024, 0, 1, 0, 0, 0}, 5},         {{2024, 1, 0, 0, 0, 0}, 5},
        {{2024, 257, 1, 0, 0, 0}, 5},   {{99, 12, 31, 0, 0, 0}, 5},         {{10000, 1, 1, 0, 0, 0}, 5},
        {{2024, 1, 1, 24, 0, 0}, 5},    {{2024, 1, 1, 0, 60, 0}, 5},        {{2024, 1, 1, 0, 0, 60}, 5},
        {{2024, 1, 1, -1, 0, 0}, 5},    {{65536 + 2024, 1, 1, 0, 0, 0}, 5},
    };
    for (const Row &row : rows) {
        CAPTURE(row.parts.year);
        CAPTURE(row.parts.month);
        CAPTURE(row.parts.day);
        CHECK(errorOf([&] { return dateOf(row.parts); }) == row.error);
    }
}

TEST_CASE("DateSerial carries months and days over")
{
    struct Row {
        std::int32_t year, month, day;
        DateParts expected;
    };
    const Row rows[] = {
        {2024, 5, 1, {2024, 5, 1}},    {2024, 13, 1, {2025, 1, 1}},    {2024, 12 + 1, 0, {2024, 12, 31}},
        {2024, 3, 0, {2024, 2, 29}},   {2023, 3, 0, {2023, 2, 28}},    {2024, 0, 1, {2023, 12, 1}},
        {2024, -11, 1, {2023, 1, 1}},  {2024, -12, 1, {2022, 12, 1}},  {2024, 5, 32, {2024, 6, 1}},
        {2024, 1, -1, {2023, 12, 30}}, {2100, 2, 29, {2100, 3, 1}},    {2000, 2, 29, {2000, 2, 29}},
        {2024, 5, 366, {2025, 5, 1}},  {9999, 12, 31, {9999, 12, 31}}, {100, 1, 1, {100, 1, 1}},
    };
    for (const Row &row : rows) {
        CAPTURE(row.year);
        CAPTURE(row.month);
        CAPTURE(row.day);
        CHECK(isAt(DateSerial(row.year, row.month, row.day), row.expected));
    }
}

TEST_CASE("the last day of a month follows the leap years and the carry of months")
{
    CHECK(lastDayOfMonth(2024, 2) == DateSerial(2024, 2, 29));
    CHECK(lastDayOfMonth(2023, 2) == DateSerial(2023, 2, 28));
    CHECK(lastDayOfMonth(2023, 12) == DateSerial(2023, 12, 31));
    CHECK(lastDayOfMonth(2023, 13) == DateSerial(2024, 1, 31));
}

TEST_CASE("DateSerial maps two-digit years to 1930 to 2029")
{
    CHECK(Year(DateSerial(0, 1, 1)) == 2000);
    CHECK(Year(DateSerial(29, 1, 1)) == 2029);
    CHECK(Year(DateSerial(30, 1, 1)) == 1930);
    CHECK(Year(DateSerial(99, 1, 1)) == 1999);
    CHECK(Year(DateSerial(100, 1, 1)) == 100);
}

TEST_CASE("DateSerial outside the years 100 to 9999 is an invalid call, at any distance")
{
    constexpr std::int32_t kMax = std::numeric_limits<std::int32_t>::max();
    constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
    CHECK(errorOf([] { return DateSerial(100, 1, 0); }) == 5);
    CHECK(errorOf([] { return DateSerial(9999, 12, 32); }) == 5);
    CHECK(errorOf([] { return DateSerial(-1, 1, 1); }) == 5);
    CHECK(errorOf([] { return DateSerial(kMax, kMax, kMax); }) == 5);
    CHECK(errorOf([] { return DateSerial(kLeast, kLeast, kLeast); }) == 5);
}

TEST_CASE("DateSerial accepts arguments far out of range whose sum is a valid day")
{
    CHECK(isAt(DateSerial(2024 + 400'000, 5 - 400'000 * 12, 1), {2024, 5, 1}));
    CHECK(isAt(DateSerial(2024 + 40'000, 5, 1 - 146'097 * 100), {2024, 5, 1}));
    CHECK(isAt(DateSerial(-1, 1, 1 + 146'097 * 5), {1999, 1, 1}));
    CHECK(isAt(DateSerial(-2001, 6, 1 + 146'097 * 10), {1999, 6, 1}));
}

TEST_CASE("year, month, day and dayOf ignore the time")
{
    const Date date = dateOf({2024, 2, 29, 23, 59, 59});
    CHECK(Year(date) == 2024);
    CHECK(Month(date) == 2);
    CHECK(Day(date) == 29);
    CHECK(dayOf(date) == dateOf({2024, 2, 29}));
    CHECK(dayOf(Date(-1.25)) == Date(-1));
}

TEST_CASE("an era lasts from its first day to the day before the next")
{
    struct Row {
        DateParts day;
        std::string_view era;
        char letter;
    };
    const Row rows[] = {
        {{1868, 1, 25}, "明治", 'M'},  {{1912, 7, 29}, "明治", 'M'},  {{1912, 7, 30}, "大正", 'T'},
        {{1926, 12, 24}, "大正", 'T'}, {{1926, 12, 25}, "昭和", 'S'}, {{1989, 1, 7}, "昭和", 'S'},
        {{1989, 1, 8}, "平成", 'H'},   {{2019, 4, 30}, "平成", 'H'},  {{2019, 5, 1}, "令和", 'R'},
        {{9999, 12, 31}, "令和", 'R'},
    };
    for (const Row &row : rows) {
        const Era *era = eraOf(dateOf(row.day));
        REQUIRE(era != nullptr);
        CHECK(era->name == row.era);
        CHECK(era->letter == row.letter);
    }
}

TEST_CASE("a day before 1868-01-25 has no era")
{
    CHECK(eraOf(dateOf({1868, 1, 24})) == nullptr);
    CHECK(eraOf(dateOf({1868, 1, 24, 23, 59, 59})) == nullptr);
    CHECK(eraOf(dateOf({100, 1, 1})) == nullptr);
}

TEST_CASE("the last second of an era's last day still belongs to it")
{
    CHECK(eraOf(dateOf({1912, 7, 29, 23, 59, 59}))->name == "明治");
    CHECK(eraOf(dateOf({2019, 4, 30, 23, 59, 59}))->name == "平成");
}

TEST_CASE("eras change only forward from day to day")
{
    std::size_t index = 0;
    for (int day = -11661; day <= 73415; ++day) { // 1868-01-25 to 2100-12-31
        const Era *era = eraOf(Date(day));
        REQUIRE(era != nullptr);
        const auto position = static_cast<std::size_t>(era - eras().data());
        CHECK_MESSAGE((position == index || position == index + 1), day);
        index = position;
    }
    CHECK(index == 4);
}

TEST_CASE("every second of a day survives conversion to parts and back")
{
    for (const double day : {45413.0, 0.0, -1.0, -657434.0, 2958465.0})
        for (int second = 0; second < 86400; second += 7) {
            const double time = second / 86400.0;
            const DateParts parts = partsOf(Date(day < 0 ? day - time : day + time));
            const bool same =
                parts.hour * 3600 + parts.minute * 60 + parts.second == second && dayOf(dateOf(parts)) == Date(day);
            if (!same) FAIL_CHECK(day << " at second " << second);
        }
}

} // namespace
} // namespace inin
