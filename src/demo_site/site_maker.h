#pragma once

#include "demo_site/people.h"

#include <filesystem>

namespace inin::site {

enum class Overwrite { onlyOwnFolder, anyFolder };

/// Makes a demo site in a new or empty folder, or anew in one that this tool has made. Another folder that is not empty
/// is refused unless `anyFolder` is given; files that `make` does not write stay there. Failures are RuntimeErrors.
/// `formViewer` is the program that the form tools' names lead to; without one they are stand-ins.
void makeSite(const std::filesystem::path &folder, const SiteOrder &order, Overwrite overwrite,
              const std::filesystem::path &formViewer = {});

} // namespace inin::site
