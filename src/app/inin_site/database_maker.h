#pragma once

#include "app/inin_site/people.h"

#include <string>

namespace inin::site {

/// Writes the whole database to a new file. Failures are RuntimeErrors.
void makeDatabase(const std::string &path, const SiteOrder &order);

} // namespace inin::site
