#pragma once

#include "runtime/date.h"

#include <optional>
#include <string>
#include <string_view>

namespace inin {

/// The two ends between which a point in time stands in a date column. A column holds "YYYY-MM-DD HH:MM:SS", or the day
/// alone, or a fraction behind the seconds; as plain texts all forms of one moment sort from `lowest` to `highest`,
/// so comparisons need no function around the column and its index stays of use.
struct SqlMoment {
    std::string lowest;
    std::string highest;
    std::string stored; ///< the form in which the adapter writes it
};

/// A quoted text that is wholly a date as the server reads it: yyyy/m/d, yyyy-m-d, yy/m/d, yyyymmdd, each with
/// an optional h:mm[:ss[.fff]] behind a blank or T; blank text is 1900-01-01. Nothing for any other text.
[[nodiscard]] std::optional<SqlMoment> momentFromText(std::string_view text);

/// The value of a date column: "YYYY-MM-DD", perhaps with HH:MM[:SS[.fff]] behind a blank or T. Nothing otherwise.
[[nodiscard]] std::optional<Date> dateFromColumn(std::string_view text);

/// The same day as yyyy/mm/dd (style 111) or yyyymmdd (style 112); text that is no date column's value stays.
[[nodiscard]] std::string convertDateText(std::string_view text, int style);

/// Order of two values of date columns: a missing time is midnight, zeros at the end of a fraction do not count.
[[nodiscard]] int compareDateTexts(std::string_view a, std::string_view b);

} // namespace inin
