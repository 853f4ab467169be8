#include "viewer/app/recorded_files.h"

#include "system/local_time.h"
#include "system/program_edges.h"
#include "viewer/app/ledger_report.h"
#include "viewer/app/toolkit.h"
#include "viewer/ledger/run_texts.h"

#include <cstdio>

namespace inin::viewer {

void RecordedFiles::recordRun()
{
    if (m_isOpen || m_renderer.set().isSample) return;
    m_isOpen = true;
    m_ledger = operatorLedger();
    if (m_ledger.fault() == LedgerFault::off) return;
    const RunTexts texts = textsOf(m_renderer.set());
    if (texts.size() > 0) m_run = m_ledger.recordRun(markOf(m_renderer.set()), texts, presentMoment());
}

void RecordedFiles::addCodes()
{
    if (!m_renderer.showsCodes() || !printsCodes()) return;
    recordRun();
    if (m_run) m_renderer.setCodes(m_ledger.codes(*m_run));
}

void RecordedFiles::add(OutputKind kind, const std::vector<std::size_t> &letters)
{
    recordRun();
    if (m_run) (void)m_ledger.recordOutput(*m_run, {kind, {}, {}, letters, presentMoment()}); // see the notice
}

void RecordedFiles::printNotice() const
{
    if (!m_ledger.notice().empty()) printLine(stderr, m_ledger.notice());
}

} // namespace inin::viewer
