#include "screen/era_date_text.h"

#include <doctest/doctest.h>

#include <cmath>
#include <string>
#include <vector>

using namespace inin;

namespace {

constexpr const char *kDayPattern = "ggg ee年mm月dd日";
constexpr const char *kMonthPattern = "ggg ee年mm月";

Date day(std::int32_t year, std::int32_t month, std::int32_t dayOfMonth)
{
    return dateOf({year, month, dayOfMonth});
}

DateContext onDay(DateGrain grain = DateGrain::day)
{
    return {day(2026, 11, 20), grain, eras()};
}

struct Typed {
    std::string text;
    std::int32_t year, month, day;
};

void checkAll(const std::vector<Typed> &rows, const DateContext &context)
{
    for (const Typed &row : rows) {
        CAPTURE(row.text);
        const TypedDate typed = readTypedDate(row.text, context);
        CHECK(typed.complaint == "");
        REQUIRE(typed.date);
        CHECK(*typed.date == day(row.year, row.month, row.day));
    }
}

} // namespace

TEST_CASE("a day is read in every common way of typing it")
{
    checkAll({{"R8.11.21", 2026, 11, 21},
              {"r8/11/21", 2026, 11, 21},
              {"令8.11.21", 2026, 11, 21},
              {"令和8年11月21日", 2026, 11, 21},
              {"令和元年5月1日", 2019, 5, 1},
              {"8.11.21", 2026, 11, 21},
              {"081121", 2026, 11, 21},
              {"20261121", 2026, 11, 21},
              {"2026/11/21", 2026, 11, 21},
              {"1121", 2026, 11, 21},
              {"2026-11-21", 2026, 11, 21},
              {"11/21", 2026, 11, 21},
              {"令和 08年11月21日", 2026, 11, 21},
              {"R081121", 2026, 11, 21},
              {"R 8 . 11 . 21", 2026, 11, 21},
              {"2026年11月21日", 2026, 11, 21},
              {"11月21日", 2026, 11, 21},
              {"  R8.11.21  ", 2026, 11, 21}},
             onDay());
}

TEST_CASE("full-width digits, Latin letters and signs are read as their narrow ones")
{
    checkAll({{"Ｒ８．１１．２１", 2026, 11, 21},
              {"ｒ８／１１／２１", 2026, 11, 21},
              {"２０２６１１２１", 2026, 11, 21},
              {"令和８年１１月２１日", 2026, 11, 21},
              {"２０２６－１１－２１", 2026, 11, 21},
              // What an input method enters for the keys of the point, the slash and the hyphen.
              {"８。１１。２１", 2026, 11, 21},
              {"８・１１・２１", 2026, 11, 21},
              {"８ー１１ー２１", 2026, 11, 21},
              {"令和　８年１１月２１日", 2026, 11, 21}},
             onDay());
}

TEST_CASE("numbers may be separated by blanks")
{
    checkAll({{"8 11 21", 2026, 11, 21},
              {"８　１１　２１", 2026, 11, 21},
              {"R8 11 21", 2026, 11, 21},
              {"2026 11 21", 2026, 11, 21},
              {"11 21", 2026, 11, 21},
              {"8\t11\t21", 2026, 11, 21},
              {"8\u00A011\u00A021", 2026, 11, 21}},
             onDay());
    checkAll({{"8 11", 2026, 11, 1}, {"令和8年 11月", 2026, 11, 1}}, onDay(DateGrain::month));
}

