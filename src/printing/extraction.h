#pragma once

#include "printing/letter_dates.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace inin {

class LetterReader;

/// The value that is appended directly after a piece of a statement, numbers in plain digits.
enum class AppendedValue { nothing, iKyotenCd, iKyotenEb, lowerBound, upperBound, nKanjaNo };

/// A statement is one text, appended piece by piece; the pieces include their blanks.
struct SqlPiece {
    std::string_view text;
    AppendedValue appended = AppendedValue::nothing;
};

/// The inputs of a statement other than its rule.
struct ExtractionQuery {
    std::int16_t iKyotenCd = 0;
    std::int16_t iKyotenEb = 0;
    std::int16_t iTrustKind = 0;
    std::int16_t iPrintKind = 0;
    std::int32_t nKanjaNo = 0;
    std::int32_t nStaffNo = 0;
    std::int16_t iHokenIndex = 0;
    std::int16_t iExpireKind = 0;
    VisitBounds bounds{};
};

/// The query for the day of a patient's last visit in a month.
struct LastVisitRule {
    const char *procedure;
    std::span<const SqlPiece> pieces;
    std::string_view column; ///< the visit, read from the first row
    VisitBounds (VisitMonth::*bounds)() const;
    std::int32_t (VisitMonth::*dayOf)(const Variant &visit) const;
};

/// The differences of one extraction from the others.
struct ExtractionRule {
    const char *procedure;
    const char *openFailureHeading;
    std::string_view head;
    std::string_view singleHead; ///< replaces head if the report kind prints a single letter
    std::string_view accountPiece;
    std::string_view from;
    std::span<const SqlPiece> visitCondition;
    std::string_view staffColumn;
    std::string_view openEndedOnly; ///< added unless ended patients are included
    std::string_view order;
    VisitBounds (TargetDate::*bounds)() const;
    const LastVisitRule *lastVisit; ///< only patients whose last visit is on the target day; nullptr for all
    std::string (LetterReader::*lastTreatmentDay)(const LetterDates &dates);
};

extern const ExtractionRule kKanjaDataMonth;
extern const ExtractionRule kKanjaDataMonth_Jisseki;
extern const ExtractionRule kKanjaDataDay;
extern const ExtractionRule kKanjaDataDay_Jisseki;
extern const ExtractionRule kKanjaDataNoPeriod;
extern const LastVisitRule kLastScheduleDay;
extern const LastVisitRule kLastJissekieDay;

[[nodiscard]] std::string extractionSql(const ExtractionRule &rule, const ExtractionQuery &query);
/// The statement of a day helper; it reads branch, patient and bounds of the query.
[[nodiscard]] std::string lastVisitSql(const LastVisitRule &rule, const ExtractionQuery &query);

} // namespace inin
