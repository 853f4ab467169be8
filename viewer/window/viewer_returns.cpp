#include "viewer/window/returns_window.h"
#include "viewer/window/viewer_window.h"

#include <QStatusBar>

// The window's part of the returns: the codes of the letters, and the window that checks what has come back.

namespace inin::viewer {

using namespace Qt::StringLiterals;

namespace {

/// Shown on the screen until the letters are recorded.
constexpr const char *kNoCodeYet = "000000-0000000-00";

} // namespace

void ViewerWindow::askReturns()
{
    openLedger();
    ReturnsWindow window(m_desk.ledger(), m_services, m_settings, m_desk.mark().period, this);
    window.onReturned = [this] {
        m_desk.refresh();
        showStates();
    };
    window.exec();
}

void ViewerWindow::switchCodes(bool isOn)
{
    m_settings.setPrintsCodes(isOn);
    if (!m_settings.save()) statusBar()->showMessage(u"設定を保存できません。この画面を閉じるまで有効です。"_s);
    if (isOn && !m_letters->renderer.showsCodes())
        statusBar()->showMessage(u"この帳票には、整理番号を印刷する場所がありません。"_s);
    showCodes(CodesFor::screen);
}

/// Gives the letters their codes if the user wants them. Only recorded letters have codes, and no other is put on paper.
void ViewerWindow::showCodes(CodesFor use)
{
    LetterRenderer &renderer = m_letters->renderer;
    if (!renderer.showsCodes()) return;
    std::vector<std::string> codes;
    if (m_settings.printsCodes()) codes = m_desk.codes();
    if (m_settings.printsCodes() && m_desk.isUsable() && use == CodesFor::screen)
        codes.resize(m_letters->set.size(), kNoCodeYet);
    if (codes == renderer.codes()) return;
    renderer.setCodes(std::move(codes));
    m_page->repaintLetter();
}

/// Records the letters before they are printed or saved, which gives them their codes.
void ViewerWindow::recordBeforeOutput()
{
    startOutput();
    showCodes(CodesFor::output);
}

} // namespace inin::viewer