TEST_CASE("a weekday in brackets and a time after the date are dropped")
{
    checkAll({{"2026/11/21(土)", 2026, 11, 21},
              {"2026/11/21（土）", 2026, 11, 21},
              {"2026年11月21日 (土曜日)", 2026, 11, 21},
              {"R8.11.21(土曜)", 2026, 11, 21},
              {"20261121(土)", 2026, 11, 21},
              {"8 11 21 (土)", 2026, 11, 21},
              {"2026/11/15㈰", 2026, 11, 15},
              {"2026/11/16㈪", 2026, 11, 16},
              {"2026/11/17㈫", 2026, 11, 17},
              {"2026/11/18㈬", 2026, 11, 18},
              {"2026/11/19㈭", 2026, 11, 19},
              {"2026/11/20㈮", 2026, 11, 20},
              {"2026/11/21㈯", 2026, 11, 21},
              {"2026/11/21 12:34", 2026, 11, 21},
              {"2026/11/21 9:05:30", 2026, 11, 21},
              {"2026-11-21T12:34:56.789", 2026, 11, 21},
              {"２０２６／１１／２１　１２：３４", 2026, 11, 21},
              {"2026/11/21(土) 12:34", 2026, 11, 21},
              {"2026/11/21 午後3:05", 2026, 11, 21},
              {"2026/11/21 午後 3:05", 2026, 11, 21},
              {"2026/11/21 3:05 PM", 2026, 11, 21},
              {"令和8年11月21日12時34分", 2026, 11, 21},
              {"令和8年11月21日 12時", 2026, 11, 21},
              {"11/21 12:34", 2026, 11, 21}},
             onDay());
    for (const std::string text :
         {"2026/11/21(x)", "2026/11/21()", "2026/11/21(", "2026/11/21(土", "(土)2026/11/21", "2026/11/21 12",
          "2026/11/21 12:", "2026/11/21 :34", "2026/11/21 123:45", "2026/11/21 12:34:", "2026/11/21 12時34",
          "2026/11/21-12:34", "2026/11/21 T", "12:34", "(土)"}) {
        CAPTURE(text);
        CHECK_FALSE(readTypedDate(text, onDay()).complaint.empty());
    }
}

TEST_CASE("a single character for an era is read as its name")
{
    checkAll({{"㋿8年11月21日", 2026, 11, 21}, {"㋿元年5月1日", 2019, 5, 1}}, onDay());
    checkAll({{"㍻31.4.30", 2019, 4, 30},
              {"㍼64/1/7", 1989, 1, 7},
              {"㍽15.12.24", 1926, 12, 24},
              {"㍾45.7.29", 1912, 7, 29}},
             onDay());
    // On a day of another era.
    checkAll({{"㋿1.5.1", 2019, 5, 1}}, {day(2019, 4, 30), DateGrain::day, eras()});
}

TEST_CASE("a date more than five years from today is read with a notice of its western year")
{
    const TypedDate typed = readTypedDate("26/11/21", onDay());
    CHECK(typed.date == day(2044, 11, 21));
    CHECK(typed.complaint == "");
    CHECK(typed.notice == "西暦2044年の日付です。今日から5年を超えて離れています。年を確かめてください。");
    CHECK(readTypedDate("S60.4.1", onDay()).notice ==
          "西暦1985年の日付です。今日から5年を超えて離れています。年を確かめてください。");
    for (const std::string near : {"2021/11/20", "2031/11/20", "R8.11.21"})
        CHECK(readTypedDate(near, onDay()).notice == "");
    for (const std::string far : {"2021/11/19", "2031/11/21", "20440101"})
        CHECK_FALSE(readTypedDate(far, onDay()).notice.empty());
    CHECK(readTypedDate("R13.11", onDay(DateGrain::month)).notice == "");
    CHECK_FALSE(readTypedDate("26.11", onDay(DateGrain::month)).notice.empty());
    CHECK(readTypedDate("R8.2.29", onDay()).notice == "");
}

TEST_CASE("five years from 29 February end on 1 March if that year has no 29 February")
{
    const DateContext leapDay{day(2024, 2, 29), DateGrain::day, eras()};
    CHECK(readTypedDate("2029/3/1", leapDay).notice == "");
    CHECK_FALSE(readTypedDate("2029/3/2", leapDay).notice.empty());
}

