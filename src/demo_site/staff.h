#pragma once

#include "demo_site/people.h"
#include "demo_site/row_target.h"

namespace inin::site {

/// Fills STAFF: active and stopped people of the branch, and two of another branch under the same numbers.
void writeStaff(RowTarget &database, const SiteOrder &order);
/// Fills SOUDAN_TANTOU: consultations with one to three people in charge each.
void writeConsultations(RowTarget &database, const SiteOrder &order);

} // namespace inin::site
