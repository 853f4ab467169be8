#pragma once

#include "viewer/ledger/run_texts.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace inin::viewer {

struct ChangedField {
    std::string column, before, now;
    friend bool operator==(const ChangedField &, const ChangedField &) = default;
};
/// A letter with other texts than before.
struct ChangedLetter {
    std::size_t before = 0, now = 0;
    std::vector<ChangedField> fields; ///< at least one
};
/// How a run differs from an earlier one. Letters are counted from 0, in ascending order.
struct RunComparison {
    std::vector<std::size_t> added;
    std::vector<ChangedLetter> changed;             ///< ordered by `now`
    std::vector<std::size_t> gone;                  ///< numbers in the earlier run
    std::vector<std::optional<std::size_t>> before; ///< for each letter now, its number in the earlier run
    [[nodiscard]] bool isSame() const { return added.empty() && changed.empty() && gone.empty(); }
};

/// Compares the texts of two runs. Their order does not count. Between runs of different periods the dates that every
/// month changes (period, last treatment, signature) are not compared.
[[nodiscard]] RunComparison compareRuns(const RunTexts &before, const RunTexts &now);

} // namespace inin::viewer
