#pragma once

#include "viewer/app/options.h"

namespace inin::viewer {

/// Judges the letters of a script and prints what is found. What is found is no failure.
void tellCheck(const ViewCommand &command);

} // namespace inin::viewer
