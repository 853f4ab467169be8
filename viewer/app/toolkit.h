#pragma once

#include "viewer/app/options.h"
#include "viewer/document/letter_renderer.h"
#include "viewer/ledger/ledger_place.h"

namespace inin::viewer {

// The commands that need the toolkit. A build without it refuses them with a sentence.

/// Prepares the toolkit for all of them. Call it once, first.
void prepareToolkit();

/// Shows the letters in a window until it is closed. Returns the exit code.
[[nodiscard]] int showLetters(const ViewCommand &command, const std::string &programName);
/// Writes letters as pictures into the command's folder.
void writePngs(const ViewCommand &command, LetterRenderer &renderer, const std::vector<std::size_t> &letters);

/// The operator's choices about the ledger. They are made in a window; a build without windows has the defaults.
[[nodiscard]] LedgerSettings ledgerSettings();
/// Whether the letters get their codes. Off in a build without windows.
[[nodiscard]] bool printsCodes();

/// Marks the letters of scanned pages as returned and prints the result of each page. Returns the exit code: 1 when a
/// page or a file needs the attention of the operator.
[[nodiscard]] int markReturned(const ReturnedCommand &command);

} // namespace inin::viewer
