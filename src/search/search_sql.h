#pragma once

#include "search/search_filter.h"
#include "shell/app.h"

#include <cstdint>
#include <string>

namespace inin {

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
