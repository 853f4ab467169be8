#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace inin::site {

using Day = std::chrono::sys_days;
using YearMonth = std::chrono::year_month;

/// "YYYY-MM" of the years 1990 to 2098; nothing for any other text.
[[nodiscard]] std::optional<YearMonth> yearMonthFromText(std::string_view text);
/// The month in which the local clock stands.
[[nodiscard]] YearMonth currentMonth();
[[nodiscard]] std::string yearMonthText(YearMonth month);

[[nodiscard]] Day dayOfMonth(YearMonth month, unsigned day);
[[nodiscard]] Day lastDayOf(YearMonth month);

/// "YYYY-MM-DD HH:MM:00", as the date columns hold it.
[[nodiscard]] std::string isoText(Day day, int minuteOfDay = 0);
/// "YYYY/MM/DD", as the fee tables and the two date texts of a patient hold it.
[[nodiscard]] std::string slashText(Day day);
/// year * 10000 + month * 100 + day, as the planned visits hold it.
[[nodiscard]] std::int64_t dayNumber(Day day);

} // namespace inin::site
