#include "runtime/runtime_error.h"
#include "viewer/window/check_panel.h"
#include "viewer/window/notice_bar.h"
#include "viewer/window/qt_text.h"
#include "viewer/window/task_bar.h"
#include "viewer/window/viewer_window.h"

#include <QStatusBar>

// The window follows its forms while they are edited. The letters stay those that were opened.

namespace inin::viewer {

using namespace Qt::StringLiterals;

namespace {

constexpr int kPause = 1000; ///< milliseconds

} // namespace

void ViewerWindow::followForms()
{
    m_formTimer.setSingleShot(true);
    m_formTimer.setInterval(kPause);
    m_formTimer.callOnTimeout([this] { formChanged(); });
    m_ledgerTimer.setSingleShot(true);
    m_ledgerTimer.setInterval(kPause);
    m_ledgerTimer.callOnTimeout([this] { showLedgerOfForms(); });
    m_formWatch.onChanged = [this](const std::string & /*path*/) { formChanged(); };
}

void ViewerWindow::formChanged()
{
    // A task prints or saves the forms with which it began.
    if (m_task->isRunning()) return m_formTimer.start();
    try {
        m_letters->readFormsAgain();
    } catch (const RuntimeError &error) {
        // The program that saves the form may still keep it from being read.
        m_formTimer.start();
        const QString fault = qtText(error.description()) + u"\n前の帳票をそのまま表示しています。"_s;
        if (std::exchange(m_formFault, fault) == fault) return;
        showNotices();
        return statusBar()->showMessage(u"保存された帳票を読み込めません。前の帳票をそのまま表示しています。"_s);
    }
    m_formTimer.stop();
    m_formFault.clear();
    showForms();
}

/// Shows the letters on changed forms; everything else in the window stays as it is.
void ViewerWindow::showForms()
{
    setWindowTitle(u"%1 － 印刷プレビュー"_s.arg(runTitle()));
    m_page->showForms();
    m_checkPanel->show(m_letters.get(), &m_findings, m_settings.switchedOffCauses());
    // Before the first page is painted, no check runs.
    if (!m_page->onFirstPaint) startCheck();
    m_checkPanel->showRunning();
    m_formWatch.watch(m_letters->set.formFiles);
    showNotices();
    showChanges();
    m_ledgerTimer.start();
    statusBar()->showMessage(u"保存された帳票を読み込みました。"_s);
}

} // namespace inin::viewer
