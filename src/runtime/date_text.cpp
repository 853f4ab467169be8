#include "runtime/date_text.h"

#include "runtime/text_scan.h"

#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace inin {

namespace {

/// A number in the text; its role is y, m or d if 年, 月 or 日 follows it.
struct DateNumber {
    std::int32_t value = 0;
    char role = '\0';
};

enum class Meridiem { none, am, pm };

struct MeridiemWord {
    std::string_view word;
    Meridiem meaning;
};
constexpr MeridiemWord kMeridiemWords[] = {
    {"AM", Meridiem::am}, {"PM", Meridiem::pm}, {"午前", Meridiem::am}, {"午後", Meridiem::pm}};

struct RoleWord {
    std::string_view word;
    char role;
};
constexpr RoleWord kRoleWords[] = {{"年", 'y'}, {"月", 'm'}, {"日", 'd'}};

/// The three-part orders to try, from left to right, for each order of the short date.
struct OrderRule {
    std::string_view shortDate;
    std::array<std::string_view, 4> tried;
};
constexpr OrderRule kOrderRules[] = {
    {"ymd", {"ymd", "ydm", "mdy", "dmy"}},
    {"ydm", {"ydm", "ymd", "dmy", "mdy"}},
    {"mdy", {"mdy", "dmy", "ymd", "ydm"}},
    {"dmy", {"dmy", "mdy", "ymd", "ydm"}},
};
constexpr std::string_view kOrdersOfTwo[] = {"ym", "my"};
/// A year of an era has at most two digits.
constexpr std::int32_t kLongestEra = 99;

/// The order of y, m and d in a short date format.
std::string orderOf(std::string_view picture)
{
    std::string order;
    for (const char c : picture) {
        const char role = c == 'M' ? 'm' : c;
        if ((role == 'y' || role == 'm' || role == 'd') && order.find(role) == std::string::npos) order += role;
    }
    return order;
}

std::span<const std::string_view> ordersOfThree(const Regional &regional)
{
    const std::string order = orderOf(regional.shortDate);
    for (const OrderRule &rule : kOrderRules)
        if (rule.shortDate == order) return rule.tried;
    return kOrderRules[0].tried;
}

/// Parses one text: collects its parts, then finds an order in which they form a valid day.
class DateReader {
public:
    DateReader(std::string_view text, const Regional &regional) : m_scan(text), m_regional(regional) {}

    std::optional<Date> read()
    {
        if (!collect() || m_awaiting || (m_count == 0 && (!m_hasTime || m_era != nullptr))) return std::nullopt;
        if (!applyMeridiem()) return std::nullopt;
        if (m_count == 0) return assembled(1899, 12, 30);
        if (m_count == 2) return ordered(kOrdersOfTwo);
        if (m_count == 3) return ordered(ordersOfThree(m_regional));
        return std::nullopt;
    }

private:
    bool collect()
    {
        while (skipGap()) {
            if (m_scan.atEnd()) return true;
            if (!takeMeridiem() && !takeEra() && !takeNumber()) return false;
        }
        return false;
    }

    /// Skips blanks and commas. A comma separates like a blank but must not end the text: false if it does.
    bool skipGap()
    {
        bool hasComma = false;
        for (m_scan.skipBlanks(); m_scan.accept(','); m_scan.skipBlanks()) hasComma = true;
        return !hasComma || !m_scan.atEnd();
    }

    bool takeMeridiem()
    {
        if (m_meridiem != Meridiem::none) return false;
        for (const MeridiemWord &entry : kMeridiemWords)
            if (m_scan.acceptWord(entry.word)) {
                m_meridiem = entry.meaning;
                return true;
            }
        return false;
    }

    /// Only if the short date format has eras. An era precedes the year, and the year precedes all other parts.
    bool takeEra()
    {
        if (m_era != nullptr || m_count != 0 || !hasEra(m_regional.shortDate)) return false;
        for (const Era &era : eras())
            if (m_scan.accept(era.name)) m_era = &era;
        return m_era != nullptr;
    }

    bool takeNumber()
    {
        if (m_era != nullptr && m_count == 0 && m_scan.accept("元")) return addPart(1);
        const std::optional<std::int32_t> number = takeValue(4);
        if (!number) return false;
        if (takeTimeSeparator()) return takeTime(*number);
        return isHourAlone() ? startTime(*number) : addPart(*number);
    }

    /// "9 PM" is a time although it has no colon; in "2024/5/1 午前 9:30" the 1 is not one: the day is still missing.
    bool isHourAlone()
    {
        if (m_hasTime || m_awaiting || (m_count != 0 && m_count != m_found.size())) return false;
        m_scan.skipBlanks();
        return takeMeridiem();
    }

