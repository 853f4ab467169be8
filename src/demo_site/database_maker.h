#pragma once

#include "demo_site/people.h"
#include "demo_site/row_target.h"

#include <string>

namespace inin::site {

/// Writes the whole database to a new file. Failures raise RuntimeError.
void makeDatabase(const std::string &path, const SiteOrder &order);

/// Writes all rows of the demo, table by table; the same order gives the same rows.
void writeDemoRows(RowTarget &target, const SiteOrder &order);

} // namespace inin::site
