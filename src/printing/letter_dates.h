#pragma once

#include "runtime/regional.h"
#include "runtime/variant.h"

#include <cstdint>
#include <string>

namespace inin {

/// Bounds of the visits as a statement writes them; the statement decides whether the upper one is included.
struct VisitBounds {
    std::string lower;
    std::string upper;
};

/// The target date of a run: its text and its parts. The regional settings must outlive it.
struct TargetDate {
    TargetDate(const std::string &csTargetDate, const Regional &settings);

    // Bounds for SCHEDULE.nDate, which is year * 10000 + month * 100 + day.
    [[nodiscard]] VisitBounds scheduleMonth() const;
    [[nodiscard]] VisitBounds scheduleDay() const;
    // Bounds for JISSEKI.tServicyDayStart; the upper one is excluded.
    [[nodiscard]] VisitBounds jissekiMonth() const;
    [[nodiscard]] VisitBounds jissekiDay() const;
    [[nodiscard]] VisitBounds noBounds() const { return {}; }
    /// "yyyy/mm" of the target and "/01".
    [[nodiscard]] std::string firstOfMonth() const;
    /// The last day of the target month as default text.
    [[nodiscard]] std::string lastOfMonth() const;

    std::string text;
    const Regional &regional;
    std::int32_t year;
    std::int32_t month;
    std::int32_t day;
};

/// The month in which a day helper searches for a patient's last visit.
struct VisitMonth {
    /// For SCHEDULE. Deliberate: it starts at day 00, the bounds of the extraction at 01.
    [[nodiscard]] VisitBounds scheduleFromZero() const;
    /// For JISSEKI; the upper one is excluded.
    [[nodiscard]] VisitBounds jissekiByDates() const;
    // The day of the month of a visit.
    [[nodiscard]] std::int32_t dayOfNumber(const Variant &nDate) const;
    [[nodiscard]] std::int32_t dayOfText(const Variant &tServicyDayStart) const;

    std::int32_t nYear;
    std::int32_t nMonth;
    const Regional &regional;
};

/// The date texts that all letters of a run share.
struct LetterDates {
    TargetDate target;
    std::string periodStart;
    std::string periodEnd;
    std::string signature;
};

} // namespace inin
