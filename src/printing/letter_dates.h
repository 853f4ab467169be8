#pragma once

#include "runtime/regional.h"
#include "runtime/variant.h"

#include <cstdint>
#include <string>

namespace inin {

/// The target date of a run: its text and its parts.
struct TargetDate {
    TargetDate(const std::string &csTargetDate, const Regional &regional);
    std::string text;
    std::int32_t year;
    std::int32_t month;
    std::int32_t day;
};

/// Bounds of the visits as a statement writes them; the statement decides whether the upper one is included.
struct VisitBounds {
    std::string lower;
    std::string upper;
};

// Bounds for SCHEDULE.nDate, which is year * 10000 + month * 100 + day.
[[nodiscard]] VisitBounds scheduleMonth(const TargetDate &target, const Regional &regional);
[[nodiscard]] VisitBounds scheduleDay(const TargetDate &target, const Regional &regional);
// Bounds for JISSEKI.tServicyDayStart; the upper one is excluded.
[[nodiscard]] VisitBounds jissekiMonth(const TargetDate &target, const Regional &regional);
[[nodiscard]] VisitBounds jissekiDay(const TargetDate &target, const Regional &regional);
[[nodiscard]] VisitBounds noBounds(const TargetDate &target, const Regional &regional);
// Bounds of the day helpers. Deliberate: the one of SCHEDULE starts at day 00, that of the extraction at 01.
[[nodiscard]] VisitBounds scheduleMonthFromZero(std::int32_t nYear, std::int32_t nMonth, const Regional &regional);
[[nodiscard]] VisitBounds jissekiMonthByDates(std::int32_t nYear, std::int32_t nMonth, const Regional &regional);

/// "yyyy/mm" of the target and "/01".
[[nodiscard]] std::string firstOfMonthText(const TargetDate &target, const Regional &regional);
/// The last day of the target month as default text.
[[nodiscard]] std::string lastOfMonthText(const TargetDate &target, const Regional &regional);

/// The date texts that all letters of a run share.
struct LetterDates {
    TargetDate target;
    std::string periodStart;
    std::string periodEnd;
    std::string signature;
};

} // namespace inin
