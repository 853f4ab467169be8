// Default texts: how numbers and dates are written without a pattern.

#include "runtime/conversion.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>
#include <iterator>

namespace inin {

namespace {

/// A date as the fields of a picture. Before the first era the year is always written in full.
struct PictureDate {
    PictureDate(Date date, std::string_view picture)
        : parts(partsOf(date)), era(hasEra(picture) ? eraOf(dayOf(date)) : nullptr),
          isBeforeEras(era == nullptr && hasEra(picture))
    {
    }
    DateParts parts;
    const Era *era;
    bool isBeforeEras;
};

/// A picture character that is repeated means at least two digits.
void appendNumber(std::string &text, std::int32_t number, std::size_t count)
{
    fmt::format_to(std::back_inserter(text), "{:0{}}", number, std::min<std::size_t>(count, 2));
}

void appendDatePart(std::string &text, char letter, std::size_t count, const PictureDate &date)
{
    const DateParts &parts = date.parts;
    switch (letter) {
    case 'g':
        if (date.era != nullptr) text += date.era->name;
        break;
    case 'd':
        appendNumber(text, parts.day, count);
        break;
    case 'M':
        appendNumber(text, parts.month, count);
        break;
    default:
        if (date.era != nullptr) appendNumber(text, parts.year - Year(date.era->first) + 1, count);
        // A year before 1000 is not padded: 100/01/01.
        else if (count > 2 || date.isBeforeEras)
            text += std::to_string(parts.year);
        else
            appendNumber(text, parts.year % 100, count);
    }
}

void appendShortDate(std::string &text, std::string_view picture, Date date)
{
    const PictureDate shown(date, picture);
    bool isQuoted = false;
    for (std::size_t i = 0; i < picture.size();) {
        const char c = picture[i];
        const std::size_t run = std::min(picture.find_first_not_of(c, i), picture.size()) - i;
        if (c == '\'') {
            isQuoted = !isQuoted;
            ++i;
        } else if (!isQuoted && (c == 'd' || c == 'M' || c == 'y' || c == 'g')) {
            appendDatePart(text, c, run, shown);
            i += run;
        } else {
            text += c;
            ++i;
        }
    }
}

} // namespace

std::string numberText(double value)
{
    if (std::isnan(value)) return "1.#QNAN";
    if (std::isinf(value)) return std::signbit(value) ? "-1.#INF" : "1.#INF";
    if (value == 0) return "0"; // negative zero too
    return fmt::format("{:.15G}", value);
}

std::string dateText(Date date, const Regional &regional)
{
    const DateParts parts = partsOf(date);
    // The stored time decides, not the displayed one: a time that rounds up to midnight is still written, as 0:00:00.
    const double day = std::trunc(date.days());
    std::string text;
    if (day != 0) appendShortDate(text, regional.shortDate, date);
    if (day == 0 || day != date.days())
        fmt::format_to(std::back_inserter(text), "{}{}:{:02}:{:02}", text.empty() ? "" : " ", parts.hour, parts.minute,
                       parts.second);
    return text;
}

} // namespace inin
