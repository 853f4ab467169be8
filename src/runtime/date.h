#pragma once

#include <compare>
#include <cstdint>
#include <span>
#include <string_view>

namespace inin {

/// A point in time in the runtime's representation: days since 1899-12-30, with the time of day as the fraction. Before
/// that day the fraction still counts forward from midnight: -1.25 is 1899-12-29 06:00.
class Date {
public:
    constexpr Date() = default;
    constexpr explicit Date(double days) : m_days(days) {}
    [[nodiscard]] constexpr double days() const { return m_days; }
    friend constexpr bool operator==(const Date &, const Date &) = default;
    friend constexpr std::partial_ordering operator<=>(const Date &a, const Date &b) { return a.m_days <=> b.m_days; }

private:
    double m_days = 0;
};

/// Calendar and clock fields of a Date, rounded to the nearest second.
struct DateParts {
    std::int32_t year = 1899;
    std::int32_t month = 12;
    std::int32_t day = 30;
    std::int32_t hour = 0;
    std::int32_t minute = 0;
    std::int32_t second = 0;
};

[[nodiscard]] DateParts partsOf(Date date);
/// True if year, month and day form a valid day of the years 100 to 9999.
[[nodiscard]] bool isRealDay(const DateParts &parts);
/// The Date of a valid day and time. Error 5 outside the years 100 to 9999.
[[nodiscard]] Date dateOf(const DateParts &parts);

/// The date of year, month and day with carry: month 13 is January of the next year, day 0 the last day of the previous
/// month. Years 0 to 29 mean 2000 to 2029, 30 to 99 mean 1930 to 1999. Error 5 outside the years 100 to 9999.
[[nodiscard]] Date DateSerial(std::int32_t year, std::int32_t month, std::int32_t day);

/// The last day of a month of that year, with the carry and the errors of DateSerial.
[[nodiscard]] Date lastDayOfMonth(std::int32_t year, std::int32_t month);

/// Expands a two-digit year: 0 to 29 is 2000 to 2029, 30 to 99 is 1930 to 1999. Others are returned unchanged.
[[nodiscard]] std::int32_t fullYear(std::int32_t year);

[[nodiscard]] std::int16_t Year(Date date);
[[nodiscard]] std::int16_t Month(Date date);
[[nodiscard]] std::int16_t Day(Date date);
/// The date without its time.
[[nodiscard]] Date dayOf(Date date);

/// A Japanese era: its name, its Latin initial and its first day.
struct Era {
    std::string_view name;
    char letter;
    Date first;
};
/// The eras from 明治 on, oldest first.
[[nodiscard]] std::span<const Era> eras();
/// The era of a day; nullptr before 1868-01-25.
[[nodiscard]] const Era *eraOf(Date date);

} // namespace inin
