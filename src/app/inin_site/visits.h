#pragma once

#include "app/inin_site/people.h"
#include "app/inin_site/sqlite_writer.h"

namespace inin::site {

/// Fills SCHEDULE and JISSEKI for the month before, the month and the month after.
void writeVisits(SqliteWriter &database, const SiteOrder &order);

} // namespace inin::site
