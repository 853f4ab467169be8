#include "viewer/ledger/ledger_operations.h"
#include "viewer/ledger/ledger_rows.h"

#include <algorithm>

namespace inin::viewer {

namespace {

/// The keys of a run's printed letters whose patients are known.
std::vector<LetterKey> printedKeys(LedgerDatabase &database, const RunSummary &run)
{
    const std::vector<LetterState> states = readStates(database, run.id, run.letters);
    std::vector<LetterKey> printed;
    const std::vector<LetterKey> keys = readKeys(database, run.id);
    for (std::size_t letter = 0; letter < std::min(keys.size(), states.size()); ++letter)
        if (states[letter] != LetterState::unprinted && keys[letter].person != 0) printed.push_back(keys[letter]);
    return printed;
}

bool isOfMark(const RunSummary &run, const RunMark &mark)
{
    return run.csvFingerprint == mark.csvFingerprint && run.formFingerprint == mark.formFingerprint;
}

/// Nothing when the ledger's numbers are used up.
std::optional<LetterCode> codeIn(std::uint32_t ledger, const StoredRun &run, std::size_t letter)
{
    const std::int64_t number = run.firstLetter + rowNumber(letter);
    if (number < 1 || number > kLastCodedLetter) return std::nullopt;
    return LetterCode{ledger, static_cast<std::uint32_t>(number)};
}

} // namespace

std::optional<RunSummary> Ledger::findRun(const RunMark &mark)
{
    return query(std::optional<RunSummary>(), [&](LedgerDatabase &database) {
        const std::optional<StoredRun> found = readRun(database, mark);
        return found ? std::optional(found->summary) : std::nullopt;
    });
}

std::optional<RunSummary> Ledger::run(RunId run)
{
    return query(std::optional<RunSummary>(), [&](LedgerDatabase &database) {
        const std::optional<StoredRun> found = readRun(database, run);
        return found ? std::optional(found->summary) : std::nullopt;
    });
}

std::vector<RunSummary> Ledger::runs()
{
    return query(std::vector<RunSummary>(), [](LedgerDatabase &database) {
        std::vector<RunSummary> runs;
        for (StoredRun &run : readRuns(database)) runs.push_back(std::move(run.summary));
        return runs;
    });
}

std::vector<RunSummary> Ledger::earlierRuns(const RunMark &mark)
{
    std::vector<RunSummary> all = runs();
    std::erase_if(all, [&](const RunSummary &run) {
        return !run.printed || run.formName != mark.formName || isOfMark(run, mark);
    });
    return all;
}

RunTexts Ledger::texts(RunId run)
{
    return query(RunTexts(), [&](LedgerDatabase &database) { return readTexts(database, run); });
}

std::vector<LetterState> Ledger::states(RunId run)
{
    return query(std::vector<LetterState>(), [&](LedgerDatabase &database) {
        const std::optional<StoredRun> stored = readRun(database, run);
        return stored ? readStates(database, run, stored->summary.letters) : std::vector<LetterState>();
    });
}

std::vector<std::optional<Date>> Ledger::returnTimes(RunId run)
{
    return query(std::vector<std::optional<Date>>(), [&](LedgerDatabase &database) {
        const std::optional<StoredRun> stored = readRun(database, run);
        return stored ? readReturns(database, run, stored->summary.letters) : std::vector<std::optional<Date>>();
    });
}

std::vector<OpenOutput> Ledger::openOutputs(RunId run)
{
    return query(std::vector<OpenOutput>(), [&](LedgerDatabase &database) {
        std::vector<OpenOutput> open;
        const std::optional<StoredRun> stored = readRun(database, run);
        if (!stored) return open;
        for (StoredOutput &output : readOutputs(database, run, stored->summary.letters))
            if (output.kind == OutputKind::print && !output.good) open.push_back(std::move(output.output));
        return open;
    });
}

std::vector<std::size_t> Ledger::printedAlready(const RunMark &mark, std::span<const LetterKey> keys)
{
    return query(std::vector<std::size_t>(), [&](LedgerDatabase &database) {
        std::vector<bool> isPrinted(keys.size());
        for (const StoredRun &stored : readRuns(database)) {
            const RunSummary &run = stored.summary;
            if (!run.printed) continue;
            if (isOfMark(run, mark)) {
                const std::vector<LetterState> states = readStates(database, run.id, run.letters);
                for (std::size_t letter = 0; letter < std::min(keys.size(), states.size()); ++letter)
                    if (states[letter] != LetterState::unprinted) isPrinted[letter] = true;
            } else if (mark.period && run.period.overlaps(*mark.period)) {
                const auto earlier = sameLettersBefore(printedKeys(database, run), keys);
                for (std::size_t letter = 0; letter < keys.size(); ++letter)
                    if (earlier[letter]) isPrinted[letter] = true;
            }
        }
        std::vector<std::size_t> printed;
        for (std::size_t letter = 0; letter < keys.size(); ++letter)
            if (isPrinted[letter]) printed.push_back(letter);
        return printed;
    });
}

std::optional<LetterCode> Ledger::codeOf(RunId run, std::size_t letter)
{
    return query(std::optional<LetterCode>(), [&](LedgerDatabase &database) -> std::optional<LetterCode> {
        const std::optional<StoredRun> stored = readRun(database, run);
        if (!stored || letter >= stored->summary.letters) return std::nullopt;
        return codeIn(m_number, *stored, letter);
    });
}

std::vector<std::string> Ledger::codes(RunId run)
{
    return query(std::vector<std::string>(), [&](LedgerDatabase &database) {
        std::vector<std::string> codes;
        const std::optional<StoredRun> stored = readRun(database, run);
        if (!stored) return codes;
        for (std::size_t letter = 0; letter < stored->summary.letters; ++letter) {
            const std::optional<LetterCode> code = codeIn(m_number, *stored, letter);
            codes.push_back(code ? codeText(*code) : std::string());
        }
        return codes;
    });
}

} // namespace inin::viewer
