#include "adapters/qt/date_edit.h"
#include "adapters/qt/grid_view.h"
#include "adapters/qt/qt_message_boxes.h"
#include "adapters/qt/qt_text.h"
#include "screen/grid.h"

#include <doctest/doctest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QMessageBox>
#include <QTimer>
#include <QToolTip>
#include <QtTest/QTest>

#include <algorithm>

using namespace inin;
using namespace inin::qt;

namespace {

/// A date box in the middle of a window; its date is 21 November 2026.
struct DateOnWindow {
    DateOnWindow()
    {
        window.resize(600, 300);
        edit.setGeometry(20, 120, 220, 28);
        edit.setValue(dateOf({2026, 11, 21}));
        window.show();
        window.activateWindow();
        REQUIRE(QTest::qWaitForWindowActive(&window));
        edit.setFocus(Qt::TabFocusReason);
    }
    void enter(const char *text)
    {
        edit.selectAll();
        QTest::keyClicks(&edit, toQt(text));
        QTest::keyClick(&edit, Qt::Key_Return);
    }
    void undo() { QTest::keyClick(&edit, Qt::Key_Z, Qt::ControlModifier); }
    [[nodiscard]] std::string shown() const { return fromQt(edit.text()); }

    QWidget window;
    DateEdit edit{"ggg ee年mm月dd日", [] { return dateOf({2026, 11, 20}); }, &window};
};

/// The position of the visible tool tip.
QRect tipPlace()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto tip = std::ranges::find_if(
        windows, [](const QWidget *window) { return window->inherits("QTipLabel") && window->isVisible(); });
    REQUIRE(tip != windows.end());
    return (*tip)->geometry();
}

/// A grid with a hidden number, a visible number and a name.
struct GridOnWindow {
    GridOnWindow()
    {
        grid.setRowCount(3);
        for (std::int32_t row = 1; row <= 3; ++row) {
            grid.setNumber(row, 1, 99);
            grid.setNumber(row, 2, row * 10);
            grid.setText(row, 3, "利用者" + std::to_string(row));
        }
        view.refresh();
        view.show();
    }

    EventEdge edge;
    Grid grid{"spr_1ran",
              {{"拠点 No.", Grid::CellKind::number, 0},
               {"ID No.", Grid::CellKind::number, 8},
               {"氏名", Grid::CellKind::text, 20}}};
    GridView view{grid, edge, nullptr};
};

} // namespace

TEST_CASE("undo of a typed date restores the typed text, then the previous date")
{
    DateOnWindow box;
    box.enter("R8.5.1");
    REQUIRE(box.shown() == "令和 08年05月01日");
    box.undo();
    CHECK(box.shown() == "R8.5.1");
    for (int step = 0; step < 10 && box.shown() != "令和 08年11月21日"; ++step) box.undo();
    CHECK(box.shown() == "令和 08年11月21日");
    box.edit.commit();
    CHECK(box.edit.value() == Variant(dateOf({2026, 11, 21})));
}

TEST_CASE("a step of the arrow keys is undone as a whole")
{
    DateOnWindow box;
    QTest::keyClick(&box.edit, Qt::Key_PageDown);
    REQUIRE(box.shown() == "令和 08年12月21日");
    box.undo();
    CHECK(box.shown() == "令和 08年11月21日");
    box.edit.commit();
    CHECK(box.edit.value() == Variant(dateOf({2026, 11, 21})));
}

TEST_CASE("a date assigned by the program cannot be undone")
{
    DateOnWindow box;
    box.enter("R8.5.1");
    box.edit.setValue(dateOf({2026, 1, 1}));
    box.undo();
    CHECK(box.shown() == "令和 08年01月01日");
}

TEST_CASE("the remark about a date covers no field below the box, nor the mouse pointer")
{
    DateOnWindow box;
    QLineEdit next(&box.window);
    next.setGeometry(box.edit.geometry().translated(0, box.edit.height()));
    next.show();
    const QRect place(box.edit.mapToGlobal(QPoint(0, 0)), box.edit.size());
    SUBCASE("the mouse pointer is elsewhere: it is above the box")
    {
        QCursor::setPos(place.bottomLeft() + QPoint(0, 60));
        box.enter("abc");
        QApplication::processEvents();
        CHECK(tipPlace().bottom() <= place.top());
    }
    SUBCASE("the mouse pointer is above the box: it is beside the window")
    {
        box.window.resize(100, box.window.height()); // leaves room for the tip on the small screen of the tests
        QCursor::setPos(place.topLeft() + QPoint(30, -15));
        box.enter("abc");
        QApplication::processEvents();
        CHECK(tipPlace().left() >= box.window.frameGeometry().right());
        CHECK(!tipPlace().contains(QCursor::pos()));
    }
    CHECK(!tipPlace().intersects(QRect(next.mapToGlobal(QPoint(0, 0)), next.size())));
    box.edit.setValue(Null{});
    QToolTip::hideText();
}

TEST_CASE("the selected row of a grid is copied as displayed, its columns separated by tabs")
{
    GridOnWindow screen;
    screen.grid.ActiveRow = 2;
    screen.view.refresh();
    QTest::keyClick(&screen.view, Qt::Key_C, Qt::ControlModifier);
    CHECK(fromQt(QGuiApplication::clipboard()->text()) == "20\t利用者2");
}

TEST_CASE("copying from a grid without a selected row leaves the clipboard unchanged")
{
    GridOnWindow screen;
    QGuiApplication::clipboard()->setText(QStringLiteral("前"));
    QTest::keyClick(&screen.view, Qt::Key_C, Qt::ControlModifier);
    CHECK(fromQt(QGuiApplication::clipboard()->text()) == "前");
}

TEST_CASE("a question is answered by its two buttons, and Escape is Cancel")
{
    EventEdge edge;
    QtMessageBoxes boxes(edge);
    const auto answered = [&boxes](const std::function<void(QMessageBox &)> &answer) {
        QTimer::singleShot(0, [answer] {
            auto *const box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            if (box != nullptr) answer(*box);
        });
        return boxes.askRetry("出力中です。", Icon::exclamation, "");
    };
    CHECK(answered([](QMessageBox &box) { box.button(QMessageBox::Retry)->click(); }));
    CHECK_FALSE(answered([](QMessageBox &box) { box.button(QMessageBox::Cancel)->click(); }));
    CHECK_FALSE(answered([](QMessageBox &box) { QTest::keyClick(&box, Qt::Key_Escape); }));
}

TEST_CASE("Ctrl+C copies the text of a message box")
{
    EventEdge edge;
    QtMessageBoxes boxes(edge);
    QTimer::singleShot(0, [] {
        auto *const box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (box == nullptr || !QTest::qWaitForWindowActive(box)) return;
        QTest::keyClick(box, Qt::Key_C, Qt::ControlModifier);
        box->button(QMessageBox::Ok)->click();
    });
    QGuiApplication::clipboard()->clear();
    boxes.show("一行目\r\n二行目", Icon::critical, "");
    CHECK(fromQt(QGuiApplication::clipboard()->text()) == "一行目\n二行目");
}
