#pragma once

#include "app/inin_site/people.h"
#include "app/inin_site/sqlite_writer.h"

namespace inin::site {

/// Fills the tables whose rows do not depend on chance: HOKENJA, KYOTEN, HOKEN, SHINSEISYO, the fees, RIYOUSHA_MAP.
void writeCodeTables(SqliteWriter &database, const SiteOrder &order);

} // namespace inin::site
