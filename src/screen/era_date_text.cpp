#include "screen/era_date_text.h"

#include "runtime/format.h"
#include "runtime/text.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <vector>

namespace inin {

namespace {

constexpr std::int32_t kLastYear = 9999;
constexpr std::int32_t kMonths = 12;

struct DateTextPiece {
    char letter = '\0';
    std::string text;
};

std::int32_t eraYear(const Era &era, std::int32_t year)
{
    return year - Year(era.first) + 1;
}

std::string eraText(char letter, std::size_t count, Date date, std::span<const Era> eraTable)
{
    const Era *era = eraIn(eraTable, date);
    if (letter == 'g') {
        if (era == nullptr) return {};
        if (count == 1) return {era->letter};
        return count == 2 ? left(era->name, 1) : std::string(era->name);
    }
    const std::int32_t year = era != nullptr ? eraYear(*era, Year(date)) : Year(date);
    return fmt::format("{:0{}}", year, count > 1 ? 2 : 1);
}

/// The pieces of a pattern, formatted for a date. The eras are from the table; everything else is formatted by Format.
std::vector<DateTextPiece> piecesOf(Date date, std::string_view pattern, std::span<const Era> eraTable)
{
    std::vector<DateTextPiece> pieces;
    while (!pattern.empty()) {
        const char letter = pattern.front();
        const bool isField = std::string_view("geymd").find(letter) != std::string_view::npos;
        const std::size_t count = isField ? std::min(pattern.find_first_not_of(letter), pattern.size()) : 1;
        const std::string_view run = pattern.substr(0, count);
        if (letter == 'g' || letter == 'e')
            pieces.push_back({letter, eraText(letter, count, date, eraTable)});
        else
            pieces.push_back({isField ? letter : '\0', isField ? formatText(date, run, {}) : std::string(run)});
        pattern.remove_prefix(count);
    }
    return pieces;
}

DatePart partOf(char letter)
{
    if (letter == 'm') return DatePart::month;
    return letter == 'd' ? DatePart::day : DatePart::year;
}

std::string yearsTitle(Date first, Date last, std::span<const Era> eraTable)
{
    std::string title;
    for (const Era *era : {eraIn(eraTable, first), eraIn(eraTable, last)}) {
        if (era == nullptr) continue;
        const std::int32_t year = eraYear(*era, Year(first));
        const std::string text = fmt::format("{}{}年", era->name, year == 1 ? "元" : std::to_string(year));
        if (title == text) continue;
        title += (title.empty() ? "" : "・") + text;
    }
    return title;
}

} // namespace

const Era *eraIn(std::span<const Era> eraTable, Date date)
{
    const Era *found = nullptr;
    for (const Era &era : eraTable)
        if (era.first <= dayOf(date)) found = &era;
    return found;
}

std::string typedDateText(Date date, std::string_view pattern, std::span<const Era> eraTable)
{
    std::string text;
    for (const DateTextPiece &piece : piecesOf(date, pattern, eraTable)) text += piece.text;
    return text;
}

DatePartPlace partAt(Date date, std::string_view pattern, std::size_t position, std::span<const Era> eraTable)
{
    DatePartPlace place;
    std::size_t at = 0;
    for (const DateTextPiece &piece : piecesOf(date, pattern, eraTable)) {
        const std::size_t end = at + piece.text.size();
        // Between two parts, the one on the left counts: its last digit is the one just typed.
        if (piece.letter != '\0' && (at <= position || place.end == 0)) place = {partOf(piece.letter), at, end};
        if (position < end && place.end != 0) break;
        at = end;
    }
    return place;
}

Date stepped(Date date, DatePart part, int by, std::span<const Era> eraTable)
{
    DateParts parts = partsOf(dayOf(date));
    if (part != DatePart::day) {
        const std::int32_t months =
            parts.year * kMonths + parts.month - 1 + (part == DatePart::year ? by * kMonths : by);
        parts.year = months / kMonths;
        parts.month = months % kMonths + 1;
        if (parts.year > kLastYear) return date;
        while (!isRealDay(parts) && parts.day > 1) --parts.day;
        if (!isRealDay(parts)) return date;
    }
    const Date moved = part == DatePart::day ? Date(dayOf(date).days() + by) : dateOf(parts);
    constexpr double kAfterLastDay = 2958466; // 10000-01-01
    return moved < eraTable.front().first || moved.days() >= kAfterLastDay ? date : moved;
}

std::string yearTitle(std::int32_t year, std::span<const Era> eraTable)
{
    return fmt::format("{}（{}年）", yearsTitle(dateOf({year, 1, 1}), dateOf({year, 12, 31}), eraTable), year);
}

std::string monthTitle(std::int32_t year, std::int32_t month, std::span<const Era> eraTable)
{
    return fmt::format("{}（{}年）{}月", yearsTitle(dateOf({year, month, 1}), lastDayOfMonth(year, month), eraTable),
                       year, month);
}

} // namespace inin
