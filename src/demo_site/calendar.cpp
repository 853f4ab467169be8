#include "demo_site/calendar.h"

#include "adapters/native/native_platform.h"

#include <fmt/format.h>

#include <ctime>

namespace inin::site {

namespace {

constexpr int kFirstYear = 1990;
constexpr int kLastYear = 2098;

struct Parts {
    std::int64_t year;
    std::int64_t month;
    std::int64_t day;
};

Parts partsOf(Day day)
{
    const std::chrono::year_month_day date{day};
    return {int{date.year()}, unsigned{date.month()}, unsigned{date.day()}};
}

std::optional<int> readDigits(std::string_view text)
{
    int value = 0;
    for (const char character : text) {
        if (character < '0' || character > '9') return std::nullopt;
        value = value * 10 + (character - '0');
    }
    return value;
}

} // namespace

std::optional<YearMonth> yearMonthFromText(std::string_view text)
{
    if (text.size() != 7 || text[4] != '-') return std::nullopt;
    const auto year = readDigits(text.substr(0, 4));
    const auto month = readDigits(text.substr(5));
    if (!year || !month || *year < kFirstYear || *year > kLastYear || *month < 1 || *month > 12) return std::nullopt;
    return std::chrono::year{*year} / std::chrono::month{static_cast<unsigned>(*month)};
}

YearMonth currentMonth()
{
    const DateParts now = inin::partsOf(makeSystemClock()->now());
    return std::chrono::year{now.year} / std::chrono::month{static_cast<unsigned>(now.month)};
}

std::string yearMonthText(YearMonth month)
{
    return fmt::format("{:04}-{:02}", static_cast<int>(month.year()), static_cast<unsigned>(month.month()));
}

Day dayOfMonth(YearMonth month, unsigned day)
{
    return Day{month / std::chrono::day{day}};
}

Day lastDayOf(YearMonth month)
{
    return Day{month / std::chrono::last};
}

std::string isoText(Day day, int minuteOfDay)
{
    const Parts parts = partsOf(day);
    return fmt::format("{:04}-{:02}-{:02} {:02}:{:02}:00", parts.year, parts.month, parts.day, minuteOfDay / 60,
                       minuteOfDay % 60);
}

std::string slashText(Day day)
{
    const Parts parts = partsOf(day);
    return fmt::format("{:04}/{:02}/{:02}", parts.year, parts.month, parts.day);
}

std::int64_t dayNumber(Day day)
{
    const Parts parts = partsOf(day);
    return parts.year * 10000 + parts.month * 100 + parts.day;
}

} // namespace inin::site
