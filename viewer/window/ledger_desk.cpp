#include "viewer/window/ledger_desk.h"

#include "viewer/ledger/letter_identity.h"

#include <algorithm>

namespace inin::viewer {

void LedgerDesk::open(const std::string &path, int months, Date now)
{
    m_ledger = Ledger(path, months, now);
    m_isOpen = true;
}

void LedgerDesk::close()
{
    *this = LedgerDesk();
}

std::vector<bool> LedgerDesk::flagged(const std::vector<std::size_t> &letters) const
{
    std::vector<bool> flags(m_mark.letters);
    for (const std::size_t letter : letters) flags[letter] = true;
    return flags;
}

void LedgerDesk::show(const LetterSet &set)
{
    Ledger ledger = std::move(m_ledger);
    *this = LedgerDesk();
    m_ledger = std::move(ledger);
    m_isOpen = true;
    if (m_ledger.fault() == LedgerFault::off) return;
    m_mark = markOf(set);
    m_texts = textsOf(set);
    const std::optional<RunSummary> run = m_ledger.findRun(m_mark); // tries again to open a file that was locked
    if (!isUsable()) return;
    if (run) m_run = run->id;
    refresh();
    const std::vector<std::size_t> printed = m_ledger.printedAlready(m_mark, keysOf(m_texts));
    m_printedCount = printed.size();
    m_printed = flagged(printed);
    m_earlier = m_ledger.earlierRuns(m_mark);
    if (run && run->printed)
        m_compared = run;
    else if (!m_earlier.empty())
        compareWith(m_earlier.front());
}

void LedgerDesk::refresh()
{
    m_states.clear();
    m_open.clear();
    if (!m_run) return;
    m_states = m_ledger.states(*m_run);
    m_open = m_ledger.openOutputs(*m_run);
}

LetterState LedgerDesk::stateOf(std::size_t letter) const
{
    return letter < m_states.size() ? m_states[letter] : LetterState::unprinted;
}

bool LedgerDesk::isPrintedAlready(std::size_t letter) const
{
    return letter < m_printed.size() && m_printed[letter];
}

void LedgerDesk::compareWith(const RunSummary &run)
{
    m_textsBefore = m_ledger.texts(run.id);
    m_comparison = compareRuns(m_textsBefore, m_texts);
    m_added = flagged(m_comparison.added);
    m_compared = run;
}

bool LedgerDesk::isAdded(std::size_t letter) const
{
    return letter < m_added.size() && m_added[letter];
}

const ChangedLetter *LedgerDesk::changeOf(std::size_t letter) const
{
    const auto found = std::ranges::lower_bound(m_comparison.changed, letter, {}, &ChangedLetter::now);
    return found != m_comparison.changed.end() && found->now == letter ? &*found : nullptr;
}

std::string_view LedgerDesk::textBefore(std::size_t letter, std::string_view column) const
{
    return m_textsBefore.value(letter, m_textsBefore.columnOf(column));
}

std::vector<std::string> LedgerDesk::codes()
{
    return m_run ? m_ledger.codes(*m_run) : std::vector<std::string>();
}

void LedgerDesk::startOutput(Date now)
{
    m_output.reset();
    if (m_texts.size() > 0) m_run = m_ledger.recordRun(m_mark, m_texts, now);
}

void LedgerDesk::record(const OutputJob &job)
{
    if (!m_run) return;
    // A job that could not be recorded leaves the output of the jobs before it as it is.
    const std::optional<OutputId> output = m_ledger.recordOutput(*m_run, job, m_output);
    if (!output) return;
    m_output = output;
    m_own.push_back(*output);
}

bool LedgerDesk::isFromBefore(const OpenOutput &print) const
{
    return std::ranges::find(m_own, print.id) == m_own.end();
}

} // namespace inin::viewer
