#pragma once

#include "runtime/date.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace inin::viewer {

/// A run in its ledger. A number is never used again, not even after the run was deleted.
enum class RunId : std::int64_t {};
/// One print, or one saving of a PDF or of pictures.
enum class OutputId : std::int64_t {};

/// Months in a row, both included; a month is counted from January of the year 0.
struct MonthRange {
    std::int32_t first = 0, last = 0;
    [[nodiscard]] bool overlaps(const MonthRange &other) const { return first <= other.last && other.first <= last; }
    friend bool operator==(const MonthRange &, const MonthRange &) = default;
};
[[nodiscard]] constexpr std::int32_t monthNumber(std::int32_t year, std::int32_t month)
{
    return year * 12 + month - 1;
}
/// "2026-11", or "2026-11..2027-01" for several months.
[[nodiscard]] std::string monthRangeText(const MonthRange &months);
/// Reads such a text.
[[nodiscard]] std::optional<MonthRange> readMonthRange(std::string_view text);

/// What is known of a letter, in the order of time.
enum class LetterState : std::uint8_t {
    unprinted,
    sent,     ///< a printer accepted it
    onPaper,  ///< the operator confirmed the sheet
    returned, ///< it came back signed
};
struct LetterStateWords {
    LetterState state;
    const char *name; ///< in JSON
    const char *text; ///< for the operator
};
/// In the order of LetterState.
inline constexpr LetterStateWords kLetterStates[] = {
    {LetterState::unprinted, "unprinted", "未印刷"},
    {LetterState::sent, "sent", "送信済み"},
    {LetterState::onPaper, "onPaper", "紙で確認済み"},
    {LetterState::returned, "returned", "返送済み"},
};
[[nodiscard]] const LetterStateWords &wordsOf(LetterState state);

enum class OutputKind : std::uint8_t { print, pdf, pictures };

/// Letters that the queue or the disk has accepted together.
struct OutputJob {
    OutputKind kind = OutputKind::print;
    std::string printer;              ///< empty for files
    std::string queueNumber;          ///< the queue's own number of the job; empty if it has none
    std::vector<std::size_t> letters; ///< in the order of the sheets, counted from 0
    Date time;
};

/// A print whose sheets the operator has not confirmed yet.
struct OpenOutput {
    OutputId id{};
    std::string printer;
    Date time;                        ///< of its first job
    std::vector<std::size_t> letters; ///< of all its jobs, in the order of the sheets
    std::vector<std::string> queueNumbers;
};

/// A run of the ledger without its letters.
struct RunSummary {
    RunId id{};
    std::string title;    ///< of the script, usually 委任状
    std::string formName; ///< file names of the forms
    std::string csvFingerprint, formFingerprint;
    MonthRange period; ///< of letters without dates, the month of the first output
    std::size_t letters = 0;
    Date recorded;               ///< the first output
    std::optional<Date> printed; ///< the last print
};

/// A letter in the ledger: its run, and its number counted from 0.
struct LedgerLetter {
    RunId run{};
    std::size_t letter = 0;
    friend bool operator==(const LedgerLetter &, const LedgerLetter &) = default;
};

/// A printed letter as the list of returns shows it.
struct PrintedLetter {
    /// The letter in each run in which it was printed, the one printed last first.
    std::vector<LedgerLetter> copies;
    std::string insurer, district, patient, address;
    MonthRange period;
    LetterState state = LetterState::sent; ///< sent, onPaper or returned
    Date printed;
    std::optional<Date> returned;
};

/// What became of a code that was scanned or typed.
enum class CodeResult : std::uint8_t {
    marked,      ///< the letter counts as returned now
    already,     ///< it did so before: the same sheet again
    unreadable,  ///< not a code, or misread
    otherLedger, ///< a code of another ledger
    unknown,     ///< of this ledger, but the letter's run was deleted or erased
    notRecorded, ///< the ledger could not be written; see Ledger::notice()
};
struct CodeResultWords {
    CodeResult result;
    const char *name;     ///< in JSON
    const char *sentence; ///< for the operator
};
[[nodiscard]] const CodeResultWords &wordsOf(CodeResult result);
struct ReturnedCode {
    CodeResult result = CodeResult::unreadable;
    std::optional<LedgerLetter> letter; ///< of `marked` and `already`
    std::string insurer, patient;       ///< of that letter
};

} // namespace inin::viewer
