#pragma once

#include "demo_site/people.h"
#include "demo_site/row_target.h"

namespace inin::site {

/// Fills the tables whose rows are not random: HOKENJA, KYOTEN, HOKEN, SHINSEISYO, the fees, RIYOUSHA_MAP.
void writeCodeTables(RowTarget &database, const SiteOrder &order);

} // namespace inin::site
