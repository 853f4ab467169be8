#pragma once

#include "viewer/app/options.h"

namespace inin::viewer {

/// Writes what a command asks for to files, without a window; notices and marks go to the error output. Failures are
/// RuntimeErrors with a sentence.
void writeLetters(const ViewCommand &command);
/// Writes the combined form document of a merger's script.
void writeCombinedForm(const MergeCommand &command);

} // namespace inin::viewer
