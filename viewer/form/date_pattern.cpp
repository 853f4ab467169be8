#include "viewer/form/date_pattern.h"

#include "runtime/date_text.h"
#include "runtime/format.h"

namespace inin::viewer {

namespace {

constexpr std::string_view kFirstYear = "元";
constexpr char kMarker = '\x01';

/// Replaces each run of e in the pattern by a literal 元, except in quotes and after a backslash.
std::string withFirstYear(std::string_view pattern)
{
    std::string out;
    bool isQuoted = false;
    for (std::size_t at = 0; at < pattern.size(); ++at) {
        const char c = pattern[at];
        if (c == '"') isQuoted = !isQuoted;
        if (c == '\\' && at + 1 < pattern.size()) {
            out += pattern.substr(at++, 2);
            continue;
        }
        if (isQuoted || (c != 'e' && c != 'E')) {
            out += c;
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

std::string blankDate(std::string_view pattern)
{
    constexpr std::string_view kCodes = "ymdge", kBlank = "\u3000";
    std::string out;
    bool isQuoted = false;
    for (std::size_t at = 0; at < pattern.size(); ++at) {
        const char c = pattern[at], code = static_cast<char>(c | 0x20);
        if (c == '"') {
            isQuoted = !isQuoted;
        } else if (c == '\\' && at + 1 < pattern.size()) {
            out += pattern[++at];
        } else if (isQuoted || kCodes.find(code) == std::string_view::npos) {
            out += c;
        } else {
            // Two characters of the longest values: 令和, 12. A year without an era has four digits.
            std::size_t count = 1;
            while (at + 1 < pattern.size() && (pattern[at + 1] | 0x20) == code) ++at, ++count;
            const bool isLongYear = code == 'y' && count > 2;
            for (int i = 0; i < (isLongYear ? 4 : 2); ++i) out += kBlank;
        }
    }
    return out;
}

std::optional<std::string> formattedDate(std::string_view text, std::string_view pattern)
{
    const Regional regional;
    const std::optional<Date> date = readDate(text, regional);
    // A time without a date is read as a time on day 0.
    if (!date || date->days() < 1) return std::nullopt;
    if (!isFirstYear(dayOf(*date))) return formatText(*date, pattern, regional);
    // Without its e, a pattern may contain no date code and would format the date as a number. A leading day, which is
    // cut off afterwards, keeps it a date pattern.
    const std::string marked = formatText(*date, "d" + std::string(1, kMarker) + withFirstYear(pattern), regional);
    return marked.substr(marked.find(kMarker) + 1);
}

} // namespace inin::viewer
