#pragma once

#include "viewer/app/options.h"
#include "viewer/document/letter_set.h"

namespace inin::viewer {

/// Opens the letters of a command: those of its script, or sample letters on its form. Throws as openScript() and openForm().
[[nodiscard]] LetterSet openedLetters(const ViewCommand &command);
/// Writes the files of a command without a window; prints notices and marks to the error output. Throws a RuntimeError
/// with a sentence on failure.
void writeLetters(const ViewCommand &command);
/// Writes the combined form document of a merger's script.
void writeCombinedForm(const MergeCommand &command);

} // namespace inin::viewer
