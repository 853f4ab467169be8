#include "viewer/window/viewer_window.h"

#include "runtime/runtime_error.h"
#include "viewer/window/check_panel.h"
#include "viewer/window/letter_list.h"
#include "viewer/window/notice_bar.h"
#include "viewer/window/page_view.h"
#include "viewer/window/qt_text.h"
#include "viewer/window/range_box.h"
#include "viewer/window/task_bar.h"

#include <QCloseEvent>
#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>
#include <QSplitter>
#include <QStatusBar>
#include <QVBoxLayout>
#include <QWindow>

#include <cmath>

namespace inin::viewer {

using namespace Qt::StringLiterals;

namespace {

constexpr int kFirstWidth = 1200, kFirstHeight = 820;
constexpr int kListWidth = 480, kPageWidth = 720;
constexpr int kPageShare = 560, kCheckShare = 200;
/// Letters that are checked between two passes of the event loop.
constexpr std::size_t kCheckedAtOnce = 200;

} // namespace

ViewerWindow::ViewerWindow(std::string scriptPath, std::unique_ptr<OpenLetters> letters, ViewerServices services)
    : m_scriptPath(std::move(scriptPath)), m_services(std::move(services)), m_settings(m_services.settingsFile)
{
    setObjectName(u"viewerWindow"_s);
    buildMenus();
    auto *const split = new QSplitter(Qt::Horizontal, this);
    split->addWidget(buildList());
    split->addWidget(buildPage());
    split->setStretchFactor(1, 1);
    split->setSizes({kListWidth, kPageWidth});
    split->setChildrenCollapsible(false);
    setCentralWidget(split);
    buildTools();
    statusBar()->setObjectName(u"status"_s);
    resize(kFirstWidth, kFirstHeight);
    restoreGeometry(m_settings.windowPlace());
    m_checkTimer.callOnTimeout([this] { checkMore(); });
    m_watch.onChanged = [this](const std::string &path) { fileChanged(path); };
    m_page->onFirstPaint = [this] { startCheck(); };
    adopt(std::move(letters));
    m_list->setFocus();
}

ViewerWindow::~ViewerWindow()
{
    // A box that loses the focus evaluates its text: make it do so while the letters still exist.
    if (QWidget *const box = focusWidget()) box->clearFocus();
}

QWidget *ViewerWindow::buildList()
{
    auto *const side = new QWidget(this);
    m_list = new LetterList(m_model, side);
    m_range = new RangeBox(side);
    m_list->onCurrent = [this](std::size_t letter) { showLetter(letter); };
    m_list->onEnter = [this] { m_page->setFocus(); };
    m_model.onTicked = [this] { m_range->ticksChanged(); };
    m_range->onChanged = [this] { m_model.ticksChanged(); };
    auto *const layout = new QVBoxLayout(side);
    constexpr int kRoom = 6;
    layout->setContentsMargins(kRoom, kRoom, kRoom, kRoom);
    layout->addLayout(buildFind(side));
    layout->addWidget(m_list);
    layout->addWidget(m_range);
    return side;
}

QWidget *ViewerWindow::buildPage()
{
    auto *const side = new QWidget(this);
    m_notice = new NoticeBar(side);
    m_pageSplit = new QSplitter(Qt::Vertical, side);
    m_page = new PageView(m_pageSplit);
    m_checkPanel = new CheckPanel(m_pageSplit);
    m_task = new TaskBar(side);
    m_pageSplit->addWidget(m_page);
    m_pageSplit->addWidget(m_checkPanel);
    m_pageSplit->setStretchFactor(0, 1);
    m_pageSplit->setChildrenCollapsible(false);
    m_page->onZoom = [this] { showZoom(); };
    m_page->onTurn = [this](int by) { step(by); };
    m_checkPanel->onLetter = [this](std::size_t letter) { showLetter(letter); };
    m_checkPanel->onSwitched = [this](Cause cause, bool isOn) { switchCheck(cause, isOn); };
    m_task->onRunningChanged = [this] {
        for (QAction *action : m_idleActions) action->setEnabled(!m_task->isRunning());
    };
    auto *const layout = new QVBoxLayout(side);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_notice);
    layout->addWidget(m_pageSplit, 1);
    layout->addWidget(m_task);
    return side;
}

