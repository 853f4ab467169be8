#include "viewer/window/window_world.h"

#include "viewer/window/range_box.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>
#include <QTableView>
#include <QTest>
#include <QWindow>
#include <doctest/doctest.h>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

struct Shown : WindowWorld {
    explicit Shown(int count) : WindowWorld(differentRows(count)) { openWindow(); }

    [[nodiscard]] std::string letter() const
    {
        return find<QWidget>("pageView")->accessibleDescription().section(u'番', 0, 0).toStdString();
    }
    void act(const char *name) const { find<QAction>(name)->trigger(); }
    [[nodiscard]] std::string box() const { return find<QLineEdit>("rangeBox")->text().toStdString(); }
    [[nodiscard]] QString count() const { return find<QLabel>("rangeCount")->text(); }
    [[nodiscard]] QTableView *list() const { return find<QTableView>("letterList"); }
    [[nodiscard]] QString cell(int row, int column) const
    {
        return list()->model()->index(row, column).data().toString();
    }
};

} // namespace

TEST_CASE("the list shows number, insurer and patient of every letter")
{
    Shown world(12);
    CHECK(world.list()->model()->rowCount() == 12);
    CHECK(world.cell(11, 0) == QStringLiteral("12"));
    CHECK(world.cell(11, 1) == QString::fromStdString(ordinaryRow()["保険者名"]));
    CHECK(world.cell(11, 2) == QStringLiteral("甲12"));
}

TEST_CASE("first, previous, next and last turn the pages and stop at both ends")
{
    Shown world(3);
    CHECK(world.letter() == "1");
    world.act("previous");
    CHECK(world.letter() == "1");
    world.act("next");
    CHECK(world.letter() == "2");
    world.act("last");
    CHECK(world.letter() == "3");
    world.act("next");
    CHECK(world.letter() == "3");
    world.act("first");
    CHECK(world.letter() == "1");
}

TEST_CASE("entering a number shows its letter, and list, page and number agree")
{
    Shown world(30);
    auto *const number = world.find<QSpinBox>("number");
    number->setFocus();
    number->selectAll();
    QTest::keyClicks(number, QStringLiteral("17"));
    QTest::keyClick(number, Qt::Key_Return);
    CHECK(world.letter() == "17");
    CHECK(world.list()->currentIndex().row() == 16);
    world.list()->setCurrentIndex(world.list()->model()->index(4, 2));
    CHECK(world.letter() == "5");
    CHECK(number->value() == 5);
}

TEST_CASE("the arrow keys of the list turn the pages")
{
    Shown world(5);
    QTest::keyClick(world.list(), Qt::Key_Down);
    CHECK(world.letter() == "2");
    QTest::keyClick(world.list(), Qt::Key_End);
    CHECK(world.letter() == "5");
    QTest::keyClick(world.list(), Qt::Key_Home);
    CHECK(world.letter() == "1");
}

