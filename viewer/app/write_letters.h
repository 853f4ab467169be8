#pragma once

#include "viewer/app/options.h"

namespace inin::viewer {

/// Writes the files of a command without a window; prints notices and marks to the error output. Throws a RuntimeError
/// with a sentence on failure.
void writeLetters(const ViewCommand &command);
/// Writes the combined form document of a merger's script.
void writeCombinedForm(const MergeCommand &command);

} // namespace inin::viewer
