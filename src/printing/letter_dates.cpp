#include "printing/letter_dates.h"

#include "runtime/conversion.h"
#include "runtime/format.h"

namespace inin {

namespace {

/// Converted to a 32-bit number; a year too large for it is error 6.
std::string visitNumber(std::int32_t year, std::int32_t month, std::int32_t day)
{
    return std::to_string(toLong(year * 10000.0 + month * 100.0 + day));
}

std::string serialText(std::int32_t year, std::int32_t month, std::int32_t day, const Regional &regional)
{
    return dateText(DateSerial(year, month, day), regional);
}

} // namespace

TargetDate::TargetDate(const std::string &csTargetDate, const Regional &regional)
    : text(csTargetDate), year(0), month(0), day(0)
{
    const Date date = toDate(csTargetDate, regional);
    year = Year(date);
    month = Month(date);
    day = Day(date);
}

VisitBounds scheduleMonth(const TargetDate &target, const Regional & /*regional*/)
{
    return {visitNumber(target.year, target.month, 1), visitNumber(target.year, target.month, 99)};
}

VisitBounds scheduleDay(const TargetDate &target, const Regional & /*regional*/)
{
    return {visitNumber(target.year, target.month, target.day), {}};
}

VisitBounds jissekiMonth(const TargetDate &target, const Regional &regional)
{
    return {firstOfMonthText(target, regional), serialText(target.year, target.month + 1, 1, regional)};
}

VisitBounds jissekiDay(const TargetDate &target, const Regional &regional)
{
    return {serialText(target.year, target.month, target.day, regional),
            serialText(target.year, target.month, target.day + 1, regional)};
}

VisitBounds noBounds(const TargetDate & /*target*/, const Regional & /*regional*/)
{
    return {};
}

VisitBounds scheduleMonthFromZero(std::int32_t nYear, std::int32_t nMonth, const Regional & /*regional*/)
{
    return {visitNumber(nYear, nMonth, 0), visitNumber(nYear, nMonth, 99)};
}

VisitBounds jissekiMonthByDates(std::int32_t nYear, std::int32_t nMonth, const Regional &regional)
{
    return {serialText(nYear, nMonth, 1, regional), serialText(nYear, toLong(nMonth + 1.0), 1, regional)};
}

std::string firstOfMonthText(const TargetDate &target, const Regional &regional)
{
    return formatText(target.text, "yyyy/mm", regional) + "/01";
}

std::string lastOfMonthText(const TargetDate &target, const Regional &regional)
{
    return serialText(target.year, target.month + 1, 0, regional);
}

} // namespace inin
