// No randomness: all 85,102 days from 1868 to 2100, or every fourth under the sanitizers.

#include "runtime/conversion.h"
#include "runtime/date_text.h"
#include "runtime/format.h"
#include "screen/era_date_text.h"
#include "support/regional.h"
#include "support/sample_size.h"

#include <doctest/doctest.h>
#include <fmt/format.h>

#include <chrono>
#include <functional>
#include <string>

using namespace inin;
using namespace std::chrono;

namespace {

/// A day by the calendar of the standard library and the table of eras, without the code under test.
struct CalendarDay {
    int year;
    unsigned month, day;
    double serial; ///< days since 1899-12-30
    const char *era = nullptr, *letter = nullptr;
    int eraYear = 0;
};

CalendarDay calendarDay(sys_days at)
{
    struct EraStart {
        const char *name, *letter;
        sys_days first;
    };
    const EraStart eras[] = {
        {"明治", "M", sys_days{1868y / January / 25}},  {"大正", "T", sys_days{1912y / July / 30}},
        {"昭和", "S", sys_days{1926y / December / 25}}, {"平成", "H", sys_days{1989y / January / 8}},
        {"令和", "R", sys_days{2019y / May / 1}},
    };
    const year_month_day parts(at);
    CalendarDay day{.year = static_cast<int>(parts.year()),
                    .month = static_cast<unsigned>(parts.month()),
                    .day = static_cast<unsigned>(parts.day()),
                    .serial = static_cast<double>((at - sys_days{1899y / December / 30}).count())};
    for (const EraStart &era : eras) {
        if (at < era.first) break;
        day.era = era.name;
        day.letter = era.letter;
        day.eraYear = day.year - static_cast<int>(year_month_day(era.first).year()) + 1;
    }
    return day;
}

/// The days for which a claim does not hold, up to ten of them.
std::string exceptions(const std::function<bool(const CalendarDay &)> &claim)
{
    std::string days;
    int count = 0, wrong = 0;
    for (sys_days at = sys_days{1868y / January / 1}; at <= sys_days{2100y / December / 31};
         at += std::chrono::days{kSampleStep}) {
        const CalendarDay day = calendarDay(at);
        ++count;
        if (!claim(day) && ++wrong <= 10) days += fmt::format("{}-{}-{} ", day.year, day.month, day.day);
    }
    CHECK(count == sampleSize(85102));
    return days;
}

bool isRead(const std::string &text, const CalendarDay &day)
{
    const std::optional<Date> date = readDate(text, kRegional);
    return date && date->days() == day.serial;
}

bool isTyped(const std::string &text, const CalendarDay &day)
{
    DateContext context;
    context.today = DateSerial(2024, 5, 20);
    const TypedDate typed = readTypedDate(text, context);
    return typed.date && typed.date->days() == day.serial && typed.complaint.empty();
}

} // namespace

TEST_CASE("every day has the parts and the number of days of the calendar")
{
    CHECK(exceptions([](const CalendarDay &day) {
              const auto month = static_cast<std::int32_t>(day.month), of = static_cast<std::int32_t>(day.day);
              const Date date(day.serial);
              return DateSerial(day.year, month, of) == date && Year(date) == day.year && Month(date) == month &&
                     Day(date) == of && lastDayOfMonth(day.year, month) >= date &&
                     (Day(Date(day.serial + 1)) == 1) == (lastDayOfMonth(day.year, month) == date);
          }) == "");
}

TEST_CASE("the default text of every day is read back as that day, except on day 0, where it is a time")
{
    CHECK(exceptions([](const CalendarDay &day) {
              const std::string text = fmt::format("{}/{:02}/{:02}", day.year, day.month, day.day);
              return dateText(Date(day.serial), kRegional) == (day.serial == 0 ? "0:00:00" : text) &&
                     isRead(text, day) && isRead(fmt::format("{}-{}-{}", day.year, day.month, day.day), day) &&
                     formatText(Date(day.serial), "yyyy/m/d", kRegional) ==
                         fmt::format("{}/{}/{}", day.year, day.month, day.day);
          }) == "");
}

TEST_CASE("every day since the first era is read back from what a person types and from what a box shows")
{
    CHECK(exceptions([](const CalendarDay &day) {
              const std::string western = fmt::format("{}/{}/{}", day.year, day.month, day.day);
              if (day.era == nullptr) return !isTyped(western, day);
              const std::string shown =
                  fmt::format("{} {:02}年{:02}月{:02}日", day.era, day.eraYear, day.month, day.day);
              return typedDateText(Date(day.serial), "ggg ee年mm月dd日") == shown && isTyped(shown, day) &&
                     isTyped(western, day) && isTyped(fmt::format("{}{:02}{:02}", day.year, day.month, day.day), day) &&
                     isTyped(fmt::format("{}{}.{}.{}", day.letter, day.eraYear, day.month, day.day), day) &&
                     formatText(Date(day.serial), "ggge年m月d日", kRegional) ==
                         fmt::format("{}{}年{}月{}日", day.era, day.eraYear, day.month, day.day);
          }) == "");
}