TEST_CASE("a year past the end of its era is converted to the following era")
{
    checkAll({{"H31.5.1", 2019, 5, 1},
              {"平成31年5月1日", 2019, 5, 1},
              {"S64.1.8", 1989, 1, 8},
              {"T15.12.25", 1926, 12, 25},
              {"M45.7.30", 1912, 7, 30},
              {"S100.1.1", 2025, 1, 1},
              {"平成38年11月21日", 2026, 11, 21}},
             onDay());
    CHECK(typedDateText(*readTypedDate("H31.5.1", onDay()).date, kDayPattern) == "令和 01年05月01日");
}

TEST_CASE("the last day of an era and the first of the next are read with their own era names")
{
    checkAll({{"M1.1.25", 1868, 1, 25},
              {"M45.7.29", 1912, 7, 29},
              {"T1.7.30", 1912, 7, 30},
              {"T15.12.24", 1926, 12, 24},
              {"S1.12.25", 1926, 12, 25},
              {"S64.1.7", 1989, 1, 7},
              {"H1.1.8", 1989, 1, 8},
              {"H31.4.30", 2019, 4, 30},
              {"R1.5.1", 2019, 5, 1}},
             onDay());
}

TEST_CASE("an omitted era or year is the one of the day of typing")
{
    const DateContext heisei{day(2000, 3, 1), DateGrain::day, eras()};
    checkAll({{"12.4.5", 2000, 4, 5}, {"120405", 2000, 4, 5}, {"0405", 2000, 4, 5}, {"4/5", 2000, 4, 5}}, heisei);
}

TEST_CASE("a month is read with or without a day")
{
    checkAll({{"R8.11", 2026, 11, 1},
              {"令和8年11月", 2026, 11, 1},
              {"8.11", 2026, 11, 1},
              {"0811", 2026, 11, 1},
              {"202611", 2026, 11, 1},
              {"2026/11", 2026, 11, 1},
              {"令和 08年11月", 2026, 11, 1},
              {"R8.11.21", 2026, 11, 21},
              {"20261121", 2026, 11, 21},
              {"081121", 2026, 11, 21},
              {"11月", 2026, 11, 1},
              {"811", 2026, 11, 1},
              {"201011", 2010, 11, 1},
              {"令和元年5月", 2019, 5, 1},
              {"H31.5", 2019, 5, 1},
              {"平成1年1月", 1989, 1, 1}},
             onDay(DateGrain::month));
}

TEST_CASE("empty and blank texts give neither a date nor an error")
{
    for (const std::string text : {"", "   ", "　　"}) {
        CAPTURE(text);
        CHECK(readTypedDate(text, onDay()).isEmpty());
    }
}

TEST_CASE("unreadable text gives an error that shows how to type a date")
{
    CHECK(readTypedDate("あした", onDay()).complaint ==
          "「あした」は日付として読めません。R8.11.21 や 2026/11/21 のように入力してください。");
    CHECK(readTypedDate("あした", onDay(DateGrain::month)).complaint ==
          "「あした」は日付として読めません。R8.11 や 2026/11 のように入力してください。");
    for (const std::string text :
         {"R",         "R8",           "R8.",         "R8.11",           "R8.11.",    "8..11",
          "X8.11.21",  "R8.11.21x",    "R2026.11.21", "2026/11/21/1",    "123",       "1234567",
          "123456789", "R1121",        "8月11年21日", "令和令和8.11.21", "99999/1/1", "R0.1.1",
          "2元/1/1",   "元元年1月1日", "8.111.21",    "-8.11.21",        "R-8.11.21", "1.5e3"}) {
        CAPTURE(text);
        const TypedDate typed = readTypedDate(text, onDay());
        CHECK_FALSE(typed.date);
        CHECK_FALSE(typed.complaint.empty());
    }
}

TEST_CASE("a long text is shortened in its error message")
{
    CHECK(readTypedDate(std::string(1000000, 'x'), onDay()).complaint ==
          "「xxxxxxxxxxxxxxxxxxxx…」は日付として読めません。R8.11.21 や 2026/11/21 のように入力してください。");
}

