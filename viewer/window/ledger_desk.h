#pragma once

#include "viewer/ledger/ledger.h"
#include "viewer/ledger/run_comparison.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace inin::viewer {

/// The ledger as one window uses it: the run of the shown letters with their states, the run that they are compared with,
/// and the prints that are not confirmed. Before open() and without a usable file everything is empty.
class LedgerDesk {
public:
    void open(const std::string &path, int months, Date now);
    /// Forgets the letters and releases the file.
    void close();
    [[nodiscard]] bool isOpen() const { return m_isOpen; }
    /// True when there are states to show.
    [[nodiscard]] bool isUsable() const { return m_isOpen && m_ledger.isReadable(); }
    [[nodiscard]] const std::string &notice() const { return m_ledger.notice(); }
    [[nodiscard]] Ledger &ledger() { return m_ledger; }

    /// Looks up the letters and compares them with the run printed last.
    void show(const LetterSet &set);
    /// Reads the states again, which another window may have changed.
    void refresh();

    [[nodiscard]] LetterState stateOf(std::size_t letter) const;
    /// Whether the letter's person has a printed letter of this period already, when the letters were opened.
    [[nodiscard]] bool isPrintedAlready(std::size_t letter) const;
    [[nodiscard]] std::size_t printedAlready() const { return m_printedCount; }

    /// The runs that can be compared, the one printed last first.
    [[nodiscard]] const std::vector<RunSummary> &earlierRuns() const { return m_earlier; }
    void compareWith(const RunSummary &run);
    /// The run that the letters are compared with: the same run if it was printed before. Empty without one.
    [[nodiscard]] const std::optional<RunSummary> &comparedRun() const { return m_compared; }
    [[nodiscard]] const RunComparison &comparison() const { return m_comparison; }
    [[nodiscard]] bool isAdded(std::size_t letter) const;
    /// Null for a letter that has not changed.
    [[nodiscard]] const ChangedLetter *changeOf(std::size_t letter) const;
    /// A text of a letter of the compared run.
    [[nodiscard]] std::string_view textBefore(std::size_t letter, std::string_view column) const;

    /// The letters that are shown.
    [[nodiscard]] const RunMark &mark() const { return m_mark; }
    /// The code of each letter; none for letters that are not recorded.
    [[nodiscard]] std::vector<std::string> codes();

    /// Call before an output, then record() for each job of it as soon as it was accepted.
    void startOutput(Date now);
    void record(const OutputJob &job);
    /// The print to be confirmed: the latest one. Null without one.
    [[nodiscard]] const OpenOutput *question() const { return m_open.empty() ? nullptr : &m_open.back(); }
    /// Whether another window, or this one before it opened these letters, has made the print.
    [[nodiscard]] bool isFromBefore(const OpenOutput &print) const;

private:
    [[nodiscard]] std::vector<bool> flagged(const std::vector<std::size_t> &letters) const;

    Ledger m_ledger;
    bool m_isOpen = false;
    RunMark m_mark;
    std::optional<RunId> m_run;       ///< once the letters are recorded
    std::optional<OutputId> m_output; ///< the present one, once its first job is recorded
    std::vector<OutputId> m_own;      ///< the outputs since show()
    std::vector<LetterState> m_states;
    std::vector<OpenOutput> m_open;
    std::vector<bool> m_printed, m_added;
    std::size_t m_printedCount = 0;
    std::vector<RunSummary> m_earlier;
    std::optional<RunSummary> m_compared;
    RunTexts m_texts, m_textsBefore;
    RunComparison m_comparison;
};

} // namespace inin::viewer
