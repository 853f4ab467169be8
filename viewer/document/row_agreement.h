#pragma once

#include "viewer/document/letter_names.h"
#include "viewer/document/letter_ticks.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace inin::viewer {

/// For each letter of `now` the letter of `before` whose row has the same values in the same report; equal rows are
/// assigned in their order, each once. Empty for a new or changed row.
[[nodiscard]] std::vector<std::optional<std::size_t>> sameRows(const LetterSet &before, const LetterSet &now);

/// What a reload keeps of the letters that were shown before.
struct KeptView {
    LetterTicks ticks;          ///< those of equal rows; a new or changed row is ticked
    std::size_t letter = 0;     ///< the letter that was shown before, or the one closest to it
    std::size_t newLetters = 0; ///< the number of new and changed rows
};
/// A shown letter whose row has changed is found by its insurer and patient, otherwise by its number.
[[nodiscard]] KeptView keptView(const LetterSet &before, const LetterTicks &ticks, std::size_t letter,
                                const LetterSet &now);

} // namespace inin::viewer