/// Replaces the letters in the window.
void ViewerWindow::adopt(std::unique_ptr<OpenLetters> letters)
{
    const bool isFirst = !m_letters;
    // The old letters are released once no widget shows them.
    const std::unique_ptr<OpenLetters> old = std::exchange(m_letters, std::move(letters));
    const std::unique_ptr<LetterFinder> oldFinder = std::exchange(m_finder, std::make_unique<LetterFinder>(*m_letters));
    m_checkTimer.stop();
    m_check.reset();
    m_allFindings.clear();
    m_findings = {};
    setWindowTitle(u"%1 － 印刷プレビュー"_s.arg(qtText(m_letters->set.shownTitle())));
    m_model.showLetters(m_letters.get(), &m_findings);
    m_page->showLetters(m_letters.get());
    m_range->showTicks(&m_letters->ticks);
    m_checkPanel->show(m_letters.get(), &m_findings, m_settings.switchedOffCauses());
    m_checkPanel->showRunning();
    const int count = static_cast<int>(m_letters->set.size());
    m_number->setRange(1, count);
    m_number->setSuffix(u" ／ %1"_s.arg(count));
    m_found->clear();
    m_list->setCurrent(0);
    m_number->setValue(1);
    m_watch.watch(m_letters->set.letterFiles);
    m_notice->hide();
    if (const QString warnings = warningText(); !warnings.isEmpty()) m_notice->showNotice(warnings, {}, {});
    if (!isFirst) startCheck();
}

QString ViewerWindow::warningText() const
{
    QStringList lines;
    for (const std::string &warning : m_letters->set.warnings) lines << qtText(warning);
    return lines.join(u'\n');
}

void ViewerWindow::start()
{
    const Ending ending = m_letters->set.ending;
    if (ending != Ending::print && ending != Ending::printByDialog) return;
    // With warnings the window stays open until the user has seen them.
    m_closesWhenPrinted = m_letters->set.warnings.empty();
    whenPlaced([this, ending] {
        if (ending == Ending::printByDialog) return askPrint();
        const PrintOrder order = printDialog()->order();
        print(order);
    });
}

/// Runs `what` once the system has placed the window: a dialog that opens earlier appears in the wrong place. After a
/// while it runs anyway, for a window on another desktop may never become visible.
void ViewerWindow::whenPlaced(std::function<void()> what)
{
    constexpr int kCheckEvery = 10, kMaxChecks = 100;
    auto *const timer = new QTimer(this); // owned by the window until it has finished
    timer->callOnTimeout([this, timer, what = std::move(what), checks = 0]() mutable {
        const bool isSeen = windowHandle() != nullptr && windowHandle()->isExposed();
        if (!isSeen && ++checks < kMaxChecks) return timer->start(kCheckEvery);
        timer->stop();
        timer->deleteLater();
        what();
    });
    timer->start(0);
}

void ViewerWindow::showLetter(std::size_t letter)
{
    if (letter >= m_letters->set.size()) return;
    m_page->showLetter(letter);
    if (m_list->current() != letter) m_list->setCurrent(letter);
    m_number->setValue(static_cast<int>(letter) + 1);
}

void ViewerWindow::step(int by)
{
    const auto last = static_cast<std::ptrdiff_t>(m_letters->set.size()) - 1;
    const auto wanted = static_cast<std::ptrdiff_t>(m_page->letter()) + by;
    showLetter(static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(wanted, 0, last)));
}

