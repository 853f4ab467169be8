#pragma once

#include "viewer/app/options.h"
#include "viewer/ledger/ledger.h"

#include <string>

namespace inin::viewer {

/// The ledger of the operator, by the environment and the settings.
[[nodiscard]] Ledger operatorLedger();

/// The result of `formviewer --ledger`: what is printed, and the exit code.
struct LedgerReport {
    std::string text;
    int exitCode = 0;
};
/// The exit code when letters differ or are missing, and when the ledger cannot be read.
inline constexpr int kLettersFound = 1, kLedgerUnreadable = 3;

/// Answers a command from a ledger. Throws a RuntimeError with a sentence when the letters of its script cannot be opened.
[[nodiscard]] LedgerReport reportOf(Ledger &ledger, const LedgerCommand &command);

/// Prints the answer from the operator's ledger. Returns the exit code.
[[nodiscard]] int printLedgerReport(const LedgerCommand &command);

} // namespace inin::viewer