TEST_CASE("the error about a day that does not exist names the day")
{
    CHECK(readTypedDate("R8.2.29", onDay()).complaint == "2026年2月29日という日はありません。");
    CHECK(readTypedDate("2026/13/1", onDay()).complaint == "2026年13月1日という日はありません。");
    CHECK(readTypedDate("1131", onDay()).complaint == "2026年11月31日という日はありません。");
    CHECK(readTypedDate("R8.2.28", onDay()).complaint == "");
    CHECK(readTypedDate("R6.2.29", onDay()).complaint == "");
}

TEST_CASE("a day before its era, or before all eras, is refused")
{
    CHECK(readTypedDate("R1.4.30", onDay()).complaint == "令和は2019年5月1日からです。それより前の日付です。");
    CHECK(readTypedDate("H1.1.7", onDay()).complaint == "平成は1989年1月8日からです。それより前の日付です。");
    CHECK(readTypedDate("1868/1/24", onDay()).complaint == "明治は1868年1月25日からです。それより前の日付です。");
    CHECK(readTypedDate("1868/1/25", onDay()).complaint == "");
}

TEST_CASE("every day from the first era to 2100 is read back from its formatted text")
{
    const DateContext context = onDay();
    std::int32_t faults = 0;
    const auto first = static_cast<std::int32_t>(day(1868, 1, 25).days());
    const auto last = static_cast<std::int32_t>(day(2100, 12, 31).days());
    for (std::int32_t days = first; days <= last; ++days) {
        const Date date(days);
        const TypedDate typed = readTypedDate(typedDateText(date, kDayPattern), context);
        if (!typed.date || !(*typed.date == date)) ++faults;
    }
    CHECK(faults == 0);
}

TEST_CASE("every month from the first era to 2100 is read back from its formatted text")
{
    std::int32_t faults = 0;
    for (std::int32_t month = 1868 * 12 + 1; month < 2101 * 12; ++month) {
        const Date first = day(month / 12, month % 12 + 1, 1);
        const TypedDate typed = readTypedDate(typedDateText(first, kMonthPattern), onDay(DateGrain::month));
        if (!typed.date || !(*typed.date == first)) ++faults;
    }
    CHECK(faults == 0);
}

TEST_CASE("a date is formatted with a two-digit year of its era")
{
    CHECK(typedDateText(day(2026, 11, 21), kDayPattern) == "令和 08年11月21日");
    CHECK(typedDateText(day(2026, 11, 21), kMonthPattern) == "令和 08年11月");
    CHECK(typedDateText(day(1868, 1, 25), kDayPattern) == "明治 01年01月25日");
    CHECK(typedDateText(day(1989, 1, 7), kDayPattern) == "昭和 64年01月07日");
    CHECK(typedDateText(day(1989, 1, 8), kDayPattern) == "平成 01年01月08日");
}

TEST_CASE("an era has three lengths, and its year one or two digits")
{
    CHECK(typedDateText(day(2026, 11, 21), "ge") == "R8");
    CHECK(typedDateText(day(2026, 11, 21), "gg ee") == "令 08");
    CHECK(typedDateText(day(2026, 11, 21), "ggg") == "令和");
}

