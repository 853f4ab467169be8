#pragma once

#include "runtime/date.h"

#include <optional>
#include <string>
#include <string_view>

namespace inin {

/// A point in time as a range of texts in a date column. A column contains "YYYY-MM-DD HH:MM:SS", the date alone, or a
/// fraction after the seconds. As plain texts, all formats of one point in time sort from `lowest` to `highest`, so
/// comparisons can use the index of the column.
struct SqlMoment {
    std::string lowest;
    std::string highest;
    std::string stored; ///< the format in which the adapter writes it
};

/// Reads a date literal as the server does: yyyy/m/d, yyyy-m-d, yy/m/d or yyyymmdd, optionally followed by a blank or T
/// and h:mm[:ss[.fff]]; blank text is 1900-01-01. Nothing for any other text.
[[nodiscard]] std::optional<SqlMoment> momentFromText(std::string_view text);

/// Reads a date column: "YYYY-MM-DD", optionally followed by a blank or T and HH:MM[:SS[.fff]]. Nothing otherwise.
[[nodiscard]] std::optional<Date> dateFromColumn(std::string_view text);

/// The value of a date column as yyyy/mm/dd (style 111) or yyyymmdd (style 112); any other text unchanged.
[[nodiscard]] std::string convertDateText(std::string_view text, int style);

/// Compares two values of date columns: a missing time is midnight, trailing zeros of a fraction are ignored.
[[nodiscard]] int compareDateTexts(std::string_view a, std::string_view b);

} // namespace inin
