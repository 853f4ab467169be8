#include "system/program_version.h"
#include "viewer/window/compared_bar.h"
#include "viewer/window/help_window.h"
#include "viewer/window/letter_list.h"
#include "viewer/window/qt_text.h"
#include "viewer/window/viewer_window.h"

#include <QAction>
#include <QComboBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QSpinBox>
#include <QToolBar>

#include <functional>

// The window's menus, keys and tool bar.

namespace inin::viewer {

using namespace Qt::StringLiterals;

namespace {

/// Adds an entry with its keys; the menu shows the first one.
QAction *addEntry(QMenu *menu, const char *name, const QString &text, const QList<QKeySequence> &keys,
                  std::function<void()> what)
{
    QAction *const action = menu->addAction(text);
    action->setObjectName(QLatin1String(name));
    action->setShortcuts(keys);
    // Tool buttons omit the menu's access key, which has no effect there.
    action->setIconText(text.section(u"(&"_s, 0, 0));
    if (!keys.empty())
        action->setToolTip(u"%1（%2）"_s.arg(action->iconText(), keys.front().toString(QKeySequence::NativeText)));
    QObject::connect(action, &QAction::triggered, menu, [what = std::move(what)] { what(); });
    return action;
}

/// Leaves Ctrl+Home and Ctrl+End to the menu while a box of one line has the focus, which would take them for itself.
class LetterKeys : public QObject {
public:
    using QObject::QObject;
    bool eventFilter(QObject *box, QEvent *event) override
    {
        if (event->type() != QEvent::ShortcutOverride) return QObject::eventFilter(box, event);
        const auto *const key = dynamic_cast<QKeyEvent *>(event);
        const bool isLetterKey =
            key->modifiers() == Qt::ControlModifier && (key->key() == Qt::Key_Home || key->key() == Qt::Key_End);
        if (isLetterKey) event->ignore();
        return isLetterKey;
    }
};

} // namespace

void ViewerWindow::buildMenus()
{
    buildFileMenu();
    buildSelectMenu();
    buildMoveMenu();
    buildViewMenu();
}

void ViewerWindow::buildFileMenu()
{
    QMenu *const menu = menuBar()->addMenu(u"ファイル(&F)"_s);
    m_idleActions = {
        addEntry(menu, "print", u"印刷(&P)…"_s, {QKeySequence::Print}, [this] { askPrint(); }),
        addEntry(menu, "printThis", u"この委任状だけ印刷(&T)…"_s, {QKeySequence(u"Ctrl+Shift+P"_s)},
                 [this] { askPrintThis(); }),
        addEntry(menu, "pdf", u"PDF に保存(&S)…"_s, {QKeySequence::Save}, [this] { askPdf(); }),
        addEntry(menu, "reload", u"再読み込み(&R)"_s, {QKeySequence::Refresh}, [this] { reload(); }),
    };
    menu->addSeparator();
    addEntry(menu, "close", u"閉じる(&C)"_s, {QKeySequence(u"Ctrl+W"_s), QKeySequence(u"Ctrl+Q"_s)},
             [this] { close(); });
}

void ViewerWindow::buildSelectMenu()
{
    QMenu *const menu = menuBar()->addMenu(u"選択(&E)"_s);
    addEntry(menu, "tickAll", u"すべてにチェックを付ける(&A)"_s, {QKeySequence(u"Ctrl+Shift+A"_s)},
             [this] { tickAll(true); });
    addEntry(menu, "tickNone", u"すべてのチェックを外す(&N)"_s, {QKeySequence(u"Ctrl+Shift+N"_s)},
             [this] { tickAll(false); });
    addEntry(menu, "untickMarked", u"注意のある委任状のチェックを外す(&M)"_s, {QKeySequence(u"Ctrl+Shift+M"_s)},
             [this] { untickMarked(); });
    addEntry(menu, "tickFound", u"見つかった委任状にチェックを付ける(&D)"_s, {QKeySequence(u"Ctrl+Shift+F"_s)},
             [this] { tickFound(Ticking::more); });
    addEntry(menu, "tickOnlyFound", u"見つかった委任状だけにチェックを付ける(&O)"_s, {QKeySequence(u"Ctrl+Shift+O"_s)},
             [this] { tickFound(Ticking::only); });
    menu->addSeparator();
    addEntry(menu, "find", u"検索(&F)"_s, {QKeySequence::Find}, [this] {
        m_find->setFocus(Qt::ShortcutFocusReason);
        m_find->selectAll();
    });
    addEntry(menu, "findNext", u"次を検索(&X)"_s, {QKeySequence(u"F3"_s)}, [this] { find(Direction::forward); });
    addEntry(menu, "findPrevious", u"前を検索(&V)"_s, {QKeySequence(u"Shift+F3"_s)},
             [this] { find(Direction::backward); });
}

void ViewerWindow::buildMoveMenu()
{
    QMenu *const menu = menuBar()->addMenu(u"移動(&G)"_s);
    addEntry(menu, "first", u"最初(&F)"_s, {QKeySequence(u"Ctrl+Home"_s)},
             [this] { step(-static_cast<int>(m_letters->set.size())); });
    addEntry(menu, "previous", u"前(&P)"_s, {QKeySequence(u"Ctrl+PgUp"_s)}, [this] { step(-1); });
    addEntry(menu, "next", u"次(&N)"_s, {QKeySequence(u"Ctrl+PgDown"_s)}, [this] { step(1); });
    addEntry(menu, "last", u"最後(&L)"_s, {QKeySequence(u"Ctrl+End"_s)},
             [this] { step(static_cast<int>(m_letters->set.size())); });
    menu->addSeparator();
    addEntry(menu, "nextFlagged", u"次の注意のある委任状(&M)"_s, {QKeySequence(u"F8"_s)},
             [this] { showNextFlagged(Direction::forward); });
    addEntry(menu, "previousFlagged", u"前の注意のある委任状(&A)"_s, {QKeySequence(u"Shift+F8"_s)},
             [this] { showNextFlagged(Direction::backward); });
    menu->addSeparator();
    addEntry(menu, "goTo", u"番号へ移動(&G)"_s, {QKeySequence(u"Ctrl+G"_s)}, [this] {
        m_number->setFocus(Qt::ShortcutFocusReason);
        m_number->selectAll();
    });
    addEntry(menu, "goList", u"一覧とページを行き来する(&I)"_s, {QKeySequence(u"F6"_s)}, [this] {
        if (m_list->hasFocus())
            m_page->setFocus(Qt::ShortcutFocusReason);
        else
            m_list->setFocus(Qt::ShortcutFocusReason);
    });
}

void ViewerWindow::buildViewMenu()
{
    QMenu *const menu = menuBar()->addMenu(u"表示(&V)"_s);
    addEntry(menu, "zoomIn", u"拡大(&I)"_s,
             {QKeySequence(u"Ctrl++"_s), QKeySequence(u"Ctrl+;"_s), QKeySequence(u"Ctrl+="_s)},
             [this] { m_page->zoomIn(); });
    addEntry(menu, "zoomOut", u"縮小(&O)"_s, {QKeySequence(u"Ctrl+-"_s)}, [this] { m_page->zoomOut(); });
    addEntry(menu, "zoomWhole", u"実際の大きさ(&1)"_s, {QKeySequence(u"Ctrl+1"_s)}, [this] { m_page->setZoom(1); });
    addEntry(menu, "fitPage", u"ページ全体(&P)"_s, {QKeySequence(u"Ctrl+0"_s)},
             [this] { fitPage(PageView::Fit::page); });
    addEntry(menu, "fitWidth", u"ページの幅(&W)"_s, {QKeySequence(u"Ctrl+2"_s)},
             [this] { fitPage(PageView::Fit::width); });
    menu->addSeparator();
    addEntry(menu, "goFilter", u"表示する委任状を選ぶ(&K)"_s, {QKeySequence(u"Ctrl+L"_s)},
             [this] { m_filter->setFocus(Qt::ShortcutFocusReason); });
    buildSortMenu(menu->addMenu(u"並べ替え（表示だけ）(&S)"_s));
}

void ViewerWindow::buildSortMenu(QMenu *menu)
{
    struct SortEntry {
        const char *name, *text;
        LetterListModel::Column column;
    };
    constexpr SortEntry kEntries[] = {{"sortNumber", "番号の順(&N)", LetterListModel::number},
                                      {"sortInsurer", "保険者の順(&H)", LetterListModel::insurer},
                                      {"sortPatient", "利用者の順(&P)", LetterListModel::patient},
                                      {"sortMarks", "注意のあるものから(&M)", LetterListModel::marks}};
    for (const SortEntry &entry : kEntries)
        addEntry(menu, entry.name, QString::fromUtf8(entry.text), {},
                 [this, column = entry.column] { m_list->sortByColumn(column, Qt::AscendingOrder); });
    m_ledgerActions.push_back(addEntry(menu, "sortState", u"状態の順(&T)"_s, {},
                                       [this] { m_list->sortByColumn(LetterListModel::state, Qt::AscendingOrder); }));
}

void ViewerWindow::buildLedgerMenu()
{
    struct StateEntry {
        const char *name, *text;
        LetterState state;
    };
    constexpr StateEntry kEntries[] = {{"tickUnprinted", "未印刷だけ(&N)", LetterState::unprinted},
                                       {"tickSent", "送信済みだけ(&S)", LetterState::sent},
                                       {"tickOnPaper", "紙で確認済みだけ(&P)", LetterState::onPaper},
                                       {"tickReturned", "返送済みだけ(&R)", LetterState::returned}};
    QMenu *const menu = menuBar()->addMenu(u"台帳(&D)"_s);
    menu->addMenu(m_comparedBar->runMenu());
    QMenu *const states = menu->addMenu(u"状態でチェックを付ける(&T)"_s);
    for (const StateEntry &entry : kEntries)
        m_ledgerActions.push_back(addEntry(states, entry.name, QString::fromUtf8(entry.text), {},
                                           [this, state = entry.state] { tickState(state); }));
    m_ledgerActions.push_back(addEntry(menu, "untickPrinted", u"この期間に印刷済みの人のチェックを外す(&U)"_s, {},
                                       [this] { untickPrinted(); }));
    menu->addSeparator();
    m_ledgerActions.push_back(
        addEntry(menu, "returns", u"返送の確認(&H)…"_s, {QKeySequence(u"Ctrl+H"_s)}, [this] { askReturns(); }));
    QAction *const codes = menu->addAction(u"整理番号と QR コードを印刷する(&Q)"_s);
    codes->setObjectName(u"printCodes"_s);
    codes->setCheckable(true);
    codes->setChecked(m_settings.printsCodes());
    QObject::connect(codes, &QAction::toggled, this, [this](bool isOn) { switchCodes(isOn); });
    m_ledgerActions.push_back(codes);
    for (QAction *const action : m_ledgerActions) action->setEnabled(false); // until the ledger is open
    addEntry(menu, "ledgerSettings", u"台帳の設定(&L)…"_s, {}, [this] { askLedgerSettings(); });
}

void ViewerWindow::buildHelpMenu()
{
    QMenu *const menu = menuBar()->addMenu(u"ヘルプ(&H)"_s);
    addEntry(menu, "help", u"利用者の手引き(&M)"_s, {QKeySequence::HelpContents},
             [this] { showHelp(focusWidget() != nullptr ? focusWidget() : this); });
    addEntry(menu, "version", u"バージョン情報(&V)"_s, {},
             [this] { showMessage(QMessageBox::Information, u"form viewer "_s + qtText(programVersion())); });
}

void ViewerWindow::buildTools()
{
    QToolBar *const tools = addToolBar(u"ツール"_s);
    tools->setObjectName(u"tools"_s);
    tools->setMovable(false);
    tools->setToolButtonStyle(Qt::ToolButtonTextOnly);
    const auto add = [&](std::initializer_list<const char *> names) {
        for (const char *name : names) tools->addAction(findChild<QAction *>(QLatin1String(name)));
    };
    m_number = new QSpinBox(tools);
    m_number->setObjectName(u"number"_s);
    m_number->setAccessibleName(u"表示する委任状の番号"_s);
    m_number->setKeyboardTracking(false);
    m_number->installEventFilter(new LetterKeys(m_number));
    QObject::connect(m_number, &QSpinBox::valueChanged, this,
                     [this](int number) { showLetter(static_cast<std::size_t>(number) - 1); });
    m_zoom = new QLabel(tools);
    m_zoom->setObjectName(u"zoom"_s);
    m_zoom->setAlignment(Qt::AlignCenter);
    m_zoom->setMinimumWidth(m_zoom->fontMetrics().horizontalAdvance(u"000 %"_s));
    add({"print", "printThis", "pdf"});
    tools->addSeparator();
    add({"first", "previous"});
    tools->addWidget(m_number);
    add({"next", "last"});
    tools->addSeparator();
    add({"zoomOut"});
    tools->addWidget(m_zoom);
    add({"zoomIn", "fitPage", "fitWidth"});
}

QLayout *ViewerWindow::buildFind(QWidget *side)
{
    m_find = new QLineEdit(side);
    m_find->setObjectName(u"find"_s);
    m_find->setAccessibleName(u"検索する名前など"_s);
    m_find->setPlaceholderText(u"名前などで検索"_s);
    m_find->setClearButtonEnabled(true);
    m_found = new QLabel(side);
    m_found->setObjectName(u"found"_s);
    QObject::connect(m_find, &QLineEdit::textEdited, this, [this] { findTyped(); });
    QObject::connect(m_find, &QLineEdit::returnPressed, this, [this] {
        const bool back = QGuiApplication::keyboardModifiers().testFlag(Qt::ShiftModifier);
        find(back ? Direction::backward : Direction::forward);
    });
    m_find->installEventFilter(new LetterKeys(m_find));
    auto *const row = new QHBoxLayout;
    row->addWidget(m_find, 1);
    row->addWidget(m_found);
    return row;
}

QLayout *ViewerWindow::buildFilter(QWidget *side)
{
    m_filter = new QComboBox(side);
    m_filter->setObjectName(u"filter"_s);
    m_filter->setAccessibleName(u"表示する委任状"_s);
    // In the order of ListFilter.
    m_filter->addItems({u"すべて"_s, u"注意のある委任状"_s, u"チェックした委任状"_s, u"検索で見つかった委任状"_s});
    QObject::connect(m_filter, &QComboBox::activated, this,
                     [this](int index) { setFilter(static_cast<ListFilter>(index)); });
    auto *const label = new QLabel(u"表示する委任状(&K)"_s, side);
    label->setBuddy(m_filter);
    auto *const row = new QHBoxLayout;
    row->addWidget(label);
    row->addWidget(m_filter, 1);
    return row;
}

} // namespace inin::viewer