void ViewerWindow::showZoom()
{
    constexpr int kPercent = 100;
    m_zoom->setText(u"%1 %"_s.arg(std::lround(m_page->zoom() * kPercent)));
}

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
    m_pageSplit->setSizes(m_checkPanel->hasRows() ? QList<int>{kPageShare, kCheckShare} : QList<int>{1, 0});
}

void ViewerWindow::switchCheck(Cause cause, bool isOn)
{
    CauseSet switchedOff = m_settings.switchedOffCauses();
    switchedOff.set(static_cast<std::size_t>(cause), !isOn);
    m_settings.setSwitchedOffCauses(switchedOff);
    (void)m_settings.save(); // unwritable settings must not interrupt the work
    finishCheck();
    showFindings();
}

void ViewerWindow::tickAll(bool ticked)
{
    m_letters->ticks.setAll(ticked);
    ticksChanged();
}

void ViewerWindow::untickMarked()
{
    finishCheck();
    for (const Finding &finding : m_findings.all()) m_letters->ticks.set(finding.letter, false);
    ticksChanged();
}

void ViewerWindow::ticksChanged()
{
    m_model.ticksChanged();
    m_range->ticksChanged();
}

void ViewerWindow::find(Direction direction)
{
    showFound(m_finder->next(m_find->text(), m_page->letter(), direction));
}

/// While a text is typed, the current letter stays as long as it contains the text.
void ViewerWindow::findTyped()
{
    const std::size_t now = m_page->letter();
    showFound(m_finder->holds(now, m_find->text()) ? now : m_finder->next(m_find->text(), now, Direction::forward));
}

void ViewerWindow::showFound(std::optional<std::size_t> letter)
{
    const QString text = m_find->text();
    m_found->setText(searchKey(text).isEmpty() ? QString()
                     : letter                  ? u"%1通"_s.arg(m_finder->count(text))
                                               : u"ありません"_s);
    if (letter) showLetter(*letter);
}

void ViewerWindow::fileChanged(const std::string &path)
{
    const std::string name = path.substr(path.find_last_of("/\\") + 1);
    m_notice->showNotice(
        u"「%1」が書き換えられました。いま表示しているのは、開いたときの内容です。"_s.arg(qtText(name)),
        u"新しい内容を読み込む(&L)"_s, [this] { reload(); });
}

void ViewerWindow::reload()
{
    // Keep the notice for later.
    if (m_task->isRunning()) return statusBar()->showMessage(u"終わってから読み込んでください。"_s);
    try {
        adopt(std::make_unique<OpenLetters>(m_scriptPath));
        statusBar()->showMessage(u"読み込み直しました。すべての委任状に印が付いています。"_s);
    } catch (const RuntimeError &error) {
        showMessage(QMessageBox::Warning, qtText(error.description()) + u"\n前の内容をそのまま表示しています。"_s);
    }
}

void ViewerWindow::showMessage(QMessageBox::Icon icon, const QString &text)
{
    if (m_services.showMessage) m_services.showMessage(this, icon, text);
}

void ViewerWindow::changeEvent(QEvent *event)
{
    QMainWindow::changeEvent(event);
    // Detect a changed file as soon as the user returns to the window.
    if (event->type() == QEvent::ActivationChange && isActiveWindow()) m_watch.check();
}

void ViewerWindow::closeEvent(QCloseEvent *event)
{
    if (!m_task->isRunning()) {
        m_settings.setWindowPlace(saveGeometry());
        // A window position that cannot be saved must not prevent closing.
        (void)m_settings.save();
        event->accept();
        return;
    }
    event->ignore();
    if (m_isAsking) return;
    m_isAsking = true;
    const CloseAnswer answer = m_services.askClose(this, m_taskState);
    m_isAsking = false;
    m_closesAfterTask = answer != CloseAnswer::keepPrinting;
    if (answer == CloseAnswer::cancelAndClose) m_task->cancel();
}

} // namespace inin::viewer
