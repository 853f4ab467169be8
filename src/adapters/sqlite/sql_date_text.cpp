#include "adapters/sqlite/sql_date_text.h"

#include "runtime/text.h"

#include <cstddef>
#include <cstdint>

#include <fmt/format.h>

namespace inin::sqlite {

namespace {

struct Moment {
    DateParts parts{1900, 1, 1, 0, 0, 0};
    std::string fraction; ///< digits after the seconds, without trailing zeros
};

class DateTextReader {
public:
    explicit DateTextReader(std::string_view text) : m_text(text) {}
    [[nodiscard]] bool atEnd() const { return m_at == m_text.size(); }
    [[nodiscard]] std::size_t digitsAhead() const
    {
        std::size_t count = 0;
        while (m_at + count < m_text.size() && m_text[m_at + count] >= '0' && m_text[m_at + count] <= '9') ++count;
        return count;
    }
    bool take(char c)
    {
        if (atEnd() || m_text[m_at] != c) return false;
        ++m_at;
        return true;
    }
    /// Reads a number of `min` to `max` digits that is not followed by a further digit.
    bool number(std::size_t min, std::size_t max, std::int32_t &value)
    {
        const std::size_t count = digitsAhead();
        return count >= min && count <= max && exactly(count, value);
    }
    bool exactly(std::size_t count, std::int32_t &value)
    {
        if (digitsAhead() < count) return false;
        value = 0;
        for (; count > 0; --count, ++m_at) value = value * 10 + (m_text[m_at] - '0');
        return true;
    }
    std::string digits()
    {
        const std::size_t count = digitsAhead();
        m_at += count;
        return std::string(m_text.substr(m_at - count, count));
    }
    void skipBlanks()
    {
        while (take(' ')) {
        }
    }

private:
    std::string_view m_text;
    std::size_t m_at = 0;
};

bool readTime(DateTextReader &reader, std::size_t hourDigits, Moment &moment)
{
    DateParts &parts = moment.parts;
    if (!reader.number(hourDigits, 2, parts.hour) || !reader.take(':') || !reader.exactly(2, parts.minute))
        return false;
    if (reader.take(':') && !reader.exactly(2, parts.second)) return false;
    if (reader.take('.')) {
        moment.fraction = reader.digits();
        if (moment.fraction.empty() || moment.fraction.size() > 7) return false;
        while (!moment.fraction.empty() && moment.fraction.back() == '0') moment.fraction.pop_back();
    }
    return parts.hour < 24 && parts.minute < 60 && parts.second < 60;
}

/// Completes a two-digit year as the server does: 00 to 49 are 20xx.
std::int32_t fullYear(std::int32_t year, std::size_t digits)
{
    if (digits > 2) return year;
    return year + (year < 50 ? 2000 : 1900);
}

bool readDay(DateTextReader &reader, DateParts &parts)
{
    const std::size_t digits = reader.digitsAhead();
    if (digits == 8)
        return reader.exactly(4, parts.year) && reader.exactly(2, parts.month) && reader.exactly(2, parts.day);
    if ((digits != 4 && digits != 2) || !reader.exactly(digits, parts.year)) return false;
    parts.year = fullYear(parts.year, digits);
    const char separator = reader.take('/') ? '/' : '-';
    if (separator == '-' && !reader.take('-')) return false;
    return reader.number(1, 2, parts.month) && reader.take(separator) && reader.number(1, 2, parts.day);
}

std::optional<Moment> readLiteral(std::string_view text)
{
    const std::string trimmed = trim(text);
    Moment moment;
    if (trimmed.empty()) return moment;
    DateTextReader reader(trimmed);
    if (!readDay(reader, moment.parts) || !isRealDay(moment.parts) || moment.parts.year < 1753) return std::nullopt;
    if (reader.atEnd()) return moment;
    if (!reader.take('T') && !reader.take(' ')) return std::nullopt;
    reader.skipBlanks();
    if (!readTime(reader, 1, moment) || !reader.atEnd()) return std::nullopt;
    return moment;
}

std::optional<Moment> readColumn(std::string_view text)
{
    Moment moment;
    DateParts &parts = moment.parts;
    DateTextReader reader(text);
    if (!reader.number(4, 4, parts.year) || !reader.take('-') || !reader.number(2, 2, parts.month) ||
        !reader.take('-') || !reader.number(2, 2, parts.day) || !isRealDay(parts))
        return std::nullopt;
    if (reader.atEnd()) return moment;
    if (!reader.take(' ') && !reader.take('T')) return std::nullopt;
    if (!readTime(reader, 2, moment) || !reader.atEnd()) return std::nullopt;
    return moment;
}

/// The value of a date column without trailing zeros of a fraction and without midnight.
std::string_view significant(std::string_view text)
{
    constexpr std::string_view kMidnight = " 00:00:00";
    constexpr std::size_t kSeconds = 19, kDay = 10;
    if (text.size() > kSeconds && text[kSeconds] == '.') {
        while (text.back() == '0') text.remove_suffix(1);
        if (text.back() == '.') text.remove_suffix(1);
    }
    if (text.size() == kSeconds && text.substr(kDay) == kMidnight) text.remove_suffix(kMidnight.size());
    return text;
}

} // namespace

std::optional<SqlMoment> momentFromText(std::string_view text)
{
    const std::optional<Moment> moment = readLiteral(text);
    if (!moment) return std::nullopt;
    const DateParts &p = moment->parts;
    const std::string day = fmt::format("{:04}-{:02}-{:02}", p.year, p.month, p.day);
    const std::string seconds = fmt::format("{} {:02}:{:02}:{:02}", day, p.hour, p.minute, p.second);
    const std::string &fraction = moment->fraction;
    const std::string exact = fraction.empty() ? seconds : seconds + "." + fraction;
    const bool midnight = p.hour == 0 && p.minute == 0 && p.second == 0 && fraction.empty();
    const std::size_t zeros = fraction.size() < 3 ? 3 - fraction.size() : 0;
    return SqlMoment{midnight ? day : exact, seconds + "." + fraction + std::string(zeros, '0'), exact};
}

std::optional<Date> dateFromColumn(std::string_view text)
{
    const std::optional<Moment> moment = readColumn(text);
    if (!moment || moment->parts.year < 100) return std::nullopt;
    const double days = dateOf(moment->parts).days();
    if (moment->fraction.empty()) return Date(days);
    const double fraction = std::stod("0." + moment->fraction) / 86400.0;
    return Date(days < 0 ? days - fraction : days + fraction);
}

std::string convertDateText(std::string_view text, int style)
{
    const std::optional<Moment> moment = readColumn(text);
    if (!moment) return std::string(text);
    const DateParts &p = moment->parts;
    if (style == 112) return fmt::format("{:04}{:02}{:02}", p.year, p.month, p.day);
    return fmt::format("{:04}/{:02}/{:02}", p.year, p.month, p.day);
}

int compareDateTexts(std::string_view a, std::string_view b)
{
    return significant(a).compare(significant(b));
}

} // namespace inin::sqlite
