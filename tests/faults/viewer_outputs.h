#pragma once

#include "viewer/ledger/ledger_world.h"
#include "viewer/support/viewer_world.h"

#include <functional>
#include <string>
#include <vector>

namespace inin::viewer::test {

/// What a file holds before it is replaced.
constexpr const char *kOld = "old";

/// An operation of the form viewer that replaces one file.
struct FileWriter {
    const char *name;
    std::string output;
    std::function<void()> write;
    const char *end; ///< of the new file
};

/// The writing of a PDF with three letters, and of a combined form.
[[nodiscard]] std::vector<FileWriter> writersIn(const TempFolder &folder);

/// Records a run of five letters and its print, and the return of its first letter.
void recordRunAndReturn(const LedgerWorld &world);

/// What is wrong with the ledger's file; "ok" for nothing. An incomplete run is wrong too.
[[nodiscard]] std::string stateOfFile(const LedgerWorld &world);

} // namespace inin::viewer::test
