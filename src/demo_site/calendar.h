#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace inin::site {

using Day = std::chrono::sys_days;
using YearMonth = std::chrono::year_month;

/// Reads "YYYY-MM" for the years 1990 to 2098; nothing for any other text.
[[nodiscard]] std::optional<YearMonth> yearMonthFromText(std::string_view text);
/// The current month of the local clock.
[[nodiscard]] YearMonth currentMonth();
[[nodiscard]] std::string yearMonthText(YearMonth month);

[[nodiscard]] Day dayOfMonth(YearMonth month, unsigned day);
[[nodiscard]] Day lastDayOf(YearMonth month);

/// "YYYY-MM-DD HH:MM:00", the format of the date columns.
[[nodiscard]] std::string isoText(Day day, int minuteOfDay = 0);
/// "YYYY/MM/DD", the format of the fee tables and of the two text dates of a patient.
[[nodiscard]] std::string slashText(Day day);
/// year * 10000 + month * 100 + day, the format of the planned visits.
[[nodiscard]] std::int64_t dayNumber(Day day);

} // namespace inin::site
