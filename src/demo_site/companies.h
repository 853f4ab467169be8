#pragma once

#include "demo_site/people.h"
#include "demo_site/row_target.h"

namespace inin::site {

// Numbers of the rows of CORP.
inline constexpr std::int64_t kHeadOffice = 1;
inline constexpr std::int64_t kFirstAgent = 11;
inline constexpr int kAgents = 8;
inline constexpr std::int64_t kGroupCompany = 51;
/// An agent whose row was begun and never filled in: every column but the keys is NULL.
inline constexpr std::int64_t kBlankCompany = 99;
/// Added to an agent's number it gives one that CORP lacks.
inline constexpr std::int64_t kNoSuchCompany = 9000;

/// Head office, agents, the group-billing company, the blank row, and the head office of another branch.
void writeCompanies(RowTarget &database, const SiteOrder &order);

} // namespace inin::site
