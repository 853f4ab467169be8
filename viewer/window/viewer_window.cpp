#include "viewer/window/viewer_window.h"

#include "runtime/runtime_error.h"
#include "viewer/document/letter_opener.h"
#include "viewer/document/row_agreement.h"
#include "viewer/window/check_panel.h"
#include "viewer/window/cut_text.h"
#include "viewer/window/letter_list.h"
#include "viewer/window/notice_bar.h"
#include "viewer/window/paper_bar.h"
#include "viewer/window/qt_text.h"
#include "viewer/window/range_box.h"
#include "viewer/window/task_bar.h"

#include <QCloseEvent>
#include <QDateTime>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QSplitter>
#include <QStatusBar>
#include <QVBoxLayout>
#include <QWindow>

#include <algorithm>
#include <cmath>

namespace inin::viewer {

using namespace Qt::StringLiterals;

namespace {

constexpr int kFirstWidth = 1200, kFirstHeight = 820;

} // namespace

ViewerWindow::ViewerWindow(std::string path, std::unique_ptr<OpenLetters> letters, ViewerServices services)
    : m_path(std::move(path)), m_services(std::move(services)), m_settings(m_services.settingsFile)
{
    setObjectName(u"viewerWindow"_s);
    buildMenus();
    m_split = new QSplitter(Qt::Horizontal, this);
    m_split->addWidget(buildList());
    m_split->addWidget(buildPage());
    buildLedgerMenu();
    buildHelpMenu();
    m_split->setStretchFactor(1, 1);
    m_split->setChildrenCollapsible(false);
    setCentralWidget(m_split);
    buildTools();
    setStatusBar(new StatusLine(this));
    statusBar()->setObjectName(u"status"_s);
    resize(kFirstWidth, kFirstHeight);
    restoreGeometry(m_settings.windowPlace());
    fitToScreen();
    restoreLayout();
    m_checkTimer.callOnTimeout([this] { checkMore(); });
    m_watch.onChanged = [this](const std::string &file) { fileChanged(file); };
    followForms();
    m_page->onFirstPaint = [this] {
        startCheck();
        QTimer::singleShot(0, this, [this] { openLedger(); });
    };
    adopt(std::move(letters));
    m_list->setFocus();
}

ViewerWindow::~ViewerWindow()
{
    // A box that loses the focus evaluates its text: make it do so while the letters still exist.
    if (QWidget *const box = focusWidget()) box->clearFocus();
}

QWidget *ViewerWindow::buildPage()
{
    auto *const side = new QWidget(this);
    m_notice = new NoticeBar(side);
    m_paper = new PaperBar(side);
    m_paper->onAllOut = [this] { confirmAll(); };
    m_paper->onOutUpTo = [this](std::optional<int> lastGood) { confirmUpTo(lastGood); };
    m_paper->onPrintRest = [this] { printRest(); };
    m_paper->onClose = [this] { askPaper(); };
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
    layout->addWidget(m_paper);
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
    if (!isFirst && m_checkPanel->hasRows()) m_checkHeight = m_pageSplit->sizes()[1];
    m_allFindings.clear();
    m_findings = {};
    setWindowTitle(u"%1 － 印刷プレビュー"_s.arg(runTitle()));
    m_model.showLetters(m_letters.get(), &m_findings);
    m_page->showLetters(m_letters.get());
    m_range->showTicks(&m_letters->ticks);
    m_checkPanel->show(m_letters.get(), &m_findings, m_settings.switchedOffCauses());
    m_checkPanel->showRunning();
    const int count = static_cast<int>(m_letters->set.size());
    const QSignalBlocker quiet(m_number); // the list does not show the new letters yet
    m_number->setRange(1, count);
    m_number->setSuffix(u" ／ %1"_s.arg(count));
    showFound(m_finder->find(m_find->text()), std::nullopt);
    refreshList();
    m_number->setValue(static_cast<int>(m_page->letter()) + 1);
    m_watch.watch(m_letters->set.letterFiles);
    m_formWatch.watch(m_letters->set.formFiles);
    m_formTimer.stop();
    m_ledgerTimer.stop();
    m_formFault.clear();
    m_ledgerNotice.clear();
    m_notice->clear();
    showNotices();
    if (isFirst) return;
    if (m_desk.isOpen()) m_desk.show(m_letters->set);
    m_paper->hide(); // its rest has the numbers of the old letters
    showLedger();
    startCheck();
    // Otherwise the list would be empty until then.
    if (m_listed.filter() == ListFilter::flagged) finishCheck();
}

/// "委任状（標準）　300通　11/20 09:30 出力": the time at which the letters were written.
QString ViewerWindow::runTitle() const
{
    if (m_letters->set.isSample) return qtText(m_letters->set.runTitle()) + u"　見本のデータ"_s;
    constexpr std::int64_t kNanosecondsPerMillisecond = 1'000'000;
    const FileStamp stamp = m_letters->set.letterFiles.front().stamp;
    const QDateTime written = QDateTime::fromMSecsSinceEpoch(stamp.changed / kNanosecondsPerMillisecond);
    return u"%1　%2 出力"_s.arg(qtText(m_letters->set.runTitle()), written.toString(u"M/d HH:mm"_s));
}

QString ViewerWindow::warningText() const
{
    QStringList lines;
    for (const std::string &warning : m_letters->set.warnings) lines << qtText(warning);
    return lines.join(u'\n');
}

void ViewerWindow::showNotices()
{
    if (m_notice->hasAction()) return;
    QStringList texts{warningText(), m_formFault, m_ledgerNotice};
    texts.removeAll(QString());
    const QString text = texts.join(u'\n');
    if (text == m_notice->text()) return; // which the user may have closed
    text.isEmpty() ? m_notice->clear() : m_notice->showNotice(text, {}, {});
}

void ViewerWindow::start()
{
    const Ending ending = m_letters->set.ending;
    if (ending != Ending::print && ending != Ending::printByDialog) return;
    // With warnings the window stays open until the user has seen them.
    m_closesWhenPrinted = m_letters->set.warnings.empty();
    whenPlaced([this, ending] {
        if (ending == Ending::printByDialog) return askPrint();
        const PrintOrder order = printDialog(m_letters->ticks)->order();
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
    // List, page and number agree: a letter that the list hides makes it show all letters.
    if (!m_listed.indexOf(letter).isValid()) {
        m_listed.setFilter(ListFilter::all);
        m_listed.refresh();
    }
    if (m_list->current() != letter) m_list->setCurrent(letter);
    showListNote();
    m_number->setValue(static_cast<int>(letter) + 1);
    showChanges();
}

void ViewerWindow::showZoom()
{
    constexpr int kPercent = 100;
    m_zoom->setText(u"%1 %"_s.arg(std::lround(m_page->zoom() * kPercent)));
    m_zoom->setToolTip(m_page->usesWidthForPage() ? u"ページ全体では小さくて読めないため、幅に合わせています。"_s
                                                  : QString());
}

void ViewerWindow::fitPage(PageView::Fit fit)
{
    m_page->setFit(fit);
    if (m_page->usesWidthForPage()) statusBar()->showMessage(m_zoom->toolTip());
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
        auto letters = std::make_unique<OpenLetters>(m_letters->set.isSample ? openForm(m_path) : openScript(m_path));
        const KeptView kept = keptView(m_letters->set, m_letters->ticks, m_page->letter(), letters->set);
        letters->ticks = kept.ticks;
        adopt(std::move(letters));
        showLetter(kept.letter);
        statusBar()->showMessage(
            kept.newLetters == 0
                ? u"再読み込みしました。チェックは前のままです。"_s
                : u"再読み込みしました。新しい、または内容の変わった%1通にはチェックが付いています。ほかは前のままです。"_s
                      .arg(kept.newLetters));
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
    if (event->type() != QEvent::ActivationChange || !isActiveWindow()) return;
    m_watch.check();
    refreshLedger();
}

void ViewerWindow::closeEvent(QCloseEvent *event)
{
    if (!m_task->isRunning()) {
        m_settings.setWindowPlace(saveGeometry());
        keepLayout();
        // A layout that cannot be saved must not prevent closing.
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
