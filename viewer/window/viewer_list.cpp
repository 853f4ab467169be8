#include "viewer/window/changes_pane.h"
#include "viewer/window/compared_bar.h"
#include "viewer/window/letter_list.h"
#include "viewer/window/range_box.h"
#include "viewer/window/viewer_window.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QStatusBar>
#include <QVBoxLayout>

#include <algorithm>

// The window's list of letters: ticks, search and filter.

namespace inin::viewer {

using namespace Qt::StringLiterals;

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
    m_comparedBar = new ComparedBar(m_desk, side);
    m_comparedBar->onLink = [this](const QString &target) { followLedgerLink(target); };
    m_comparedBar->onRun = [this](const RunSummary &run) { compareWith(run); };
    m_changes = new ChangesPane(side);
    m_listNote = new QLabel(side);
    m_listNote->setObjectName(u"listNote"_s);
    m_listNote->setWordWrap(true);
    m_listNote->hide();
    auto *const layout = new QVBoxLayout(side);
    constexpr int kRoom = 6;
    layout->setContentsMargins(kRoom, kRoom, kRoom, kRoom);
    layout->addLayout(buildFind(side));
    layout->addLayout(buildFilter(side));
    layout->addWidget(m_comparedBar);
    layout->addWidget(m_list, 1);
    layout->addWidget(m_listNote);
    layout->addWidget(m_changes);
    layout->addWidget(m_range);
    return side;
}

void ViewerWindow::step(int by)
{
    const std::vector<std::size_t> listed = m_listed.letters();
    if (listed.empty()) return;
    const auto last = static_cast<std::ptrdiff_t>(listed.size()) - 1;
    const auto place = std::ranges::find(listed, m_page->letter()) - listed.begin();
    showLetter(listed[static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(place + by, 0, last))]);
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
    if (isFiltered || !m_listed.isNumberOrder())
        text += u"印刷するのはチェックした委任状で、順は印刷の設定の「並べ方」のとおりです。"_s;
    m_listNote->setText(text);
    m_listNote->setVisible(!text.isEmpty());
}

} // namespace inin::viewer
