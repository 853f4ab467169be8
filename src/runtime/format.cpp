#include "runtime/format.h"

#include "runtime/conversion.h"
#include "runtime/date_text.h"
#include "runtime/number_text.h"
#include "runtime/text.h"

#include <cmath>
#include <fmt/format.h>
#include <iterator>
#include <optional>

namespace inin {

namespace {

constexpr std::string_view kDateLetters = "ymdhnsge";
constexpr std::string_view kDigitLetters = "0#";

/// A part of a pattern: a run of one pattern character (in lower case), or a byte of literal text with NUL as `letter`.
struct Piece {
    char letter = '\0';
    std::size_t count = 0;
    std::string_view text;
};

/// Splits a date pattern. A backslash makes the next byte literal, double quotes the text between them.
class PatternWalk {
public:
    explicit PatternWalk(std::string_view pattern) : m_rest(pattern) {}

    std::optional<Piece> next()
    {
        while (m_rest.starts_with('"')) {
            m_isQuoted = !m_isQuoted;
            m_rest.remove_prefix(1);
        }
        if (m_rest.empty()) return std::nullopt;
        if (m_isQuoted) return taken(1, '\0');
        if (m_rest.starts_with('\\') && m_rest.size() > 1) {
            m_rest.remove_prefix(1);
            return taken(1, '\0');
        }
        const char letter = lowered(m_rest.front());
        if (kDateLetters.find(letter) == std::string_view::npos) return taken(1, '\0');
        std::size_t count = 1;
        while (count < m_rest.size() && lowered(m_rest[count]) == letter) ++count;
        return taken(count, letter);
    }

private:
    static char lowered(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }
    Piece taken(std::size_t count, char letter)
    {
        const Piece piece{letter, count, m_rest.substr(0, count)};
        m_rest.remove_prefix(count);
        return piece;
    }
    std::string_view m_rest;
    bool m_isQuoted = false;
};

bool isDatePattern(std::string_view pattern)
{
    PatternWalk walk(pattern);
    while (const std::optional<Piece> piece = walk.next())
        if (piece->letter != '\0') return true;
    return false;
}

/// Writes a Date by the parts of a pattern.
class DateWriter {
public:
    explicit DateWriter(Date date) : m_date(dayOf(date)), m_parts(partsOf(date)), m_era(eraOf(m_date)) {}

    std::string write(std::string_view pattern)
    {
        PatternWalk walk(pattern);
        while (const std::optional<Piece> piece = walk.next()) {
            if (piece->letter == '\0')
                m_text += piece->text;
            else
                writeRun(*piece);
        }
        return std::move(m_text);
    }

private:
    void writeRun(const Piece &piece)
    {
        switch (piece.letter) {
        case 'y':
            writeYear(piece.count);
            break;
        case 'm':
            number(m_afterHour ? m_parts.minute : m_parts.month, piece.count);
            break;
        case 'd':
            number(m_parts.day, piece.count);
            break;
        case 'h':
            number(m_parts.hour, piece.count);
            break;
        case 'n':
            number(m_parts.minute, piece.count);
            break;
        case 's':
            number(m_parts.second, piece.count);
            break;
        case 'g':
            writeEra(piece.count);
            break;
        default:
            number(eraYear(), piece.count);
            break;
        }
        m_afterHour = piece.letter == 'h'; // an m after the hour means minutes
    }

    void number(std::int32_t value, std::size_t count)
    {
        fmt::format_to(std::back_inserter(m_text), "{:0{}}", value, count > 1 ? 2 : 1);
    }

    void writeYear(std::size_t count)
    {
        const auto out = std::back_inserter(m_text);
        if (count > 2)
            fmt::format_to(out, "{:04}", m_parts.year);
        else if (count == 2)
            fmt::format_to(out, "{:02}", m_parts.year % 100);
        else
            fmt::format_to(out, "{}", dayOfYear());
    }

    void writeEra(std::size_t count)
    {
        if (m_era == nullptr) return;
        if (count == 1)
            m_text += m_era->letter;
        else
            m_text += count == 2 ? left(m_era->name, 1) : std::string(m_era->name);
    }

    [[nodiscard]] std::int32_t eraYear() const
    {
        return m_era == nullptr ? m_parts.year : m_parts.year - Year(m_era->first) + 1;
    }

    [[nodiscard]] std::int32_t dayOfYear() const
    {
        const Date newYear = dateOf({m_parts.year, 1, 1});
        return static_cast<std::int32_t>(m_date.days() - newYear.days()) + 1;
    }

    Date m_date;
    DateParts m_parts;
    const Era *m_era;
    std::string m_text;
    bool m_afterHour = false;
};

/// A numeric pattern: literal text, one run of 0 and #, literal text. Here halves round away from zero.
std::string writeNumber(double value, std::string_view pattern)
{
    const std::size_t start = std::min(pattern.find_first_of(kDigitLetters), pattern.size());
    const std::size_t end = std::min(pattern.find_first_not_of(kDigitLetters, start), pattern.size());
    const std::string_view mask = pattern.substr(start, end - start);
    const double rounded = std::round(value);
    std::string digits = rounded == 0 ? std::string() : fmt::format("{:.0f}", std::abs(rounded));
    const std::size_t firstZero = std::min(mask.find('0'), mask.size());
    const std::size_t least = mask.size() - firstZero;
    if (mask.empty()) digits.clear();
    if (digits.size() < least) digits.insert(0, least - digits.size(), '0');
    return fmt::format("{}{}{}{}", rounded < 0 ? "-" : "", pattern.substr(0, start), digits, pattern.substr(end));
}

std::optional<Date> dateFor(const Variant &value, const Regional &regional)
{
    const auto *text = value.getIf<std::string>();
    if (text == nullptr) return toDate(value, regional);
    if (const std::optional<Date> date = readDate(*text, regional)) return date;
    if (isNumeric(value)) return toDate(numberFromText(*text), regional);
    return std::nullopt;
}

} // namespace

Variant Format(const Variant &value, std::string_view pattern, const Regional &regional)
{
    if (value.isNull()) return Null{};
    if (pattern.empty() || value.getIf<Binary>() != nullptr) return toText(value, regional);
    if (isDatePattern(pattern)) {
        const std::optional<Date> date = dateFor(value, regional);
        return date ? Variant(DateWriter(*date).write(pattern)) : value;
    }
    if (value.getIf<Date>() != nullptr) return toText(value, regional);
    if (value.getIf<std::string>() != nullptr && !isNumeric(value)) return value;
    return writeNumber(toDouble(value), pattern);
}

std::string formatText(const Variant &value, std::string_view pattern, const Regional &regional)
{
    return toText(Format(value, pattern, regional), regional);
}

} // namespace inin
