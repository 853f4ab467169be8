#pragma once

#include "viewer/document/letter_renderer.h"
#include "viewer/ledger/ledger.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace inin::viewer {

/// Records the files that a command writes in the operator's ledger, as the window does. The ledger is opened when it is
/// needed. Its faults are printed and have no other effect.
class RecordedFiles {
public:
    /// `renderer` must outlive this.
    explicit RecordedFiles(LetterRenderer &renderer) : m_renderer(renderer) {}

    /// Records the letters and gives them their codes, if the operator prints codes and a form has a place for them.
    void addCodes();
    /// Records letters that are saved.
    void add(OutputKind kind, const std::vector<std::size_t> &letters);
    /// Prints the ledger's notice, if there is one, on the error output.
    void printNotice() const;

private:
    void recordRun();

    LetterRenderer &m_renderer;
    Ledger m_ledger; ///< switched off until recordRun()
    bool m_isOpen = false;
    std::optional<RunId> m_run;
};

} // namespace inin::viewer
