#pragma once

#include "viewer/window/print_order.h"
#include "viewer/window/spool_pdf.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <span>
#include <string>

namespace inin::viewer {

class Fonts;
class QtGlyphs;
struct LetterSet;
struct OpenLetters;

/// Creates the printer of one job.
using MakePrinter = std::function<std::unique_ptr<QPrinter>(const PrintOrder &)>;
/// Finds one of the system's printers by its name.
[[nodiscard]] std::unique_ptr<QPrinter> systemPrinter(const PrintOrder &order);

/// The two output paths. A system that accepts PDF gets the file that saving writes: identical letters, small and
/// quickly made. Elsewhere the pages are painted on a printer.
struct PrintPaths {
    SpoolPdf spool; ///< empty where the system does not accept PDF
    MakePrinter makePrinter;
};
[[nodiscard]] PrintPaths systemPaths();

/// The result of a print. Sheets of a refused job count as not sent; those of a cancelled job count as sent when the
/// system could not withdraw it.
struct PrintResult {
    std::size_t sent = 0; ///< number of sheets, from the first
    bool isCancelled = false;
    std::string fault;         ///< an error sentence when the printer refused; otherwise empty
    bool mayBeOnPaper = false; ///< a painted job may have begun to print before it was refused
    [[nodiscard]] bool isDone() const { return !isCancelled && fault.empty(); }
};

/// Called for each job that the system has accepted, at once: its letters, and the queue's number of the job, which is
/// empty where the system reports none.
using JobSent = std::function<void(std::span<const std::size_t> letters, const std::string &number)>;
/// Called with the number of finished sheets; false ends the print and withdraws the current job.
using PrintProgress = std::function<bool(std::size_t sheets)>;

/// The sheets as an order prints them: reversed if it has that order.
[[nodiscard]] std::vector<std::size_t> inPrintOrder(std::vector<std::size_t> sheets, const PrintOrder &order);
/// Prints letters, and the covers set in their renderer, in the given sequence.
[[nodiscard]] PrintResult printLetters(OpenLetters &letters, std::span<const std::size_t> which,
                                       const PrintOrder &order, const PrintPaths &paths, const PrintProgress &progress,
                                       const JobSent &onSent = {});
/// Prints all pages of a set once, as one job. Returns an error sentence or an empty text.
[[nodiscard]] std::string printPages(const LetterSet &set, Fonts &fonts, QtGlyphs &glyphs, const PrintOrder &order,
                                     const PrintPaths &paths);
/// Prints the page of rulers for measuring an offset. Returns an error sentence or an empty text.
[[nodiscard]] std::string printRulerPage(OpenLetters &letters, const PrintOrder &order, const PrintPaths &paths);

} // namespace inin::viewer
