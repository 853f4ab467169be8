#include "viewer/form/date_pattern.h"

#include "runtime/date_text.h"
#include "runtime/format.h"

namespace inin::viewer {

namespace {

constexpr std::string_view kFirstYear = "元";
constexpr char kCut = '\x01';

/// The pattern with its runs of e as a literal 元. A run in quotes or behind a backslash is literal text already.
std::string withFirstYear(std::string_view pattern)
{
    std::string out;
    bool isQuoted = false;
    for (std::size_t at = 0; at < pattern.size(); ++at) {
        const char letter = pattern[at];
        if (letter == '"') isQuoted = !isQuoted;
        if (letter == '\\' && at + 1 < pattern.size()) {
            out += pattern.substr(at++, 2);
            continue;
        }
        if (isQuoted || (letter != 'e' && letter != 'E')) {
            out += letter;
            continue;
        }
        while (at + 1 < pattern.size() && (pattern[at + 1] == 'e' || pattern[at + 1] == 'E')) ++at;
        out += kFirstYear;
    }
    return out;
}

bool isFirstYear(Date day)
{
    const Era *era = eraOf(day);
    return era != nullptr && Year(day) == Year(era->first);
}

} // namespace

std::optional<std::string> writtenDate(std::string_view text, std::string_view pattern)
{
    const Regional regional;
    const std::optional<Date> date = readDate(text, regional);
    // A time alone is read as a time of the calendar's first day.
    if (!date || date->days() < 1) return std::nullopt;
    if (!isFirstYear(dayOf(*date))) return formatText(*date, pattern, regional);
    // With its e turned into letters a pattern may have no date left in it, and would be taken for one of numbers: a day
    // in front, which is cut off again, keeps it one of dates.
    const std::string kept = formatText(*date, "d" + std::string(1, kCut) + withFirstYear(pattern), regional);
    return kept.substr(kept.find(kCut) + 1);
}

} // namespace inin::viewer
