#include "viewer/window/viewer_window.h"

#include "runtime/runtime_error.h"
#include "viewer/document/row_agreement.h"
#include "viewer/window/check_panel.h"
#include "viewer/window/cut_text.h"
#include "viewer/window/letter_list.h"
#include "viewer/window/notice_bar.h"
#include "viewer/window/qt_text.h"
#include "viewer/window/range_box.h"
#include "viewer/window/screen_fit.h"
#include "viewer/window/task_bar.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QDateTime>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
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
constexpr int kListWidth = 480;
constexpr double kListShare = 0.4;   ///< of a narrower window
constexpr double kCheckShare = 0.26; ///< of the height of page and check
/// Letters that are checked between two passes of the event loop.
constexpr std::size_t kCheckedAtOnce = 200;

} // namespace

ViewerWindow::ViewerWindow(std::string scriptPath, std::unique_ptr<OpenLetters> letters, ViewerServices services)
    : m_scriptPath(std::move(scriptPath)), m_services(std::move(services)), m_settings(m_services.settingsFile)
{
    setObjectName(u"viewerWindow"_s);
    buildMenus();
    m_split = new QSplitter(Qt::Horizontal, this);
    m_split->addWidget(buildList());
    m_split->addWidget(buildPage());
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

void ViewerWindow::fitToScreen()
{
    const QScreen *const there = QGuiApplication::screenAt(geometry().center());
    const QRect room = (there != nullptr ? there : screen())->availableGeometry();
    const WindowFit fit = fitWindow(size(), room.size());
    // The system chooses the place of a first window. A maximised one keeps the size to which it returns.
    if (m_settings.windowPlace().isEmpty())
        resize(fit.size);
    else if (!isMaximized())
        setGeometry(movedInto({geometry().topLeft(), fit.size}, room));
    if (fit.isMaximised) setWindowState(windowState() | Qt::WindowMaximized);
}

void ViewerWindow::restoreLayout()
{
    const ViewLayout layout = m_settings.viewLayout();
    const int usual = std::min(kListWidth, static_cast<int>(width() * kListShare));
    const int list = layout.listWidth > 0 ? layout.listWidth : usual;
    m_split->setSizes({list, std::max(1, width() - list)});
    m_checkHeight = layout.checkHeight;
    bool isFactor = false;
    if (const double factor = layout.zoom.toDouble(&isFactor); isFactor)
        m_page->setZoom(factor);
    else
        m_page->setFit(layout.zoom == u"width"_s ? PageView::Fit::width : PageView::Fit::page);
}

void ViewerWindow::keepLayout()
{
    if (m_checkPanel->hasRows() && m_pageSplit->sizes()[1] > 0) m_checkHeight = m_pageSplit->sizes()[1];
    const PageView::Fit fit = m_page->fit();
    const QString zoom = fit == PageView::Fit::page    ? u"page"_s
                         : fit == PageView::Fit::width ? u"width"_s
                                                       : QString::number(m_page->zoom());
    m_settings.setViewLayout({m_split->sizes()[0], m_checkHeight, zoom});
}

QWidget *ViewerWindow::buildList()
{
    auto *const side = new QWidget(this);
    m_list = new LetterList(m_listed, side);
    m_range = new RangeBox(side);
    m_list->onCurrent = [this](std::size_t letter) { showLetter(letter); };
    m_list->onSorted = [this] { showListNote(); };
    m_list->onEnter = [this] { m_page->setFocus(); };
    m_model.onTicked = [this] { m_range->ticksChanged(); };
    m_range->onChanged = [this] {
        m_model.ticksChanged();
        if (m_listed.filter() == ListFilter::ticked) refreshList();
    };
    m_listNote = new QLabel(side);
    m_listNote->setObjectName(u"listNote"_s);
    m_listNote->setWordWrap(true);
    m_listNote->hide();
    auto *const layout = new QVBoxLayout(side);
    constexpr int kRoom = 6;
    layout->setContentsMargins(kRoom, kRoom, kRoom, kRoom);
    layout->addLayout(buildFind(side));
    layout->addLayout(buildFilter(side));
    layout->addWidget(m_list);
    layout->addWidget(m_listNote);
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
    m_notice->hide();
    if (const QString warnings = warningText(); !warnings.isEmpty()) m_notice->showNotice(warnings, {}, {});
    if (isFirst) return;
    startCheck();
    // Otherwise the list would be empty until then.
    if (m_listed.filter() == ListFilter::flagged) finishCheck();
}

/// "委任状（標準）　300通　11/20 09:30 出力": the time at which the letters were written.
QString ViewerWindow::runTitle() const
{
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
}

void ViewerWindow::step(int by)
{
    const std::vector<std::size_t> listed = m_listed.letters();
    if (listed.empty()) return;
    const auto last = static_cast<std::ptrdiff_t>(listed.size()) - 1;
    const auto place = std::ranges::find(listed, m_page->letter()) - listed.begin();
    showLetter(listed[static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(place + by, 0, last))]);
}

