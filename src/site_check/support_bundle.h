#pragma once

#include "site_check/finding.h"

#include <filesystem>
#include <string>

namespace inin::site {

/// The bytes of a zip that a site sends to support: the program's version and the computer's settings, the site's
/// settings, the findings without their sentences, the number of rows of each table, and the site's files with their
/// sizes. It contains nothing that a user of the site has typed: no name, address, server, file name or password.
[[nodiscard]] std::string supportBundle(const std::filesystem::path &folder, const Findings &findings);

} // namespace inin::site