TEST_CASE("a new era needs only an entry in the table")
{
    std::vector<Era> table(eras().begin(), eras().end());
    table.push_back({"光文", 'K', day(2030, 4, 1)});
    const DateContext context{day(2031, 6, 1), DateGrain::day, table};

    CHECK(typedDateText(day(2030, 4, 1), kDayPattern, table) == "光文 01年04月01日");
    CHECK(typedDateText(day(2030, 3, 31), kDayPattern, table) == "令和 12年03月31日");
    checkAll({{"K2.6.1", 2031, 6, 1},
              {"光2.6.1", 2031, 6, 1},
              {"光文元年4月1日", 2030, 4, 1},
              {"2.6.1", 2031, 6, 1},
              {"R12.4.1", 2030, 4, 1},
              {"R12.3.31", 2030, 3, 31}},
             context);
    CHECK(readTypedDate("K1.3.31", context).complaint == "光文は2030年4月1日からです。それより前の日付です。");
    std::int32_t faults = 0;
    const auto first = static_cast<std::int32_t>(day(2025, 1, 1).days());
    const auto last = static_cast<std::int32_t>(day(2040, 12, 31).days());
    for (std::int32_t days = first; days <= last; ++days) {
        const TypedDate typed = readTypedDate(typedDateText(Date(days), kDayPattern, table), context);
        if (!typed.date || !(*typed.date == Date(days))) ++faults;
    }
    CHECK(faults == 0);
    CHECK(monthTitle(2030, 4, table) == "光文元年（2030年）4月");
}

TEST_CASE("a month title has the era and the western year, and both eras if the era changed in that month")
{
    CHECK(monthTitle(2026, 11) == "令和8年（2026年）11月");
    CHECK(monthTitle(2019, 5) == "令和元年（2019年）5月");
    CHECK(monthTitle(2019, 4) == "平成31年（2019年）4月");
    CHECK(monthTitle(1989, 1) == "昭和64年・平成元年（1989年）1月");
    CHECK(monthTitle(1868, 1) == "明治元年（1868年）1月");
}

TEST_CASE("a year title has the era and the western year, and both eras if the era changed in that year")
{
    CHECK(yearTitle(2026) == "令和8年（2026年）");
    CHECK(yearTitle(2019) == "平成31年・令和元年（2019年）");
    CHECK(yearTitle(1868) == "明治元年（1868年）");
}

TEST_CASE("the part at the cursor is the one that ends or begins there, the left one if both do")
{
    struct Row {
        std::size_t position; ///< in bytes: 令和 and a blank are 7, each of 年月日 is 3
        DatePart part;
    };
    for (const Row &row :
         {Row{0, DatePart::year}, Row{3, DatePart::year}, Row{7, DatePart::year}, Row{9, DatePart::year},
          Row{12, DatePart::month}, Row{14, DatePart::month}, Row{17, DatePart::day}, Row{19, DatePart::day},
          Row{22, DatePart::day}, Row{99, DatePart::day}}) {
        CAPTURE(row.position);
        CHECK(static_cast<int>(partAt(day(2026, 11, 21), kDayPattern, row.position).part) ==
              static_cast<int>(row.part));
    }
    CHECK(static_cast<int>(partAt(day(2026, 11, 21), kMonthPattern, 99).part) == static_cast<int>(DatePart::month));
    // Before the first part, that one counts.
    CHECK(static_cast<int>(partAt(day(2026, 11, 21), "(mm", 0).part) == static_cast<int>(DatePart::month));
}

TEST_CASE("stepping gives only existing days, from the first era to the year 9999")
{
    CHECK(stepped(day(2026, 1, 31), DatePart::month, 1) == day(2026, 2, 28));
    CHECK(stepped(day(2024, 2, 29), DatePart::year, 1) == day(2025, 2, 28));
    CHECK(stepped(day(2026, 12, 15), DatePart::month, 1) == day(2027, 1, 15));
    CHECK(stepped(day(2026, 1, 15), DatePart::month, -1) == day(2025, 12, 15));
    CHECK(stepped(day(2026, 11, 30), DatePart::day, 1) == day(2026, 12, 1));
    CHECK(stepped(day(1868, 1, 25), DatePart::day, -1) == day(1868, 1, 25));
    CHECK(stepped(day(1868, 12, 1), DatePart::year, -1) == day(1868, 12, 1));
    CHECK(stepped(day(9999, 12, 31), DatePart::day, 1) == day(9999, 12, 31));
    CHECK(stepped(day(9999, 12, 31), DatePart::month, 1) == day(9999, 12, 31));
}
