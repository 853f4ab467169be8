#pragma once

#include "viewer/ledger/ledger_database.h"
#include "viewer/ledger/ledger_records.h"
#include "viewer/ledger/letter_identity.h"
#include "viewer/ledger/run_texts.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace inin::viewer {

// The rows of a ledger's tables as values. All throw LedgerError.

[[nodiscard]] inline std::int64_t rowNumber(std::size_t number)
{
    return static_cast<std::int64_t>(number);
}
[[nodiscard]] inline std::int64_t rowNumber(RunId run)
{
    return static_cast<std::int64_t>(run);
}

struct StoredRun {
    RunSummary summary;
    std::int64_t firstLetter = 0; ///< the number of its first letter in the ledger
};
/// All runs, the one printed last first, then those never printed, the one recorded last first.
[[nodiscard]] std::vector<StoredRun> readRuns(LedgerDatabase &database);
[[nodiscard]] std::optional<StoredRun> readRun(LedgerDatabase &database, RunId run);
[[nodiscard]] std::optional<StoredRun> readRun(LedgerDatabase &database, const RunMark &mark);

struct StoredOutput {
    OpenOutput output;
    OutputKind kind = OutputKind::print;
    std::optional<std::size_t> good; ///< confirmed sheets; empty before the operator's answer
};
/// The outputs of a run of `count` letters, the oldest first.
[[nodiscard]] std::vector<StoredOutput> readOutputs(LedgerDatabase &database, RunId run, std::size_t count);

[[nodiscard]] RunTexts readTexts(LedgerDatabase &database, RunId run);
/// The run's first letter, and after it the given one unless it is the first.
[[nodiscard]] RunTexts readTexts(LedgerDatabase &database, const LedgerLetter &letter);
[[nodiscard]] std::vector<LetterKey> readKeys(LedgerDatabase &database, RunId run);
[[nodiscard]] std::vector<LetterState> readStates(LedgerDatabase &database, RunId run, std::size_t count);
/// When each letter came back.
[[nodiscard]] std::vector<std::optional<Date>> readReturns(LedgerDatabase &database, RunId run, std::size_t count);

} // namespace inin::viewer
