#pragma once

#include "runtime/date.h"
#include "runtime/regional.h"

#include <optional>
#include <string_view>

namespace inin {

/// Reads a date, a time or both by the rules of toDate; nothing if the text is neither. A comma separates like a blank.
/// A point separates the parts of a time ("1.5" is 1:05:00) unless it separates those of the short date. Day, month and
/// year are read in the order of the short date; if that is not a valid day, the other customary orders are tried:
/// 2024/13/1 is 13 January, 5/1/2024 is 1 May. The year is required, because the runtime has no clock to supply it. Two
/// parts are a month and a year of more than two digits. Eras are read if the short date has them.
[[nodiscard]] std::optional<Date> readDate(std::string_view text, const Regional &regional);

} // namespace inin
