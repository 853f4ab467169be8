#pragma once

#include "runtime/date.h"
#include "viewer/check/cause.h"
#include "viewer/document/letter_bundles.h"
#include "viewer/ledger/ledger_records.h"

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace inin::viewer {

/// Show, print or write the letters of a script.
struct ViewCommand {
    std::string script;    ///< as the suite writes paths
    std::string form;      ///< a form to show with sample letters instead of a script
    std::string pdf;       ///< empty for none
    bool archive = false;  ///< the PDF is PDF/A
    bool untagged = false; ///< the PDF has no tags and no outline
    std::string pngFolder;
    double dotsPerInch = 150;
    std::string letters;           ///< "1-3,7"; empty for all
    LetterArrangement arrangement; ///< of the letters in the PDF
    bool check = false;
    bool json = false;
    CauseSet withoutChecks;    ///< causes that are not checked
    std::optional<Date> today; ///< the day that dates are compared with; empty for the clock's
    [[nodiscard]] bool needsWindow() const { return pdf.empty() && pngFolder.empty() && !check; }
};
enum class LedgerQuestion { status, diff, missing, exportAll };
/// Print what the ledger contains.
struct LedgerCommand {
    LedgerQuestion question = LedgerQuestion::status;
    std::string script;               ///< of the letters to compare; optional for the status
    std::optional<MonthRange> months; ///< of the missing letters; empty for the latest
    bool json = false;
};
/// Mark the letters of scanned pages as returned.
struct ReturnedCommand {
    std::vector<std::string> files;
    bool json = false;
};
/// Write the combined form document of a merger's script.
struct MergeCommand {
    std::string output;
    std::string script;
};
struct ShowHelp {
    std::string text;
};
/// An invalid command line, with the sentence to show.
struct BadCommandLine {
    std::string sentence;
};
using ViewerCommand = std::variant<ViewCommand, ReturnedCommand, LedgerCommand, MergeCommand, ShowHelp, BadCommandLine>;

/// The exit code for a command that is invalid or not available in this build.
inline constexpr int kBadCommand = 2;

/// Reads a command line. The program name selects viewer or merger. "/c" is followed by the script's path, which may be
/// split at its blanks into several arguments.
[[nodiscard]] ViewerCommand readViewerCommand(const std::vector<std::string> &words);

} // namespace inin::viewer
