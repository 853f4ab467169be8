#include "viewer/window/check_panel.h"
#include "viewer/window/viewer_window.h"

#include <QSplitter>
#include <QStatusBar>

#include <algorithm>

// The window's check of its letters, in the background and on demand.

namespace inin::viewer {

using namespace Qt::StringLiterals;

namespace {

constexpr double kCheckShare = 0.26; ///< of the height of page and check
/// Letters that are checked between two passes of the event loop.
constexpr std::size_t kCheckedAtOnce = 200;

} // namespace

void ViewerWindow::startCheck()
{
    m_check = std::make_unique<LetterCheck>(m_letters->renderer, m_services.today());
    m_checkTimer.start(0);
}

void ViewerWindow::checkMore()
{
    if (!m_check || m_check->judge(kCheckedAtOnce)) return;
    showFindings();
}

void ViewerWindow::finishCheck()
{
    // Painting the first page starts the check; start it now if that has not happened yet.
    if (m_page->onFirstPaint) std::exchange(m_page->onFirstPaint, {})();
    if (!m_check) return;
    while (m_check->judge(kCheckedAtOnce)) {
    }
    showFindings();
}

void ViewerWindow::showFindings()
{
    m_checkTimer.stop();
    if (m_check) m_allFindings = m_check->take();
    m_check.reset();
    const CauseSet switchedOff = m_settings.switchedOffCauses();
    m_findings = FindingIndex(resultOf(m_allFindings, m_letters->set.size(), switchedOff));
    m_model.findingsChanged();
    m_checkPanel->show(m_letters.get(), &m_findings, switchedOff);
    const int whole = m_pageSplit->height();
    const int check = m_checkHeight > 0 ? m_checkHeight : static_cast<int>(whole * kCheckShare);
    m_pageSplit->setSizes(m_checkPanel->hasRows() ? QList<int>{std::max(1, whole - check), check} : QList<int>{1, 0});
    if (m_listed.filter() == ListFilter::flagged || !m_listed.isNumberOrder()) refreshList();
}

void ViewerWindow::switchCheck(Cause cause, bool isOn)
{
    CauseSet switchedOff = m_settings.switchedOffCauses();
    switchedOff.set(static_cast<std::size_t>(cause), !isOn);
    m_settings.setSwitchedOffCauses(switchedOff);
    (void)m_settings.save(); // unwritable settings must not interrupt the work
    finishCheck();
    if (m_checkPanel->hasRows()) m_checkHeight = m_pageSplit->sizes()[1];
    showFindings();
}

void ViewerWindow::showNextFlagged(Direction direction)
{
    finishCheck();
    std::vector<bool> flagged(m_letters->set.size());
    for (const Finding &finding : m_findings.all()) flagged[finding.letter] = true;
    const auto letter = nextWanted(m_listed.letters(), m_page->letter(), direction, flagged);
    if (!letter) return statusBar()->showMessage(u"注意のある委任状はありません。"_s);
    showLetter(*letter);
}

} // namespace inin::viewer