void ViewerWindow::showZoom()
{
    constexpr int kPercent = 100;
    m_zoom->setText(u"%1 %"_s.arg(std::lround(m_page->zoom() * kPercent)));
    m_zoom->setToolTip(m_page->usesWidthForPage() ? u"ページ全体では小さくて読めないため、幅に合わせています。"_s
                                                  : QString());
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

void ViewerWindow::tickFound(Ticking ticking)
{
    const std::vector<bool> found = m_finder->find(m_find->text());
    const auto count = std::ranges::count(found, true);
    if (count == 0) {
        m_find->setFocus(Qt::OtherFocusReason);
        return statusBar()->showMessage(u"検索で見つかった委任状がありません。チェックはそのままです。"_s);
    }
    LetterTicks &ticks = m_letters->ticks;
    if (ticking == Ticking::only) ticks.setAll(false);
    for (std::size_t letter = 0; letter < found.size(); ++letter)
        if (found[letter]) ticks.set(letter, true);
    ticksChanged();
    statusBar()->showMessage((ticking == Ticking::only ? u"見つかった%1通だけにチェックを付けました。"_s
                                                       : u"見つかった%1通にチェックを付けました。"_s)
                                 .arg(count));
}

void ViewerWindow::ticksChanged()
{
    m_model.ticksChanged();
    m_range->ticksChanged();
    if (m_listed.filter() == ListFilter::ticked) refreshList();
}

void ViewerWindow::find(Direction direction)
{
    const std::vector<bool> found = m_finder->find(m_find->text());
    showFound(found, nextWanted(m_listed.letters(), m_page->letter(), direction, found));
}

/// While a text is typed, the current letter stays as long as it contains the text.
void ViewerWindow::findTyped()
{
    const std::size_t now = m_page->letter();
    const std::vector<bool> found = m_finder->find(m_find->text());
    showFound(found, found[now] ? now : nextWanted(m_listed.letters(), now, Direction::forward, found));
}

void ViewerWindow::showFound(const std::vector<bool> &found, std::optional<std::size_t> letter)
{
    const bool isSearch = !searchKey(m_find->text()).isEmpty();
    const auto count = std::ranges::count(found, true);
    m_found->setText(!isSearch ? QString() : count > 0 ? u"%1通"_s.arg(count) : u"ありません"_s);
    m_listed.setFound(isSearch ? found : std::vector<bool>());
    if (m_listed.filter() == ListFilter::found) refreshList();
    if (letter) showLetter(*letter);
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

void ViewerWindow::setFilter(ListFilter filter)
{
    if (filter == ListFilter::flagged) finishCheck();
    m_listed.setFilter(filter);
    refreshList();
}

/// Lists the letters anew. The shown letter stays if it is still listed; otherwise the first listed one is shown.
void ViewerWindow::refreshList()
{
    const std::size_t shown = m_page->letter();
    // Rows that disappear move the view's current row, which must not turn the page.
    const auto onCurrent = std::exchange(m_list->onCurrent, {});
    m_listed.refresh();
    m_list->onCurrent = onCurrent;
    if (m_listed.indexOf(shown).isValid())
        m_list->setCurrent(shown);
    else if (const auto first = m_listed.letterAt(m_listed.index(0, 0)))
        showLetter(*first);
    showListNote();
}

/// Shows the filter, and that neither it nor the sorting changes what is printed.
void ViewerWindow::showListNote()
{
    m_filter->setCurrentIndex(static_cast<int>(m_listed.filter()));
    const bool isFiltered = m_listed.filter() != ListFilter::all;
    QString text = isFiltered ? u"%1通を表示しています。"_s.arg(m_listed.rowCount()) : QString();
    if (isFiltered || !m_listed.isNumberOrder()) text += u"印刷するのはチェックした委任状で、順は番号のとおりです。"_s;
    m_listNote->setText(text);
    m_listNote->setVisible(!text.isEmpty());
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
        auto letters = std::make_unique<OpenLetters>(m_scriptPath);
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
    if (event->type() == QEvent::ActivationChange && isActiveWindow()) m_watch.check();
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
