#pragma once

#include "app/inin_site/people.h"
#include "app/inin_site/row_target.h"

#include <string>

namespace inin::site {

/// Writes the whole database to a new file. Failures raise RuntimeError.
void makeDatabase(const std::string &path, const SiteOrder &order);

/// Writes all rows of the demo, table by table; the same order gives the same rows.
void writeDemoRows(RowTarget &target, const SiteOrder &order);

} // namespace inin::site
