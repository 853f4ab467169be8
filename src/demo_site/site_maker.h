#pragma once

#include "demo_site/people.h"

#include <filesystem>

namespace inin::site {

enum class Overwrite { onlyOwnFolder, anyFolder };

/// Makes a demo site in a new or empty folder, or again in one that this tool made. Any other folder is refused unless
/// `anyFolder` is set; files that `make` does not write are kept there. `formViewer` is the program to start under the
/// form tools' names; without one they are substitutes. Failures raise RuntimeError.
void makeSite(const std::filesystem::path &folder, const SiteOrder &order, Overwrite overwrite,
              const std::filesystem::path &formViewer = {});

} // namespace inin::site
