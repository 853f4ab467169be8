#include "viewer/document/letter_numbers.h"
#include "viewer/ledger/ledger_file.h"
#include "viewer/ledger/ledger_operations.h"
#include "viewer/ledger/ledger_rows.h"
#include "viewer/ledger/text_codec.h"

#include <algorithm>

namespace inin::viewer {

namespace {

void addLetters(LedgerDatabase &database, RunId run, const RunTexts &texts)
{
    const std::vector<LetterKey> keys = keysOf(texts);
    LedgerStatement insert(database, "INSERT INTO letter VALUES (?, ?, ?, ?, ?)");
    for (std::size_t letter = 0; letter < texts.size(); ++letter) {
        const std::string bytes = encodedLetter(texts, letter);
        insert
            .bind(rowNumber(run), rowNumber(letter), static_cast<std::int64_t>(keys[letter].person),
                  static_cast<std::int64_t>(keys[letter].address), LedgerStatement::Blob{bytes})
            .run();
    }
}

/// Takes the numbers of new letters. Returns the first.
std::int64_t takeNumbers(LedgerDatabase &database, std::size_t count)
{
    LedgerStatement next(database, "SELECT next_letter FROM ledger");
    const std::int64_t first = next.step() ? next.integer(0) : 1;
    next.reset();
    LedgerStatement(database, "UPDATE ledger SET next_letter = ?").bind(first + rowNumber(count)).run();
    return first;
}

/// A run is kept from this time. A clock that is set back does not shorten that: no run is older than one recorded before.
std::string keptFrom(LedgerDatabase &database, Date now)
{
    LedgerStatement latest(database, "SELECT max(kept_from) FROM run");
    std::string time = timeText(now);
    return latest.step() ? std::max(time, std::string(latest.text(0))) : time;
}

/// The run and the letters of an output.
struct FoundOutput {
    RunId run{};
    std::vector<std::size_t> letters;
};
std::optional<FoundOutput> findOutput(LedgerDatabase &database, OutputId output)
{
    LedgerStatement rows(database, "SELECT run FROM output WHERE id = ?");
    if (!rows.bind(static_cast<std::int64_t>(output)).step()) return std::nullopt;
    const RunId run{rows.integer(0)};
    const std::optional<StoredRun> stored = readRun(database, run);
    if (!stored) return std::nullopt;
    for (const StoredOutput &one : readOutputs(database, run, stored->summary.letters))
        if (one.output.id == output) return FoundOutput{run, one.output.letters};
    return std::nullopt;
}

void setGood(LedgerDatabase &database, OutputId output, std::size_t sheets)
{
    LedgerStatement(database, "UPDATE output SET good = ? WHERE id = ?")
        .bind(rowNumber(sheets), static_cast<std::int64_t>(output))
        .run();
}

RunId addRun(LedgerDatabase &database, const RunMark &mark, const RunTexts &texts, Date now)
{
    const std::int32_t month = monthNumber(Year(now), Month(now));
    const MonthRange period = mark.period.value_or(MonthRange{month, month});
    const std::string columns = encodedList(texts.columns());
    const std::string time = timeText(now), kept = keptFrom(database, now);
    LedgerStatement(database, "INSERT INTO run (csv, form, title, form_name, first_month, last_month, letters, "
                              "first_letter, columns, recorded, kept_from) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)")
        .bind(mark.csvFingerprint, mark.formFingerprint, mark.title, mark.formName, std::int64_t{period.first},
              std::int64_t{period.last}, rowNumber(texts.size()), takeNumbers(database, texts.size()),
              LedgerStatement::Blob{columns}, time, kept)
        .run();
    const RunId run{database.lastRowId()};
    addLetters(database, run, texts);
    return run;
}

} // namespace

std::optional<RunId> Ledger::recordRun(const RunMark &mark, const RunTexts &texts, Date now)
{
    return change(std::optional<RunId>(), [&](LedgerDatabase &database) -> std::optional<RunId> {
        if (const auto known = readRun(database, mark)) return known->summary.id;
        return addRun(database, mark, texts, now);
    });
}

std::optional<OutputId> Ledger::recordOutput(RunId run, const OutputJob &job, std::optional<OutputId> output)
{
    if (job.letters.empty()) return std::nullopt;
    return change(std::optional<OutputId>(), [&](LedgerDatabase &database) -> std::optional<OutputId> {
        const std::optional<StoredRun> stored = readRun(database, run);
        const auto isUnknown = [&](std::size_t letter) { return letter >= stored->summary.letters; };
        if (!stored || std::ranges::any_of(job.letters, isUnknown)) return std::nullopt;
        const std::string time = timeText(job.time), letters = letterSequenceText(job.letters);
        std::int64_t id = output ? static_cast<std::int64_t>(*output) : 0;
        if (!output) {
            LedgerStatement(database, "INSERT INTO output (run, kind, printer, time) VALUES (?, ?, ?, ?)")
                .bind(rowNumber(run), static_cast<std::int64_t>(job.kind), job.printer, time)
                .run();
            id = database.lastRowId();
        }
        LedgerStatement(database, "INSERT INTO job SELECT ?, count(*), ?, ?, ? FROM job WHERE output = ?")
            .bind(id, job.queueNumber, letters, time, id)
            .run();
        LedgerStatement(database, "UPDATE run SET kept_from = max(kept_from, ?) WHERE id = ?")
            .bind(time, rowNumber(run))
            .run();
        return OutputId{id};
    });
}

bool Ledger::confirmAll(OutputId output)
{
    return change(false, [&](LedgerDatabase &database) {
        const std::optional<FoundOutput> found = findOutput(database, output);
        if (found) setGood(database, output, found->letters.size());
        return found.has_value();
    });
}

std::optional<std::vector<std::size_t>> Ledger::confirmUpTo(OutputId output, std::size_t lastGood)
{
    using Rest = std::optional<std::vector<std::size_t>>;
    return change(Rest(), [&](LedgerDatabase &database) -> Rest {
        const std::optional<FoundOutput> found = findOutput(database, output);
        if (!found) return std::nullopt;
        const auto last = std::ranges::find(found->letters, lastGood);
        if (last == found->letters.end()) return std::nullopt;
        setGood(database, output, static_cast<std::size_t>(last - found->letters.begin()) + 1);
        return std::vector<std::size_t>(last + 1, found->letters.end());
    });
}

bool Ledger::confirmNone(OutputId output)
{
    return change(false, [&](LedgerDatabase &database) {
        const bool isFound = findOutput(database, output).has_value();
        if (isFound) setGood(database, output, 0);
        return isFound;
    });
}

} // namespace inin::viewer
