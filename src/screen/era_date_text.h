#pragma once

#include "runtime/date.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace inin {

/// The precision of a date box: a day or a whole month.
enum class DateGrain { day, month };

/// The context for reading typed text: the day of typing supplies an omitted era or year.
struct DateContext {
    Date today;
    DateGrain grain = DateGrain::day;
    std::span<const Era> eraTable = eras();
};

/// The result of reading typed text: a date, nothing for empty text, or an error message.
struct TypedDate {
    std::optional<Date> date;
    std::string complaint;
    std::string notice = {}; ///< a warning about a date that was read but is doubtful
    [[nodiscard]] bool isEmpty() const { return !date && complaint.empty(); }
};

/// Reads typed text: R8.11.21, r8/11/21, 令8.11.21, 令和8年11月21日, 令和元年5月1日, 8.11.21 (today's era), 081121,
/// 20261121, 2026/11/21, 1121 (today's year), 8 11 21. Full-width characters count as their narrow ones, ㋿ as 令和. A
/// weekday in brackets and a time after the date are dropped. A year past the end of its era is converted to the
/// following era; a day before the start of its era is refused. In a box for months the day is optional, and six digits
/// are year and month if that gives a month since the first era. A date more than five years from today has a notice: a
/// western year of two digits is read as a year of today's era.
[[nodiscard]] TypedDate readTypedDate(std::string_view text, const DateContext &context);

/// Formats the date by the box's pattern: runs of g, e, y, m and d as Format defines them, all other text unchanged.
[[nodiscard]] std::string typedDateText(Date date, std::string_view pattern, std::span<const Era> eraTable = eras());

enum class DatePart { year, month, day };
/// The position of a part in the text, in UTF-8 bytes; the era belongs to the year.
struct DatePartPlace {
    DatePart part = DatePart::year;
    std::size_t begin = 0;
    std::size_t end = 0;
};
/// The part at a position of a text formatted by the pattern; the last part for a position past the end.
[[nodiscard]] DatePartPlace partAt(Date date, std::string_view pattern, std::size_t position,
                                   std::span<const Era> eraTable = eras());
/// The date with one part stepped, not before the first era. A day missing in the new month becomes its last day.
[[nodiscard]] Date stepped(Date date, DatePart part, int by, std::span<const Era> eraTable = eras());

/// A month with its era and its western year: 令和8年（2026年）11月. Both eras if the era changed in that month.
[[nodiscard]] std::string monthTitle(std::int32_t year, std::int32_t month, std::span<const Era> eraTable = eras());

/// A year with its era and its western number: 令和8年（2026年）. Both eras if the era changed in that year.
[[nodiscard]] std::string yearTitle(std::int32_t year, std::span<const Era> eraTable = eras());

/// The era of a day, nullptr before the first era.
[[nodiscard]] const Era *eraIn(std::span<const Era> eraTable, Date date);

} // namespace inin
