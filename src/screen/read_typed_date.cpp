#include "runtime/text.h"
#include "screen/era_date_text.h"
#include "screen/typed_date_scan.h"

#include <fmt/format.h>

#include <algorithm>

namespace inin {

namespace {

using Number = ScannedDate::Number;
using Unit = ScannedDate::Unit;

/// Year, month and day as typed; the year is that of an era or a western one.
struct Fields {
    std::int32_t year = 0;
    std::int32_t month = 0;
    std::int32_t day = 1;
    bool isWestern = false;
};

constexpr std::size_t kWesternDigits = 4;

/// A way to split a run of digits without separators: the number of digits of the year, the month and the day.
struct Cut {
    DateGrain grain;
    std::size_t year, month, day;
    bool isWestern;
};
/// The first split that gives a valid month is used.
constexpr Cut kCuts[] = {
    {DateGrain::day, 4, 2, 2, true},    {DateGrain::day, 2, 2, 2, false},   {DateGrain::day, 1, 2, 2, false},
    {DateGrain::day, 0, 2, 2, true},    {DateGrain::month, 4, 2, 2, true},  {DateGrain::month, 4, 2, 0, true},
    {DateGrain::month, 2, 2, 2, false}, {DateGrain::month, 2, 2, 0, false}, {DateGrain::month, 1, 2, 0, false},
};

std::int32_t power10(std::size_t exponent)
{
    std::int32_t power = 1;
    while (exponent-- > 0) power *= 10;
    return power;
}

class Reader {
public:
    explicit Reader(const DateContext &context) : m_context(context) {}

    [[nodiscard]] std::optional<Fields> fieldsOf(const ScannedDate &scanned) const
    {
        if (!scanned.isWhole) return std::nullopt;
        const std::vector<Number> &numbers = scanned.numbers;
        switch (numbers.size()) {
        case 1:
            return numbers[0].unit == Unit::none ? fromDigits(numbers[0], scanned.era != nullptr) : fromUnit(scanned);
        case 2:
            return fromTwo(scanned);
        case 3:
            return fromThree(scanned);
        default:
            return std::nullopt;
        }
    }

private:
    [[nodiscard]] std::optional<Fields> fromDigits(const Number &number, bool hasEra) const
    {
        for (const Cut &cut : kCuts) {
            if (cut.year + cut.month + cut.day != number.digits || cut.grain != m_context.grain ||
                (cut.isWestern && hasEra))
                continue;
            const std::int32_t days = power10(cut.day);
            const std::int32_t monthAndDay = power10(cut.month) * days;
            Fields fields{number.value / monthAndDay, number.value % monthAndDay / days, number.value % days,
                          cut.isWestern};
            if (cut.year == 0) fields.year = Year(m_context.today);
            if (cut.day == 0) fields.day = 1;
            const bool isMonth = fields.month >= 1 && fields.month <= 12;
            const bool isKnownYear = !cut.isWestern || fields.year >= Year(m_context.eraTable.front().first);
            if (isMonth && isKnownYear) return fields;
        }
        return std::nullopt;
    }

    /// Reads 11月 alone in a box for months.
    [[nodiscard]] std::optional<Fields> fromUnit(const ScannedDate &scanned) const
    {
        const Number &number = scanned.numbers.front();
        if (scanned.era != nullptr || number.unit != Unit::month || m_context.grain != DateGrain::month)
            return std::nullopt;
        return Fields{Year(m_context.today), number.value, 1, true};
    }

    [[nodiscard]] std::optional<Fields> fromTwo(const ScannedDate &scanned) const
    {
        const Number &first = scanned.numbers[0];
        const Number &second = scanned.numbers[1];
        if (m_context.grain == DateGrain::month && fit(first, Unit::year) && fit(second, Unit::month))
            return withYear(scanned, {0, second.value, 1});
        const bool isDay =
            scanned.era == nullptr && first.digits < 3 && fit(first, Unit::month) && fit(second, Unit::day);
        if (m_context.grain != DateGrain::day || !isDay) return std::nullopt;
        return Fields{Year(m_context.today), first.value, second.value, true};
    }

