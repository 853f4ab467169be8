#pragma once

#include "viewer/window/print_order.h"
#include "viewer/window/spool_pdf.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <span>
#include <string>

namespace inin::viewer {

struct OpenLetters;

/// Makes the printer of one job.
using MakePrinter = std::function<std::unique_ptr<QPrinter>(const PrintOrder &)>;
/// One of the system's printers, by its name.
[[nodiscard]] std::unique_ptr<QPrinter> systemPrinter(const PrintOrder &order);

/// The roads to paper. A system that takes PDF gets the very file that saving makes: the same letters as everywhere, small
/// and quickly made. Elsewhere the pages are painted on a printer.
struct PrintRoads {
    SpoolPdf spool; ///< empty where the system takes no PDF
    MakePrinter makePrinter;
};
[[nodiscard]] PrintRoads systemRoads();

/// How a print ended. Letters of a job that was refused count as not sent; those of a cancelled one count as sent when
/// the system could not take them back.
struct PrintResult {
    std::size_t sent = 0; ///< letters, from the front
    bool isCancelled = false;
    std::string fault;         ///< a sentence when the printer refused; empty otherwise
    bool mayBeOnPaper = false; ///< a painted job may have begun to come out before it was refused
    [[nodiscard]] bool isDone() const { return !isCancelled && fault.empty(); }
};

/// Told the letters that are done; false ends the print, and the job at hand is taken back.
using PrintProgress = std::function<bool(std::size_t letters)>;

/// Prints letters in the order given, a page each.
[[nodiscard]] PrintResult printLetters(OpenLetters &letters, std::span<const std::size_t> which,
                                       const PrintOrder &order, const PrintRoads &roads, const PrintProgress &progress);
/// Prints the page with rulers by which an offset is measured. The fault's sentence, or an empty text.
[[nodiscard]] std::string printRulerPage(OpenLetters &letters, const PrintOrder &order, const PrintRoads &roads);

} // namespace inin::viewer
