#pragma once

#include "demo_site/people.h"
#include "demo_site/row_target.h"

namespace inin::site {

/// Fills SCHEDULE and JISSEKI for the previous, the given and the next month.
void writeVisits(RowTarget &database, const SiteOrder &order);

} // namespace inin::site
