#pragma once

#include "viewer/document/growing_file.h"
#include "viewer/document/letter_set.h"

#include <string>

namespace inin::viewer {

/// Opens the files that a script names, waiting a few seconds at most for a file that is still being written. A missing
/// or unreadable form or letter file, a placeholder without its column and a file without letters are RuntimeErrors
/// with a sentence that names the path.
[[nodiscard]] LetterSet openScript(const std::string &path, const Pause &pause = sleepBriefly);
/// A form with the letters of a demo site, on paper of the form's own size.
[[nodiscard]] LetterSet openForm(const std::string &path);
/// The same letters on their forms as these are on the disk now. Throws for an unreadable form, and for a file that was a
/// form and is none any more.
[[nodiscard]] LetterSet withFormsReadAgain(LetterSet set);
[[nodiscard]] LetterSet openLetters(const CommandScript &script, const Pause &pause = sleepBriefly);

} // namespace inin::viewer
