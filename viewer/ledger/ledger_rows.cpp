#include "viewer/ledger/ledger_rows.h"

#include "runtime/runtime_error.h"
#include "viewer/document/letter_numbers.h"
#include "viewer/ledger/ledger_file.h"
#include "viewer/ledger/text_codec.h"

#include <fmt/format.h>

#include <algorithm>

namespace inin::viewer {

namespace {

/// A print with no good sheet is not a print.
constexpr std::string_view kRunRows = R"(
SELECT run.id, csv, form, title, form_name, first_month, last_month, letters, first_letter, recorded, last.time
FROM run LEFT JOIN output AS last ON last.id = (
    SELECT max(id) FROM output WHERE run = run.id AND kind = 0 AND (good IS NULL OR good > 0)) )";

StoredRun runOf(const LedgerStatement &row)
{
    StoredRun run;
    RunSummary &summary = run.summary;
    summary.id = RunId{row.integer(0)};
    summary.csvFingerprint = row.text(1);
    summary.formFingerprint = row.text(2);
    summary.title = row.text(3);
    summary.formName = row.text(4);
    summary.period = {static_cast<std::int32_t>(row.integer(5)), static_cast<std::int32_t>(row.integer(6))};
    summary.letters = static_cast<std::size_t>(std::max<std::int64_t>(row.integer(7), 0));
    run.firstLetter = row.integer(8);
    summary.recorded = timeOf(row.text(9));
    if (!row.isNull(10)) summary.printed = timeOf(row.text(10));
    return run;
}

template <class... Values>
std::vector<StoredRun> runsWhere(LedgerDatabase &database, std::string_view condition, const Values &...values)
{
    const std::string sql = std::string(kRunRows).append(condition);
    LedgerStatement rows(database, sql.c_str());
    rows.bind(values...);
    std::vector<StoredRun> runs;
    while (rows.step()) runs.push_back(runOf(rows));
    return runs;
}

std::optional<StoredRun> firstOf(std::vector<StoredRun> runs)
{
    if (runs.empty()) return std::nullopt;
    return std::move(runs.front());
}

/// The letters of a job; none for a damaged list.
std::vector<std::size_t> jobLetters(std::string_view list, std::size_t count)
try {
    return list.empty() ? std::vector<std::size_t>() : readLetterList(list, count);
} catch (const RuntimeError &) {
    return {};
}

template <class... Values>
RunTexts textsWhere(LedgerDatabase &database, RunId run, std::string_view condition, const Values &...values)
{
    LedgerStatement columns(database, "SELECT columns FROM run WHERE id = ?");
    if (!columns.bind(rowNumber(run)).step()) return {};
    RunTexts texts(decodedList(columns.text(0)));
    const std::string sql = fmt::format("SELECT texts FROM letter WHERE run = ?1 {} ORDER BY number", condition);
    LedgerStatement letters(database, sql.c_str());
    letters.bind(rowNumber(run), values...);
    while (letters.step()) addDecodedLetter(texts, letters.text(0));
    return texts;
}

} // namespace

std::vector<StoredRun> readRuns(LedgerDatabase &database)
{
    return runsWhere(database, "ORDER BY last.id DESC, run.id DESC");
}

std::optional<StoredRun> readRun(LedgerDatabase &database, RunId run)
{
    return firstOf(runsWhere(database, "WHERE run.id = ?", rowNumber(run)));
}

std::optional<StoredRun> readRun(LedgerDatabase &database, const RunMark &mark)
{
    return firstOf(runsWhere(database, "WHERE csv = ? AND form = ?", mark.csvFingerprint, mark.formFingerprint));
}

std::vector<StoredOutput> readOutputs(LedgerDatabase &database, RunId run, std::size_t count)
{
    LedgerStatement rows(database, "SELECT output.id, kind, printer, output.time, good, queue_number, job.letters "
                                   "FROM output JOIN job ON output = output.id WHERE run = ? ORDER BY output.id, part");
    rows.bind(rowNumber(run));
    std::vector<StoredOutput> outputs;
    while (rows.step()) {
        const OutputId id{rows.integer(0)};
        if (outputs.empty() || outputs.back().output.id != id) {
            StoredOutput &added = outputs.emplace_back();
            added.output.id = id;
            added.kind = static_cast<OutputKind>(rows.integer(1));
            added.output.printer = rows.text(2);
            added.output.time = timeOf(rows.text(3));
            if (!rows.isNull(4)) added.good = static_cast<std::size_t>(rows.integer(4));
        }
        OpenOutput &output = outputs.back().output;
        if (const std::string_view number = rows.text(5); !number.empty()) output.queueNumbers.emplace_back(number);
        const std::vector<std::size_t> letters = jobLetters(rows.text(6), count);
        output.letters.insert(output.letters.end(), letters.begin(), letters.end());
    }
    return outputs;
}

RunTexts readTexts(LedgerDatabase &database, RunId run)
{
    return textsWhere(database, run, "");
}

RunTexts readTexts(LedgerDatabase &database, const LedgerLetter &letter)
{
    return textsWhere(database, letter.run, "AND number IN (0, ?2)", rowNumber(letter.letter));
}

std::vector<LetterKey> readKeys(LedgerDatabase &database, RunId run)
{
    LedgerStatement rows(database, "SELECT person, address FROM letter WHERE run = ? ORDER BY number");
    rows.bind(rowNumber(run));
    std::vector<LetterKey> keys;
    while (rows.step())
        keys.push_back(
            {static_cast<std::uint64_t>(rows.integer(0)), static_cast<std::uint64_t>(rows.integer(1)), 0, 0});
    return keys;
}

std::vector<LetterState> readStates(LedgerDatabase &database, RunId run, std::size_t count)
{
    std::vector<LetterState> states(count, LetterState::unprinted);
    for (const StoredOutput &stored : readOutputs(database, run, count)) {
        if (stored.kind != OutputKind::print) continue;
        const std::vector<std::size_t> &letters = stored.output.letters;
        const LetterState state = stored.good ? LetterState::onPaper : LetterState::sent;
        for (std::size_t i = 0; i < std::min(stored.good.value_or(letters.size()), letters.size()); ++i)
            states[letters[i]] = std::max(states[letters[i]], state);
    }
    const std::vector<std::optional<Date>> returns = readReturns(database, run, count);
    for (std::size_t letter = 0; letter < count; ++letter)
        if (returns[letter]) states[letter] = LetterState::returned;
    return states;
}

std::vector<std::optional<Date>> readReturns(LedgerDatabase &database, RunId run, std::size_t count)
{
    std::vector<std::optional<Date>> returns(count);
    LedgerStatement rows(database, "SELECT letter, time FROM returned WHERE run = ?");
    rows.bind(rowNumber(run));
    while (rows.step())
        if (const auto letter = static_cast<std::size_t>(rows.integer(0)); letter < count)
            returns[letter] = timeOf(rows.text(1));
    return returns;
}

} // namespace inin::viewer