    /// A colon, or a point if the short date does not use it.
    bool takeTimeSeparator() { return m_scan.accept(':') || (!isDateSeparator('.') && m_scan.accept('.')); }

    bool startTime(std::int32_t hour)
    {
        if (m_hasTime || m_awaiting || hour > 23) return false;
        m_hasTime = true;
        m_parts.hour = hour;
        return true;
    }

    bool takeTime(std::int32_t hour)
    {
        const std::optional<std::int32_t> minute = takeValue(2);
        if (!startTime(hour) || !minute || *minute > 59) return false;
        m_parts.minute = *minute;
        if (!takeTimeSeparator()) return true;
        const std::optional<std::int32_t> second = takeValue(2);
        if (!second || *second > 59) return false;
        m_parts.second = *second;
        return true;
    }

    bool addPart(std::int32_t value)
    {
        if (m_count == m_found.size()) return false;
        if (m_era != nullptr && m_count == 0 && (value == 0 || value > kLongestEra)) return false;
        DateNumber &part = m_found[m_count++];
        part.value = value;
        for (const RoleWord &entry : kRoleWords)
            if (part.role == '\0' && m_scan.accept(entry.word)) part.role = entry.role;
        if (m_era != nullptr && m_count == 1 && !toYearOfEra(part)) return false;
        m_scan.skipBlanks();
        m_awaiting = takeSeparator();
        return true;
    }

    /// A year after the end of an era is counted on from its start.
    bool toYearOfEra(DateNumber &year) const
    {
        if (year.role != '\0' && year.role != 'y') return false;
        year = {Year(m_era->first) + year.value - 1, 'y'};
        return true;
    }

    /// A slash or a hyphen, or a point if the short date uses it.
    [[nodiscard]] bool isDateSeparator(char c) const
    {
        return c == '/' || c == '-' || (c == '.' && m_regional.shortDate.find(c) != std::string::npos);
    }

    bool takeSeparator()
    {
        if (!isDateSeparator(m_scan.peek())) return false;
        m_scan.take();
        return true;
    }

    std::optional<std::int32_t> takeValue(std::size_t mostDigits)
    {
        const std::string_view digits = m_scan.takeDigits();
        if (digits.empty() || digits.size() > mostDigits) return std::nullopt;
        std::int32_t value = 0;
        std::from_chars(digits.data(), digits.data() + digits.size(), value);
        return value;
    }

    bool applyMeridiem()
    {
        if (m_meridiem == Meridiem::none) return true;
        if (!m_hasTime || (m_meridiem == Meridiem::am && m_parts.hour > 12)) return false;
        if (m_meridiem == Meridiem::am && m_parts.hour == 12) m_parts.hour = 0;
        if (m_meridiem == Meridiem::pm && m_parts.hour < 12) m_parts.hour += 12;
        return true;
    }

    std::optional<Date> ordered(std::span<const std::string_view> orders)
    {
        for (const std::string_view order : orders)
            if (const std::optional<Date> date = inOrder(order)) return date;
        return std::nullopt;
    }

    std::optional<Date> inOrder(std::string_view order)
    {
        std::int32_t year = 0;
        std::int32_t month = 0;
        std::int32_t day = 1;
        for (std::size_t i = 0; i < m_count; ++i) {
            const DateNumber &part = m_found[i];
            if (part.role != '\0' && part.role != order[i]) return std::nullopt;
            // Of two parts a small number without 年 is not a year: "5/1" has none.
            if (order[i] == 'y' && m_count == 2 && part.role == '\0' && part.value < 100) return std::nullopt;
            (order[i] == 'y' ? year : order[i] == 'm' ? month : day) = part.value;
        }
        return assembled(year, month, day);
    }

    std::optional<Date> assembled(std::int32_t year, std::int32_t month, std::int32_t day)
    {
        m_parts.year = fullYear(year);
        m_parts.month = month;
        m_parts.day = day;
        if (!isRealDay(m_parts)) return std::nullopt;
        return dateOf(m_parts);
    }

    TextScan m_scan;
    const Regional &m_regional;
    std::array<DateNumber, 3> m_found{};
    std::size_t m_count = 0;
    bool m_awaiting = false; // a separator after the last part awaits another part
    bool m_hasTime = false;
    Meridiem m_meridiem = Meridiem::none;
    const Era *m_era = nullptr;
    DateParts m_parts;
};

} // namespace

std::optional<Date> readDate(std::string_view text, const Regional &regional)
{
    return DateReader(text, regional).read();
}

} // namespace inin
