#pragma once

#include "runtime/date_text.h"
#include "runtime/regional.h"
#include "support/temp_folder.h"
#include "viewer/ledger/ledger.h"

#include <numeric>
#include <string>
#include <vector>

namespace inin::viewer::test {

/// "2026-11-20 10:32:05"
[[nodiscard]] inline Date moment(const std::string &text)
{
    return readDate(text, Regional{}).value();
}
inline const Date kPrintDay = moment("2026-11-20 10:32:05");
inline constexpr MonthRange kNovember{monthNumber(2026, 11), monthNumber(2026, 11)};
inline constexpr MonthRange kDecember{monthNumber(2026, 12), monthNumber(2026, 12)};

/// A row by the program's columns.
using TextRow = std::vector<std::string>;
namespace column {
enum : std::size_t {
    start,
    end,
    insurer,
    patient,
    address,
    company,
    bank = 9,
    account = 10,
    lastDay = 12,
    district,
    signature = 19
};
}
[[nodiscard]] TextRow textRow(const std::string &patient, const std::string &month = "2026/11");
[[nodiscard]] RunTexts textsOfRows(const std::vector<TextRow> &rows);

/// Letters without files.
struct TestRun {
    RunMark mark;
    RunTexts texts;
};
/// A run whose mark follows from its rows.
[[nodiscard]] TestRun runOfRows(const std::vector<TextRow> &rows, const MonthRange &period = kNovember,
                                const std::string &form = "委任状37_01.wfd");
/// A run of `count` patients, "利用者1" and so on.
[[nodiscard]] TestRun runOf(std::size_t count, const MonthRange &period = kNovember);

/// The letters from `first` to before `end`.
[[nodiscard]] inline std::vector<std::size_t> lettersFrom(std::size_t first, std::size_t end)
{
    std::vector<std::size_t> letters(end - first);
    std::iota(letters.begin(), letters.end(), first);
    return letters;
}
/// Printed letters.
[[nodiscard]] inline OutputJob printJob(std::vector<std::size_t> letters, Date time = kPrintDay)
{
    return {OutputKind::print, "受付のプリンター", "117", std::move(letters), time};
}

/// A letter that was printed in one run, as the list of returns has it.
[[nodiscard]] inline std::vector<PrintedLetter> printedLetter(RunId run, std::size_t letter)
{
    PrintedLetter printed;
    printed.copies = {{run, letter}};
    return {printed};
}

/// A ledger in a folder of its own.
struct LedgerWorld {
    TempFolder folder;
    std::string path = folder / "台帳.db";

    [[nodiscard]] Ledger open(Date now = kPrintDay, int months = 24) const { return {path, months, now}; }
    /// Records a run of which all letters are printed and confirmed.
    static RunId print(Ledger &ledger, const TestRun &run, Date now = kPrintDay);
};

} // namespace inin::viewer::test
