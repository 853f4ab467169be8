#pragma once

#include "runtime/date.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace inin {

/// What a date box shows: a day, or a month alone.
enum class DateGrain { day, month };

/// What the meaning of a typed text hangs on: the day on which it is typed gives the era and the year that are left out.
struct DateContext {
    Date today;
    DateGrain grain = DateGrain::day;
    std::span<const Era> eraTable = eras();
};

/// A typed text as it was read: a date, or empty, or a sentence that says why it is neither.
struct TypedDate {
    std::optional<Date> date;
    std::string complaint;
    std::string notice = {}; ///< a sentence about a date that was read but is doubtful
    [[nodiscard]] bool isEmpty() const { return !date && complaint.empty(); }
};

/// Reads what a person types: R8.11.21, r8/11/21, 令8.11.21, 令和8年11月21日, 令和元年5月1日, 8.11.21 (the era of today),
/// 081121, 20261121, 2026/11/21, 1121 (the year of today), 8 11 21; full-width characters count as their narrow ones, ㋿ as
/// 令和. A weekday in brackets and a time after the date are dropped. An era that has ended is counted on into the right
/// one; a day before its era's first is refused. Where months are shown, the day may be left out, and six digits are year
/// and month if that makes a month since the first era. A date more than five years from today is read with a notice: a
/// western year of two digits is taken for a year of today's era.
[[nodiscard]] TypedDate readTypedDate(std::string_view text, const DateContext &context);

/// The date by the box's pattern: runs of g, e, y, m and d as Format knows them, all else as it stands.
[[nodiscard]] std::string typedDateText(Date date, std::string_view pattern, std::span<const Era> eraTable = eras());

enum class DatePart { year, month, day };
/// Where a part stands in the text, in UTF-8 bytes; the era belongs to the year.
struct DatePartPlace {
    DatePart part = DatePart::year;
    std::size_t begin = 0;
    std::size_t end = 0;
};
/// The part at a position of a text that a pattern has written; the last one for a position behind the text.
[[nodiscard]] DatePartPlace partAt(Date date, std::string_view pattern, std::size_t position,
                                   std::span<const Era> eraTable = eras());
/// The date with one part stepped. A day that the new month lacks becomes its last; nothing before the first era.
[[nodiscard]] Date stepped(Date date, DatePart part, int by, std::span<const Era> eraTable = eras());

/// A month with its era and its western year: 令和8年（2026年）11月; both eras for a month in which one ended.
[[nodiscard]] std::string monthTitle(std::int32_t year, std::int32_t month, std::span<const Era> eraTable = eras());

/// The era of a day, nullptr before the first.
[[nodiscard]] const Era *eraIn(std::span<const Era> eraTable, Date date);

} // namespace inin
