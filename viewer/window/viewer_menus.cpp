#include "viewer/window/letter_list.h"
#include "viewer/window/page_view.h"
#include "viewer/window/viewer_window.h"

#include <QAction>
#include <QGuiApplication>
#include <QHBoxLayout>
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
        addEntry(menu, "pdf", u"PDF に保存(&S)…"_s, {QKeySequence::Save}, [this] { askPdf(); }),
        addEntry(menu, "reload", u"読み込み直す(&R)"_s, {QKeySequence::Refresh}, [this] { reload(); }),
    };
    menu->addSeparator();
    addEntry(menu, "close", u"閉じる(&C)"_s, {QKeySequence(u"Ctrl+W"_s), QKeySequence(u"Ctrl+Q"_s)},
             [this] { close(); });
}

void ViewerWindow::buildSelectMenu()
{
    QMenu *const menu = menuBar()->addMenu(u"選択(&E)"_s);
    addEntry(menu, "tickAll", u"すべてに印を付ける(&A)"_s, {QKeySequence(u"Ctrl+Shift+A"_s)},
             [this] { tickAll(true); });
    addEntry(menu, "tickNone", u"すべての印を外す(&N)"_s, {QKeySequence(u"Ctrl+Shift+N"_s)},
             [this] { tickAll(false); });
    addEntry(menu, "untickMarked", u"注意のある委任状の印を外す(&M)"_s, {QKeySequence(u"Ctrl+Shift+M"_s)},
             [this] { untickMarked(); });
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
    addEntry(menu, "first", u"最初(&F)"_s, {QKeySequence(u"Ctrl+Home"_s)}, [this] { showLetter(0); });
    addEntry(menu, "previous", u"前(&P)"_s, {QKeySequence(u"Ctrl+PgUp"_s)}, [this] { step(-1); });
    addEntry(menu, "next", u"次(&N)"_s, {QKeySequence(u"Ctrl+PgDown"_s)}, [this] { step(1); });
    addEntry(menu, "last", u"最後(&L)"_s, {QKeySequence(u"Ctrl+End"_s)},
             [this] { showLetter(m_letters->set.size() - 1); });
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
             [this] { m_page->setFit(PageView::Fit::page); });
    addEntry(menu, "fitWidth", u"ページの幅(&W)"_s, {QKeySequence(u"Ctrl+2"_s)},
             [this] { m_page->setFit(PageView::Fit::width); });
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
    QObject::connect(m_number, &QSpinBox::valueChanged, this,
                     [this](int number) { showLetter(static_cast<std::size_t>(number) - 1); });
    m_zoom = new QLabel(tools);
    m_zoom->setObjectName(u"zoom"_s);
    m_zoom->setAlignment(Qt::AlignCenter);
    m_zoom->setMinimumWidth(m_zoom->fontMetrics().horizontalAdvance(u"000 %"_s));
    add({"print", "pdf"});
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
    auto *const row = new QHBoxLayout;
    row->addWidget(m_find, 1);
    row->addWidget(m_found);
    return row;
}

} // namespace inin::viewer
