#pragma once

#include "demo_site/people.h"
#include "demo_site/row_target.h"

namespace inin::site {

// nIDNo of rows of CORP.
inline constexpr std::int64_t kHeadOffice = 1;
inline constexpr std::int64_t kFirstAgent = 11;
inline constexpr int kAgents = 8;
inline constexpr std::int64_t kGroupCompany = 51;
/// An agent whose row was created but never filled in: all columns except the keys are NULL.
inline constexpr std::int64_t kBlankCompany = 99;
/// An agent's number plus this is a number that CORP does not contain.
inline constexpr std::int64_t kNoSuchCompany = 9000;

/// Writes the head office, agents, the group-billing company, the blank row, and the head office of another branch.
void writeCompanies(RowTarget &database, const SiteOrder &order);

} // namespace inin::site
