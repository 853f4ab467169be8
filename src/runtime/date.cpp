#include "runtime/date.h"

#include "runtime/runtime_error.h"

#include <array>
#include <chrono>
#include <cmath>

namespace inin {

namespace {

using std::chrono::sys_days;
using std::chrono::year_month_day;

constexpr sys_days kDayZero{std::chrono::year{1899} / 12 / 30};
constexpr std::int32_t kSecondsOfDay = 86400;
constexpr std::int32_t kFirstYear = 100;
constexpr std::int32_t kLastYear = 9999;
constexpr std::int32_t kFirstDay = -657434; // 0100-01-01
constexpr std::int32_t kLastDay = 2958465;  // 9999-12-31

constexpr std::int64_t daysAt(year_month_day calendar)
{
    return (sys_days{calendar} - kDayZero).count();
}

constexpr Date dayDate(int year, int month, int day)
{
    return Date(static_cast<double>(daysAt(std::chrono::year{year} / month / day)));
}

constexpr std::int64_t floorDivide(std::int64_t value, std::int64_t divisor)
{
    return value / divisor - (value % divisor < 0 ? 1 : 0);
}

constexpr std::array kEras{
    Era{"明治", 'M', dayDate(1868, 1, 25)},  Era{"大正", 'T', dayDate(1912, 7, 30)},
    Era{"昭和", 'S', dayDate(1926, 12, 25)}, Era{"平成", 'H', dayDate(1989, 1, 8)},
    Era{"令和", 'R', dayDate(2019, 5, 1)},
};

struct DayAndSecond {
    std::int32_t day;
    std::int32_t second;
};

/// The whole day and the second of the day; a time that rounds up to midnight carries over.
DayAndSecond split(Date date)
{
    const double whole = std::trunc(date.days());
    if (!(whole >= kFirstDay && whole <= kLastDay)) throw RuntimeError(error_number::invalidCall);
    const auto second = static_cast<std::int32_t>(std::lround(std::abs(date.days() - whole) * kSecondsOfDay));
    const auto day = static_cast<std::int32_t>(whole);
    if (second < kSecondsOfDay) return {day, second};
    if (day == kLastDay) throw RuntimeError(error_number::invalidCall);
    return {day + 1, 0};
}

year_month_day calendarDay(std::int32_t day)
{
    return year_month_day{kDayZero + std::chrono::days{day}};
}

} // namespace

DateParts partsOf(Date date)
{
    const auto [day, second] = split(date);
    const year_month_day calendar = calendarDay(day);
    return {static_cast<int>(calendar.year()),
            static_cast<std::int32_t>(static_cast<unsigned>(calendar.month())),
            static_cast<std::int32_t>(static_cast<unsigned>(calendar.day())),
            second / 3600,
            second / 60 % 60,
            second % 60};
}

bool isRealDay(const DateParts &parts)
{
    const auto within = [](std::int32_t value, std::int32_t low, std::int32_t high) {
        return value >= low && value <= high;
    };
    // Check the ranges first: std::chrono stores a month and a day in one byte.
    return within(parts.year, kFirstYear, kLastYear) && within(parts.month, 1, 12) && within(parts.day, 1, 31) &&
           (std::chrono::year{parts.year} / parts.month / parts.day).ok();
}

Date dateOf(const DateParts &parts)
{
    const bool isTime = parts.hour >= 0 && parts.hour < 24 && parts.minute >= 0 && parts.minute < 60 &&
                        parts.second >= 0 && parts.second < 60;
    if (!isTime || !isRealDay(parts)) throw RuntimeError(error_number::invalidCall);
    const double days = dayDate(parts.year, parts.month, parts.day).days();
    const double time = (parts.hour * 3600 + parts.minute * 60 + parts.second) / double{kSecondsOfDay};
    return Date(days < 0 ? days - time : days + time);
}

std::int32_t fullYear(std::int32_t year)
{
    if (year < 0 || year > 99) return year;
    return year < 30 ? year + 2000 : year + 1900;
}

Date DateSerial(std::int32_t year, std::int32_t month, std::int32_t day)
{
    // Months are carried before days. std::chrono years are 16 bits wide, so whole Gregorian cycles are counted
    // separately: any 32-bit arguments that yield a valid day are accepted.
    constexpr std::int64_t kMonthsOfCycle = 4800; // 400 years
    constexpr std::int64_t kDaysOfCycle = 146097;
    const std::int64_t months = std::int64_t{fullYear(year)} * 12 + month - 1;
    const std::int64_t cycles = floorDivide(months, kMonthsOfCycle);
    const auto inCycle = static_cast<int>(months - cycles * kMonthsOfCycle);
    const std::int64_t firstOfMonth =
        cycles * kDaysOfCycle + daysAt(std::chrono::year{inCycle / 12} / (inCycle % 12 + 1) / 1);
    const std::int64_t days = firstOfMonth + day - 1;
    if (days < kFirstDay || days > kLastDay) throw RuntimeError(error_number::invalidCall);
    return Date(static_cast<double>(days));
}

Date lastDayOfMonth(std::int32_t year, std::int32_t month)
{
    return DateSerial(year, month + 1, 0);
}

std::int16_t Year(Date date)
{
    return static_cast<std::int16_t>(partsOf(date).year);
}
std::int16_t Month(Date date)
{
    return static_cast<std::int16_t>(partsOf(date).month);
}
std::int16_t Day(Date date)
{
    return static_cast<std::int16_t>(partsOf(date).day);
}
Date dayOf(Date date)
{
    return Date(split(date).day);
}

std::span<const Era> eras()
{
    return kEras;
}

const Era *eraOf(Date date)
{
    const Date day = dayOf(date);
    const Era *found = nullptr;
    for (const Era &era : kEras)
        if (era.first <= day) found = &era;
    return found;
}

} // namespace inin
