#pragma once

#include "viewer/app/options.h"

#include <cstddef>

namespace inin::viewer {

/// Checks the letters of a script and prints the findings. Returns the number of letters that have any.
[[nodiscard]] std::size_t printCheckReport(const ViewCommand &command);

} // namespace inin::viewer