TEST_CASE("the Space key unticks and ticks the selected letters, and the box follows")
{
    Shown world(5);
    QTest::keyClick(world.list(), Qt::Key_Space);
    CHECK(world.box() == "2-5");
    CHECK(world.count() == QStringLiteral("4通／5通"));
    QTest::keyClick(world.list(), Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(world.list(), Qt::Key_Space);
    CHECK(world.box() == "1-5");
    QTest::keyClick(world.list(), Qt::Key_Space);
    CHECK(world.box() == "3-5");
}

TEST_CASE("typing into the box ticks the list at once")
{
    Shown world(6);
    auto *const box = world.find<QLineEdit>("rangeBox");
    box->selectAll();
    QTest::keyClicks(box, QStringLiteral("1-3,5"));
    CHECK(world.window->letters().ticks.letters() == std::vector<std::size_t>{0, 1, 2, 4});
    CHECK(world.list()->model()->index(3, 0).data(Qt::CheckStateRole).toInt() == Qt::Unchecked);
    CHECK(world.list()->model()->index(4, 0).data(Qt::CheckStateRole).toInt() == Qt::Checked);
}

TEST_CASE("an unreadable text in the box is reported, changes no tick and prevents printing")
{
    Shown world(6);
    auto *const box = world.find<QLineEdit>("rangeBox");
    box->selectAll();
    QTest::keyClicks(box, QStringLiteral("9"));
    CHECK(world.find<QLabel>("rangeFault")->isVisible());
    CHECK(world.find<QLabel>("rangeFault")->text() == QStringLiteral("9番の委任状はありません（1～6）。"));
    CHECK(world.window->letters().ticks.count() == 6);
    world.window->askPrint();
    CHECK(world.jobs == 0);
}

TEST_CASE("all letters can be ticked or unticked, and marked letters unticked")
{
    std::vector<Row> rows = differentRows(4);
    rows[2]["口座名義"] = "";
    WindowWorld world(rows);
    world.openWindow();
    const LetterTicks &ticks = world.window->letters().ticks;
    world.find<QAction>("tickNone")->trigger();
    CHECK(ticks.count() == 0);
    CHECK(world.find<QLineEdit>("rangeBox")->text().isEmpty());
    world.find<QAction>("tickAll")->trigger();
    CHECK(ticks.text() == "1-4");
    world.find<QAction>("untickMarked")->trigger();
    CHECK(ticks.text() == "1-2,4");
}

TEST_CASE("nothing is printed when no letter is ticked")
{
    Shown world(3);
    world.act("tickNone");
    world.window->print(world.order());
    CHECK(world.jobs == 0);
    CHECK(world.messages == std::vector<QString>{QStringLiteral("印刷する委任状が選ばれていません。")});
}

TEST_CASE("every widget that accepts the focus has a name for screen readers")
{
    Shown world(3);
    const QList<QWidget *> widgets = world.window->findChildren<QWidget *>();
    int named = 0;
    for (const QWidget *widget : widgets) {
        const bool isPart = widget->parentWidget() != nullptr && widget->parentWidget()->focusProxy() == widget;
        const bool ownsName = !widget->accessibleName().isEmpty() || widget->property("text").toString() != QString();
        if (!(widget->focusPolicy() & Qt::TabFocus) || widget->objectName().startsWith(QStringLiteral("qt_"))) continue;
        if (widget->inherits("QHeaderView") || widget->inherits("QToolButton")) continue;
        if (widget->inherits("QComboBoxListView")) continue; // the box has the name
        CAPTURE(std::string(widget->metaObject()->className()));
        CAPTURE(widget->objectName().toStdString());
        CHECK((ownsName || isPart || widget->inherits("inin::viewer::RangeBox") || widget->focusProxy() != nullptr));
        ++named;
    }
    CHECK(named >= 5);
}

TEST_CASE("every command has a key")
{
    Shown world(1);
    for (const char *name :
         {"print",     "pdf",       "reload",        "close",       "tickAll",         "tickNone", "untickMarked",
          "find",      "findNext",  "findPrevious",  "first",       "previous",        "next",     "last",
          "goTo",      "goList",    "zoomIn",        "zoomOut",     "zoomWhole",       "fitPage",  "fitWidth",
          "printThis", "tickFound", "tickOnlyFound", "nextFlagged", "previousFlagged", "goFilter"}) {
        CAPTURE(name);
        const auto *const action = world.find<QAction>(name);
        REQUIRE(action != nullptr);
        CHECK(!action->shortcut().isEmpty());
    }
}

TEST_CASE("the Tab key moves through list, box, page and back")
{
    Shown world(2);
    world.list()->setFocus();
    QStringList seen;
    for (int i = 0; i < 12; ++i) {
        seen << QApplication::focusWidget()->objectName();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    for (const char *name : {"letterList", "rangeBox", "pageView", "number", "find"}) {
        CAPTURE(name);
        CHECK(seen.contains(QLatin1String(name)));
    }
}

namespace {

/// A window whose list has the keyboard focus.
struct Walked : Shown {
    explicit Walked(int count) : Shown(count)
    {
        REQUIRE(QTest::qWaitForWindowActive(window.get()));
        list()->setFocus();
    }
    /// Sends a key as a keyboard does: the window's shortcuts come first, and the modifiers stay pressed meanwhile.
    void renderer(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, int times = 1) const
    {
        for (int i = 0; i < times; ++i) {
            QTest::keyPress(window->windowHandle(), key, modifiers);
            QTest::keyRelease(window->windowHandle(), key, modifiers);
        }
    }
};

} // namespace

TEST_CASE("Space after Ctrl+PageDown unticks only the current letter")
{
    Walked world(6);
    world.renderer(Qt::Key_PageDown, Qt::ControlModifier, 4);
    world.renderer(Qt::Key_Space);
    CHECK(world.letter() == "5");
    CHECK(world.box() == "1-4,6");
}

TEST_CASE("Space after Ctrl+PageUp unticks only the current letter")
{
    Walked world(6);
    world.renderer(Qt::Key_End);
    world.renderer(Qt::Key_PageUp, Qt::ControlModifier);
    world.renderer(Qt::Key_PageDown, Qt::ControlModifier);
    world.renderer(Qt::Key_PageUp, Qt::ControlModifier);
    world.renderer(Qt::Key_Space);
    CHECK(world.letter() == "5");
    CHECK(world.box() == "1-4,6");
}

TEST_CASE("Shift+Down after Ctrl+PageDown extends the selection from the current letter")
{
    Walked world(6);
    world.renderer(Qt::Key_PageDown, Qt::ControlModifier, 2);
    world.renderer(Qt::Key_Down, Qt::ShiftModifier);
    world.renderer(Qt::Key_Space);
    CHECK(world.box() == "1-2,5-6");
}

TEST_CASE("Shift+End and Shift+Home extend the selection to the last and the first letter")
{
    Walked world(6);
    world.renderer(Qt::Key_Down, Qt::NoModifier, 2);
    world.renderer(Qt::Key_End, Qt::ShiftModifier);
    world.renderer(Qt::Key_Space);
    CHECK(world.box() == "1-2");
    world.renderer(Qt::Key_Home, Qt::ShiftModifier);
    world.renderer(Qt::Key_Space);
    CHECK(world.box() == "1-3");
}

TEST_CASE("Space after a text is pasted into the find box unticks only the found letter")
{
    Walked world(30);
    QGuiApplication::clipboard()->setText(QStringLiteral("甲29"));
    world.find<QLineEdit>("find")->setFocus();
    world.renderer(Qt::Key_V, Qt::ControlModifier);
    world.list()->setFocus();
    world.renderer(Qt::Key_Space);
    CHECK(world.letter() == "29");
    CHECK(world.box() == "1-28,30");
}

TEST_CASE("Space after Shift+F3 unticks only the found letter")
{
    Walked world(5);
    world.find<QLineEdit>("find")->setText(QStringLiteral("甲"));
    const QPoint third = world.list()->visualRect(world.list()->model()->index(2, 2)).center();
    QTest::mouseClick(world.list()->viewport(), Qt::LeftButton, Qt::ControlModifier, third);
    REQUIRE(world.list()->selectionModel()->selectedRows().size() == 2);
    world.renderer(Qt::Key_F3, Qt::ShiftModifier);
    world.renderer(Qt::Key_Space);
    CHECK(world.letter() == "2");
    CHECK(world.box() == "1,3-5");
}
