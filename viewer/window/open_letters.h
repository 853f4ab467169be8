#pragma once

#include "viewer/check/letter_check.h"
#include "viewer/document/letter_bundles.h"
#include "viewer/document/letter_names.h"
#include "viewer/document/letter_opener.h"
#include "viewer/document/letter_renderer.h"
#include "viewer/document/letter_ticks.h"
#include "viewer/paint/letter_pictures.h"

#include <string>
#include <vector>

namespace inin::viewer {

/// The letters of one script as they were when it was opened, with all that a window needs to show and print them.
/// Later changes on disk have no effect, except for forms that are read again.
struct OpenLetters {
    /// Throws a RuntimeError with a sentence when a form cannot be used.
    explicit OpenLetters(LetterSet letters);
    /// Throws for an unreadable script or letter file too.
    explicit OpenLetters(const std::string &scriptPath) : OpenLetters(openScript(scriptPath)) {}
    /// Shows the letters on their forms as these are on the disk now; letters, names and ticks stay as they are. Throws a
    /// RuntimeError with a sentence for a form that cannot be used, and then changes nothing.
    void readFormsAgain();
    /// Sorts and bundles letters for an output and sets the covers in the renderer; a single letter gets none. Throws a
    /// RuntimeError with a sentence for an unusable cover form.
    [[nodiscard]] ArrangedLetters arrange(std::vector<std::size_t> letters, LetterArrangement arrangement);

    LetterSet set;
    Fonts fonts;
    LetterRenderer renderer;
    QtGlyphs glyphs;
    LetterPictures pictures; ///< for the screen
    LetterNames names;
    LetterTicks ticks;                ///< the letters selected for output: all of them at first
    std::vector<std::string> notices; ///< of the script, the forms, the letter files and the fonts

private:
    void collectNotices();
};

} // namespace inin::viewer
