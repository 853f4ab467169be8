#pragma once

#include "viewer/app/options.h"

namespace inin::viewer {

/// Checks the letters of a script and prints the findings. Findings are not failures.
void printCheckReport(const ViewCommand &command);

} // namespace inin::viewer
