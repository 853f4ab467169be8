#pragma once

#include "demo_site/people.h"
#include "demo_site/row_target.h"

namespace inin::site {

/// Fills STAFF: active and inactive staff of the branch, and two of another branch with the same numbers.
void writeStaff(RowTarget &database, const SiteOrder &order);
/// Fills SOUDAN_TANTOU: consultations, each with one to three members of staff in charge.
void writeConsultations(RowTarget &database, const SiteOrder &order);

} // namespace inin::site
