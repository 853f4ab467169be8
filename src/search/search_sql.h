#pragma once

#include "search/search_filter.h"
#include "shell/app.h"

#include <cstdint>
#include <string>

namespace inin {

/// No restriction to a consultation.
inline constexpr std::int32_t kAnyConsultation = -1;

// The statements of the search room. Texts of a filter are pasted in as they are: a quote in one makes its statement
// fail, and the window says so.

/// The patients of this branch that the filter takes. While ended patients are left out, those count whose treatment
/// has no end, an end that is not past, or one in `limitMonth` ("yyyy/mm") or later.
[[nodiscard]] std::string patientSearchSql(App &app, const SearchFilter &filter, const std::string &limitMonth);
/// The staff of this branch that the filter takes; `nSelEigyouCd` other than -1: only those of that consultation.
[[nodiscard]] std::string staffSearchSql(const App &app, const SearchFilter &filter, std::int32_t nSelEigyouCd);
/// All staff of this branch by number.
[[nodiscard]] std::string staffListSql(const App &app);
/// Name and mark of one staff member.
[[nodiscard]] std::string staffCheckSql(const App &app, std::int32_t nIDNo);

} // namespace inin
