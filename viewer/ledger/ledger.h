#pragma once

#include "viewer/ledger/ledger_records.h"
#include "viewer/ledger/letter_code.h"
#include "viewer/ledger/letter_identity.h"
#include "viewer/ledger/run_texts.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace inin::viewer {

/// Why the ledger does not record.
enum class LedgerFault : std::uint8_t {
    none,
    off,         ///< switched off
    locked,      ///< another program holds it
    readOnly,    ///< can be read but not written
    diskFull,    ///< no room for a record
    damaged,     ///< kept under another name; the records so far are not in use
    newer,       ///< written by a newer version
    unavailable, ///< the place cannot be reached
};

class LedgerDatabase;

/// The ledger of letters: runs, outputs, states and returns, in one file that several viewers may use at once. No operation
/// throws or blocks printing: without a usable file, queries return nothing and records are dropped, and notice() has the
/// sentence for the operator. Each record is one transaction. Not thread-safe.
class Ledger {
public:
    /// A ledger that is switched off.
    Ledger();
    /// Opens or creates the file and deletes runs that are older than `months`. An empty path is a ledger that is switched
    /// off. `now` is the local time.
    Ledger(const std::string &path, int months, Date now);
    Ledger(Ledger &&) noexcept;
    Ledger &operator=(Ledger &&) noexcept;
    ~Ledger();

    [[nodiscard]] LedgerFault fault() const;
    /// What is not recorded and why, in one sentence. Empty while everything is recorded, and when switched off. It may
    /// change with every operation.
    [[nodiscard]] const std::string &notice() const;
    /// How long an operation waits for another program.
    [[nodiscard]] std::chrono::milliseconds patience() const;
    /// True when queries return what the file contains.
    [[nodiscard]] bool isReadable() const;
    [[nodiscard]] const std::string &path() const;
    /// The number in the codes of its letters; 0 without a file.
    [[nodiscard]] std::uint32_t number() const;

    // Records.

    /// The number of a run; records it with all its letters if its files have not been recorded before. Call it before the
    /// first output, not for a mere look at the letters.
    std::optional<RunId> recordRun(const RunMark &mark, const RunTexts &texts, Date now);
    /// Records letters that a queue has accepted or that are saved; call it after that, once for each job. Further jobs of
    /// one output pass its id.
    std::optional<OutputId> recordOutput(RunId run, const OutputJob &job,
                                         std::optional<OutputId> output = std::nullopt);
    /// All sheets of a print are good. False if it was not recorded.
    bool confirmAll(OutputId output);
    /// The sheets up to this letter are good, in the order of the sheets; the others count as not printed. Returns those.
    /// Nothing if the letter is not among them, or it was not recorded.
    std::optional<std::vector<std::size_t>> confirmUpTo(OutputId output, std::size_t lastGood);
    /// No sheet is good. False if it was not recorded.
    bool confirmNone(OutputId output);
    /// Ticks or unticks letters as returned, in all runs in which they were printed. Returns the state of each afterwards;
    /// nothing if it was not recorded.
    std::optional<std::vector<LetterState>> setReturned(std::span<const PrintedLetter> letters, bool isReturned,
                                                        Date now);
    /// Ticks the letters of codes that were scanned or typed, in one record. One result for each code.
    std::vector<ReturnedCode> markReturned(std::span<const std::string> codes, Date now);
    /// Deletes everything and overwrites it. Codes on paper are then of deleted letters. False if it failed.
    bool erase();

    // Queries.

    /// The run that was recorded of the same files.
    [[nodiscard]] std::optional<RunSummary> findRun(const RunMark &mark);
    [[nodiscard]] std::optional<RunSummary> run(RunId run);
    /// All runs, the one printed or recorded last first.
    [[nodiscard]] std::vector<RunSummary> runs();
    /// The printed runs to compare with, the one printed last first: those with the same forms, except `mark` itself.
    [[nodiscard]] std::vector<RunSummary> earlierRuns(const RunMark &mark);
    [[nodiscard]] RunTexts texts(RunId run);
    /// The state of each letter of a run.
    [[nodiscard]] std::vector<LetterState> states(RunId run);
    /// When each letter of a run came back.
    [[nodiscard]] std::vector<std::optional<Date>> returnTimes(RunId run);
    /// The prints of a run whose sheets are not confirmed, the oldest first.
    [[nodiscard]] std::vector<OpenOutput> openOutputs(RunId run);
    /// The letters whose persons have a printed letter of an overlapping period already, in this run or another.
    [[nodiscard]] std::vector<std::size_t> printedAlready(const RunMark &mark, std::span<const LetterKey> keys);
    /// The periods of printed letters, the latest first.
    [[nodiscard]] std::vector<MonthRange> periods();
    /// The printed letters whose period overlaps these months, by insurer, district and patient. A letter that was printed
    /// in several runs is listed once, and is returned when any of its copies is.
    [[nodiscard]] std::vector<PrintedLetter> printedLetters(const MonthRange &months);
    /// The code of a letter; empty if the run is unknown.
    [[nodiscard]] std::optional<LetterCode> codeOf(RunId run, std::size_t letter);
    /// The codes of all letters of a run as they are printed; none if the run is unknown.
    [[nodiscard]] std::vector<std::string> codes(RunId run);

private:
    void openFile();
    void renewDamagedFile();
    void deleteOldRuns(int months);
    [[nodiscard]] bool isReady();
    /// Run a query or a change as one transaction. Return the fallback if there is no file or it fails.
    template <class Result, class Body> Result query(Result fallback, const Body &body);
    template <class Result, class Body> Result change(Result fallback, const Body &body);
    void fail(LedgerFault fault);
    void failWith(const std::exception &error);
    void recover();
    [[nodiscard]] ReturnedCode markCoded(LedgerDatabase &database, std::string_view code, Date now) const;

    std::unique_ptr<LedgerDatabase> m_database;
    std::string m_path;
    Date m_opened;
    std::uint32_t m_number = 0;
    LedgerFault m_fault = LedgerFault::off;
    std::string m_notice;
};

} // namespace inin::viewer
