#pragma once

#include "viewer/ledger/ledger.h"
#include "viewer/ledger/run_comparison.h"

#include <nlohmann/json.hpp>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace inin::viewer {

// The answers of `formviewer --ledger` as Japanese text and as JSON.

[[nodiscard]] std::string statusText(Ledger &ledger, const std::vector<RunSummary> &runs);
[[nodiscard]] nlohmann::ordered_json statusJson(Ledger &ledger, const std::vector<RunSummary> &runs);

/// How the letters of a script differ from an earlier run.
struct LetterDifference {
    std::optional<RunSummary> earlier; ///< empty if none was printed
    RunComparison comparison;
    RunTexts before, now;
};
[[nodiscard]] std::string differenceText(const LetterDifference &difference);
[[nodiscard]] nlohmann::ordered_json differenceJson(const LetterDifference &difference);

/// The printed letters of some months that did not come back.
struct MissingLetters {
    std::optional<MonthRange> months; ///< empty for an empty ledger
    std::size_t printed = 0;
    std::vector<PrintedLetter> letters;
};
[[nodiscard]] std::string missingText(Ledger &ledger, const MissingLetters &missing);
[[nodiscard]] nlohmann::ordered_json missingJson(Ledger &ledger, const MissingLetters &missing);

/// All letters with all texts, one line a letter (TableLine). The JSON has the texts as they are.
[[nodiscard]] std::string exportCsv(Ledger &ledger);
[[nodiscard]] nlohmann::ordered_json exportJson(Ledger &ledger);

} // namespace inin::viewer
