#pragma once

#include "shell/app.h"

#include <cstdint>
#include <string>

namespace inin {

/// Kinds of treatment in a patient search.
inline constexpr std::int16_t kMassage = 0;
inline constexpr std::int16_t kAcupuncture = 1;
inline constexpr std::int16_t kBothKinds = 9;

/// The conditions of a search list. A new record sets none; the staff list uses neither the staff member in charge nor
/// the kind.
struct SearchFilter {
    std::string name;
    std::string kana;
    std::string telephone;         ///< no window sets it
    std::int16_t includeEnded = 0; ///< 1: include ended patients, or staff whose management has ended
    std::int32_t staffNumber = 0;  ///< 0 is no condition
    std::string staffName;
    std::int16_t kind = kBothKinds; ///< 0 massage, 1 acupuncture, 9 either
    std::int32_t number = 0;        ///< of the patient or the staff member, 0 is no condition
};

/// No condition on the consultation.
inline constexpr std::int32_t kAnyConsultation = -1;

// The statements of the search windows. Texts of a filter are inserted unchanged: a quote in one makes the statement
// fail, and the window shows the error.

/// The patients of this branch that match the filter. Unless ended patients are included, a patient matches whose
/// treatment has no end, an end that is not past, or one in `limitMonth` ("yyyy/mm") or later.
[[nodiscard]] std::string patientSearchSql(App &app, const SearchFilter &filter, const std::string &limitMonth);
/// The staff of this branch that match the filter; `nSelEigyouCd` other than -1: only those of that consultation.
[[nodiscard]] std::string staffSearchSql(const App &app, const SearchFilter &filter, std::int32_t nSelEigyouCd);
/// All staff of this branch by number.
[[nodiscard]] std::string staffListSql(const App &app);
/// Name and end flag of one staff member.
[[nodiscard]] std::string staffCheckSql(const App &app, std::int32_t nIDNo);

} // namespace inin
