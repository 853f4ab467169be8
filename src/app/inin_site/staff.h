#pragma once

#include "app/inin_site/people.h"
#include "app/inin_site/sqlite_writer.h"

namespace inin::site {

/// Fills STAFF: active and stopped people of the branch, and two of another branch under the same numbers.
void writeStaff(SqliteWriter &database, const SiteOrder &order);
/// Fills SOUDAN_TANTOU: consultations with one to three people in charge each.
void writeConsultations(SqliteWriter &database, const SiteOrder &order);

} // namespace inin::site
