#pragma once

#include "viewer/check/check_result.h"
#include "viewer/document/letter_names.h"

#include <string>
#include <vector>

namespace inin::viewer {

/// The findings of a check in some letters, and the notices about all of them.
struct CheckReport {
    std::size_t letters = 0; ///< number of letters checked
    std::vector<std::string> notices;
    std::vector<Finding> findings; ///< by cause and letter
    std::vector<RunNote> runNotes{};
    CauseSet switchedOff{};
};

/// A note for the run without its remedy: "署名日が委任期間の外です（300通のうち298通）".
[[nodiscard]] std::string runNoteText(const RunNote &note);
/// The marks of the causes, such as "白紙、縮小"; empty for none.
[[nodiscard]] std::string marksText(const CauseSet &causes);
/// For the user, in Japanese.
[[nodiscard]] std::string checkText(const CheckReport &report, const LetterNames &names);
/// For programs: one JSON object.
[[nodiscard]] std::string checkJson(const CheckReport &report, const LetterNames &names);

} // namespace inin::viewer
