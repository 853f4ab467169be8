#pragma once

#include "demo_site/people.h"
#include "demo_site/row_target.h"

namespace inin::site {

/// Fills the tables whose rows are fixed: HOKENJA, KYOTEN, HOKEN, SHINSEISYO, the fees, RIYOUSHA_MAP.
void writeFixedTables(RowTarget &database, const SiteOrder &order);
/// Fills CORP: the head office, agents, the group-billing company, a blank row, and the head office of another branch.
void writeCompanies(RowTarget &database, const SiteOrder &order);
/// Fills STAFF: active and inactive staff of the branch, and two of another branch with the same numbers.
void writeStaff(RowTarget &database, const SiteOrder &order);
/// Fills SOUDAN_TANTOU: consultations, each with one to three members of staff in charge.
void writeConsultations(RowTarget &database, const SiteOrder &order);
/// Fills RIYOUSHA and RIYOUSHA_SUB.
void writePatients(RowTarget &database, const SiteOrder &order);
/// Fills SCHEDULE and JISSEKI for the previous, the given and the next month.
void writeVisits(RowTarget &database, const SiteOrder &order);

} // namespace inin::site