    [[nodiscard]] static std::optional<Fields> fromThree(const ScannedDate &scanned)
    {
        const std::vector<Number> &numbers = scanned.numbers;
        if (!fit(numbers[0], Unit::year) || !fit(numbers[1], Unit::month) || !fit(numbers[2], Unit::day))
            return std::nullopt;
        return withYear(scanned, {0, numbers[1].value, numbers[2].value});
    }

    [[nodiscard]] static bool fit(const Number &number, Unit unit)
    {
        return (number.unit == Unit::none || number.unit == unit) && (unit == Unit::year || number.digits <= 2);
    }

    [[nodiscard]] static std::optional<Fields> withYear(const ScannedDate &scanned, Fields fields)
    {
        const Number &year = scanned.numbers.front();
        fields.year = year.value;
        fields.isWestern = year.digits == kWesternDigits;
        if (year.digits > kWesternDigits || (fields.isWestern && scanned.era != nullptr)) return std::nullopt;
        return fields;
    }

    const DateContext &m_context;
};

TypedDate complain(std::string sentence)
{
    return {std::nullopt, std::move(sentence)};
}

/// The notice about a date far from today; empty for a near one.
std::string noticeAbout(Date date, Date today)
{
    constexpr std::int32_t kNearYears = 5;
    const std::int32_t year = Year(today);
    const bool isFar = date < DateSerial(year - kNearYears, Month(today), Day(today)) ||
                       date > DateSerial(year + kNearYears, Month(today), Day(today));
    if (!isFar) return {};
    return fmt::format("西暦{}年の日付です。今日から{}年を超えて離れています。年を確かめてください。", Year(date),
                       kNearYears);
}

std::string dayInWords(Date date)
{
    const DateParts parts = partsOf(date);
    return fmt::format("{}年{}月{}日", parts.year, parts.month, parts.day);
}

TypedDate unreadable(std::string_view text, DateGrain grain)
{
    constexpr std::size_t kShown = 20;
    const std::string shown = left(text, kShown) + (length(text) > kShown ? "…" : "");
    return complain(fmt::format("「{}」は日付として読めません。{}のように入力してください。", shown,
                                grain == DateGrain::day ? "R8.11.21 や 2026/11/21 " : "R8.11 や 2026/11 "));
}

/// True when the day is before the era. In a box for months, the era's whole first month belongs to it.
bool liesBefore(const Era &era, Date date, DateGrain grain)
{
    const DateParts first = partsOf(era.first);
    return date < (grain == DateGrain::month ? dateOf({first.year, first.month, 1}) : era.first);
}

} // namespace

TypedDate readTypedDate(std::string_view text, const DateContext &context)
{
    const std::string folded = foldedDateText(text);
    if (folded.empty()) return {};
    const ScannedDate scanned = scanTypedDate(folded, context.eraTable);
    const std::optional<Fields> fields = Reader(context).fieldsOf(scanned);
    if (!fields) return unreadable(trim(text), context.grain);

    const Era *era = scanned.era != nullptr ? scanned.era : eraIn(context.eraTable, context.today);
    if (fields->isWestern || era == nullptr) era = &context.eraTable.front();
    const std::int32_t year = fields->isWestern ? fields->year : Year(era->first) + fields->year - 1;
    if (!fields->isWestern && fields->year == 0) return unreadable(trim(text), context.grain);
    const DateParts parts{year, fields->month, fields->day};
    if (!isRealDay(parts))
        return complain(fmt::format("{}年{}月{}日という日はありません。", year, parts.month, parts.day));
    const Date date = dateOf(parts);
    if (liesBefore(*era, date, context.grain))
        return complain(fmt::format("{}は{}からです。それより前の日付です。", era->name, dayInWords(era->first)));
    return {date, {}, noticeAbout(date, context.today)};
}

} // namespace inin
