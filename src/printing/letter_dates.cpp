#include "printing/letter_dates.h"

#include "common/helpers.h"
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

TargetDate::TargetDate(const std::string &csTargetDate, const Regional &settings)
    : text(csTargetDate), regional(settings), year(0), month(0), day(0)
{
    const Date date = toDate(csTargetDate, regional);
    year = Year(date);
    month = Month(date);
    day = Day(date);
}

VisitBounds TargetDate::scheduleMonth() const
{
    return {visitNumber(year, month, 1), visitNumber(year, month, 99)};
}

VisitBounds TargetDate::scheduleDay() const
{
    return {visitNumber(year, month, day), {}};
}

VisitBounds TargetDate::jissekiMonth() const
{
    return {firstOfMonth(), serialText(year, month + 1, 1, regional)};
}

VisitBounds TargetDate::jissekiDay() const
{
    return {serialText(year, month, day, regional), serialText(year, month, day + 1, regional)};
}

std::string TargetDate::firstOfMonth() const
{
    return formatText(text, "yyyy/mm", regional) + "/01";
}

std::string TargetDate::lastOfMonth() const
{
    return dateText(lastDayOfMonth(year, month), regional);
}

VisitBounds VisitMonth::scheduleFromZero() const
{
    return {visitNumber(nYear, nMonth, 0), visitNumber(nYear, nMonth, 99)};
}

VisitBounds VisitMonth::jissekiByDates() const
{
    return {serialText(nYear, nMonth, 1, regional), serialText(nYear, toLong(nMonth + 1.0), 1, regional)};
}

std::int32_t VisitMonth::dayOfNumber(const Variant &nDate) const
{
    return nNullToLong(nDate) % 100;
}

std::int32_t VisitMonth::dayOfText(const Variant &tServicyDayStart) const
{
    return Day(toDate(csNullToStr(tServicyDayStart, regional), regional));
}

} // namespace inin
