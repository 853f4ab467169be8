#include "viewer/document/field_places.h"
#include "viewer/window/changes_pane.h"
#include "viewer/window/compared_bar.h"
#include "viewer/window/ledger_dialog.h"
#include "viewer/window/letter_list.h"
#include "viewer/window/notice_bar.h"
#include "viewer/window/paper_bar.h"
#include "viewer/window/qt_text.h"
#include "viewer/window/task_bar.h"
#include "viewer/window/viewer_window.h"

#include <QAction>
#include <QComboBox>
#include <QStatusBar>

#include <algorithm>

// The window's part of the letter ledger: what has changed since the last run, the states, and the sheets to confirm.

namespace inin::viewer {

using namespace Qt::StringLiterals;

void ViewerWindow::openLedger()
{
    if (m_ledgerTimer.isActive()) showLedgerOfForms();
    if (m_desk.isOpen() || !m_services.ledgerPath || m_letters->set.isSample) return;
    const LedgerSettings settings = m_settings.ledger();
    m_desk.open(m_services.ledgerPath(settings), settings.months, m_services.now());
    m_desk.show(m_letters->set);
    showLedger();
}

/// Another form makes another run of the letters. While forms are being edited, the ledger is read once they rest.
void ViewerWindow::showLedgerOfForms()
{
    m_ledgerTimer.stop();
    // A task records its letters for the forms with which it began.
    if (m_task->isRunning()) return m_ledgerTimer.start();
    if (!m_desk.isOpen()) return;
    m_desk.show(m_letters->set);
    m_paper->hide();
    showLedger();
}

/// Records the letters before an output. That may succeed for the first time, if the ledger was locked or its disk was full.
void ViewerWindow::startOutput()
{
    openLedger();
    const bool wasUsable = m_desk.isUsable();
    if (m_desk.isOpen() && !wasUsable) m_desk.show(m_letters->set);
    m_desk.startOutput(m_services.now());
    if (m_desk.isUsable() != wasUsable) showLedger();
}

/// Shows everything that the ledger knows of the letters.
void ViewerWindow::showLedger()
{
    m_model.showLedger(m_desk.isUsable() ? &m_desk : nullptr);
    m_list->showStates(m_desk.isUsable());
    for (QAction *const action : m_ledgerActions) action->setEnabled(m_desk.isUsable());
    showLedgerFilters();
    showCodes(CodesFor::screen);
    m_comparedBar->showLines(m_services.now());
    showChanges();
    showStates();
}

void ViewerWindow::showLedgerFilters()
{
    while (m_filter->count() > kFiltersWithoutLedger) m_filter->removeItem(kFiltersWithoutLedger);
    if (m_desk.isUsable()) {
        // In the order of ListFilter.
        m_filter->addItems({u"新しい委任状"_s, u"変わった委任状"_s, u"この期間に印刷済みの人"_s});
        for (const LetterStateWords &state : kLetterStates) m_filter->addItem(QString::fromUtf8(state.text));
    } else if (static_cast<int>(m_listed.filter()) >= kFiltersWithoutLedger) {
        setFilter(ListFilter::all);
    }
}

/// Shows the states after they may have changed, the ledger's notice, and asks for the sheets of a print.
void ViewerWindow::showStates()
{
    m_model.ledgerChanged();
    if (static_cast<int>(m_listed.filter()) >= kFiltersWithoutLedger) refreshList();
    showLedgerNotice();
    askPaper();
}

/// Shows what other windows have recorded meanwhile.
void ViewerWindow::refreshLedger()
{
    if (!m_desk.isUsable() || m_task->isRunning()) return;
    const auto idOf = [](const OpenOutput *print) { return print == nullptr ? OutputId{} : print->id; };
    const OutputId asked = idOf(m_desk.question());
    m_desk.refresh();
    m_model.ledgerChanged();
    // An answer that is being typed stays.
    if (idOf(m_desk.question()) != asked) askPaper();
}

void ViewerWindow::showLedgerNotice()
{
    const QString sentence = qtText(m_desk.notice()); // empty as soon as records succeed again
    if (std::exchange(m_ledgerNotice, sentence) == sentence) return;
    if (m_notice->hasAction() && !sentence.isEmpty()) statusBar()->showMessage(sentence);
    showNotices();
}

/// Shows what has changed in the shown letter, beside it and on its page.
void ViewerWindow::showChanges()
{
    const std::size_t letter = m_page->letter();
    const ChangedLetter *const change = m_desk.changeOf(letter);
    std::vector<std::string> columns;
    QList<QStringList> rows;
    if (change != nullptr)
        for (const ChangedField &field : change->fields) {
            columns.push_back(field.column);
            rows.append({qtText(field.column), qtText(field.before), qtText(field.now)});
        }
    if (change != nullptr || !m_page->marks().empty())
        m_page->setMarks(placesOfColumns(m_letters->renderer, letter, columns));
    // The list needs the room when no letter has anything to show.
    if (m_desk.comparison().changed.empty()) return m_changes->hide();
    const QString words = change != nullptr        ? u"%1番：変わった欄"_s
                          : m_desk.isAdded(letter) ? u"%1番：新しい委任状です。"_s
                                                   : u"%1番：変わっていません。"_s;
    m_changes->showTable(words.arg(letter + 1), {u"欄"_s, u"前の内容"_s, u"今の内容"_s}, rows);
}

/// Lists the letters that the compared run has and this one has not.
void ViewerWindow::showGone()
{
    QList<QStringList> rows;
    for (const std::size_t letter : m_desk.comparison().gone)
        rows.append({QString::number(letter + 1), qtText(m_desk.textBefore(letter, "保険者名")),
                     qtText(m_desk.textBefore(letter, "利用者氏名"))});
    m_changes->showTable(u"なくなった委任状：%1通"_s.arg(rows.size()), {u"前の番号"_s, u"保険者"_s, u"利用者"_s}, rows);
    m_changes->setFocus(Qt::OtherFocusReason);
}

void ViewerWindow::followLedgerLink(const QString &target)
{
    if (target == QLatin1String(kAddedLink)) setFilter(ListFilter::added);
    if (target == QLatin1String(kChangedLink)) {
        setFilter(ListFilter::changed);
        showChanges(); // the shown letter may be one of them: its mark comes into view as well
    }
    if (target == QLatin1String(kPrintedLink)) setFilter(ListFilter::printed);
    if (target == QLatin1String(kGoneLink)) showGone();
    if (target == QLatin1String(kUntickLink)) untickPrinted();
}

void ViewerWindow::compareWith(const RunSummary &run)
{
    m_desk.compareWith(run);
    showLedger();
}

void ViewerWindow::untickPrinted()
{
    std::size_t count = 0;
    for (std::size_t letter = 0; letter < m_letters->set.size(); ++letter) {
        if (!m_desk.isPrintedAlready(letter) || !m_letters->ticks.isTicked(letter)) continue;
        m_letters->ticks.set(letter, false);
        ++count;
    }
    ticksChanged();
    statusBar()->showMessage(u"この期間に印刷済みの人の委任状%1通からチェックを外しました。"_s.arg(count));
}

void ViewerWindow::tickState(LetterState state)
{
    LetterTicks only(m_letters->set.size());
    for (std::size_t letter = 0; letter < only.size(); ++letter) only.set(letter, m_desk.stateOf(letter) == state);
    const QString word = QString::fromUtf8(wordsOf(state).text);
    if (only.count() == 0)
        return statusBar()->showMessage(u"「%1」の委任状がありません。チェックはそのままです。"_s.arg(word));
    m_letters->ticks = only;
    ticksChanged();
    statusBar()->showMessage(u"「%1」の%2通だけにチェックを付けました。"_s.arg(word).arg(only.count()));
}

void ViewerWindow::recordSaved(std::span<const std::size_t> letters)
{
    if (letters.empty()) return;
    startOutput();
    m_desk.record({OutputKind::pdf, {}, {}, {letters.begin(), letters.end()}, m_services.now()});
    showLedgerNotice();
}

/// Asks for the sheets of the print that is not confirmed.
void ViewerWindow::askPaper()
{
    if (m_paper->isOffering()) return; // the next question comes after the answer's effect
    const OpenOutput *const print = m_desk.question();
    if (print == nullptr) return m_paper->hide();
    const auto [least, greatest] = std::ranges::minmax(print->letters);
    m_paper->ask(
        paperQuestion(*print, m_desk.isFromBefore(*print), m_services.now()),
        {static_cast<int>(least) + 1, static_cast<int>(greatest) + 1, static_cast<int>(print->letters.back()) + 1});
}

void ViewerWindow::confirmAll()
{
    const OpenOutput *const print = m_desk.question();
    if (print == nullptr) return;
    const std::size_t count = print->letters.size();
    if (m_desk.ledger().confirmAll(print->id)) statusBar()->showMessage(u"%1通を紙で確認済みにしました。"_s.arg(count));
    m_desk.refresh();
    showStates();
}

void ViewerWindow::confirmUpTo(std::optional<int> lastGood)
{
    const OpenOutput *const print = m_desk.question();
    if (print == nullptr) return;
    const std::vector<std::size_t> letters = print->letters;
    const auto last = lastGood ? std::ranges::find(letters, static_cast<std::size_t>(*lastGood - 1)) : letters.end();
    if (lastGood && last == letters.end())
        return statusBar()->showMessage(u"%1番は、この印刷で送っていません。"_s.arg(*lastGood));
    std::optional<std::vector<std::size_t>> rest;
    if (lastGood)
        rest = m_desk.ledger().confirmUpTo(print->id, *last);
    else if (m_desk.ledger().confirmNone(print->id))
        rest = letters;
    m_desk.refresh();
    showStates();
    if (!rest) return;
    m_rest = *rest;
    const QString done =
        lastGood ? u"%1番までの%2通を紙で確認済みにしました。"_s.arg(*lastGood).arg(letters.size() - rest->size())
                 : u"%1通を未印刷に戻しました。"_s.arg(letters.size());
    if (rest->empty()) return statusBar()->showMessage(done);
    m_paper->showRest(done, u"%1番から印刷(&P)…"_s.arg(rest->front() + 1));
}

void ViewerWindow::printRest()
{
    LetterTicks only(m_letters->set.size());
    only.setAll(false);
    for (const std::size_t letter : m_rest) only.set(letter, true);
    askPrintOnly(only, u"印刷（残りの%1通）"_s.arg(only.count()));
    askPaper();
}

void ViewerWindow::askLedgerSettings()
{
    openLedger();
    LedgerDialog dialog(m_settings.ledger(), this);
    dialog.setPathOf([this](const LedgerSettings &settings) {
        return m_services.ledgerPath ? qtText(m_services.ledgerPath(settings)) : QString();
    });
    dialog.askFolder = [this] { return m_services.askLedgerFolder(this); };
    dialog.onErase = [this] { return eraseLedger(); };
    if (dialog.exec() != QDialog::Accepted) return;
    m_settings.setLedger(dialog.settings());
    if (!m_settings.save()) statusBar()->showMessage(u"設定を保存できません。この画面を閉じるまで有効です。"_s);
    m_desk.close();
    m_model.showLedger(nullptr);
    openLedger();
    showLedger();
}

/// Returns a sentence for the settings; empty if the user declined.
QString ViewerWindow::eraseLedger()
{
    if (!m_services.mayErase(this, u"台帳の記録をすべて消去します。印刷や返送の記録は元に戻せません。消去しますか。"_s))
        return {};
    const bool isErased = m_desk.ledger().erase();
    m_desk.show(m_letters->set);
    showLedger();
    return isErased ? u"消去しました。"_s : u"消去できませんでした。%1"_s.arg(qtText(m_desk.notice()));
}

} // namespace inin::viewer
