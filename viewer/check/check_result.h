#pragma once

#include "viewer/check/letter_check.h"

#include <cstddef>
#include <string>
#include <vector>

namespace inin::viewer {

/// A cause that holds for nearly all letters of a run: it describes the run, not single letters.
struct RunNote {
    Cause cause = Cause::unreadableRow;
    std::size_t letters = 0; ///< for which it holds
    std::size_t of = 0;      ///< number of letters of the run
    std::string detail;      ///< the column or value if it is the same for all of them
};

/// The findings as they are reported.
struct CheckResult {
    std::vector<RunNote> runNotes;
    std::vector<Finding> findings; ///< of single letters, by cause and letter
};

/// The share of the letters, in percent, from which a cause is a note for the run, and the smallest run with such notes.
inline constexpr std::size_t kRunNotePercent = 90, kFewestLettersOfRun = 10;

/// Removes the causes that are switched off from the findings of a run, which are in the order of LetterCheck::take(), and
/// turns those that hold for nearly all of the run's letters into notes.
[[nodiscard]] CheckResult resultOf(std::vector<Finding> findings, std::size_t lettersOfRun,
                                   const CauseSet &switchedOff);

/// The number of letters with a finding.
[[nodiscard]] std::size_t lettersIn(const std::vector<Finding> &findings);

} // namespace inin::viewer
