#pragma once

#include "runtime/date.h"
#include "runtime/regional.h"

#include <optional>
#include <string_view>

namespace inin {

/// Reads a date, a time or both as toDate does; nothing when the text is none. A comma separates as a blank does, a point
/// separates the parts of a time ("1.5" is 1:05:00) unless it separates those of the short date.
/// The order of day, month and year is that of the short date; where it makes no day, the other customary orders are
/// tried: 2024/13/1 is 13 January, 5/1/2024 is 1 May. A date needs its year: there is no clock down here that could
/// add it. Two parts are a month and a year of more than two digits. Eras are read where the short date has them.
[[nodiscard]] std::optional<Date> readDate(std::string_view text, const Regional &regional);

} // namespace inin
