#include "adapters/qt/date_edit.h"
#include "adapters/qt/grid_model.h"
#include "adapters/qt/qt_text.h"
#include "platform/grid.h"

#include <doctest/doctest.h>

#include <QCalendarWidget>
#include <QFrame>
#include <QtTest/QTest>

using namespace inin;

TEST_CASE("numbers of a grid stand at the right, texts at the left, and each header above its own")
{
    Grid grid{"spr_1ran", {{"ID No.", Grid::CellKind::number, 8}, {"氏名", Grid::CellKind::text, 20}}};
    grid.setRowCount(1);
    grid.setNumber(1, 1, 7);
    grid.setText(1, 2, "青木");
    GridModel model(grid, nullptr);
    model.readAnew();
    const auto isRight = [](const QVariant &alignment) { return (alignment.toInt() & Qt::AlignRight) != 0; };
    CHECK(isRight(model.index(0, 0).data(Qt::TextAlignmentRole)));
    CHECK(isRight(model.headerData(0, Qt::Horizontal, Qt::TextAlignmentRole)));
    CHECK(!isRight(model.index(0, 1).data(Qt::TextAlignmentRole)));
    CHECK(!isRight(model.headerData(1, Qt::Horizontal, Qt::TextAlignmentRole)));
}

TEST_CASE("the calendar offers no day before the first era")
{
    QWidget window;
    DateEdit edit(
        "ggg ee年mm月dd日",
        [] {
            return dateOf({2026, 11, 20});
        },
        &window);
    edit.setValue(dateOf({1868, 2, 3}));
    window.show();
    REQUIRE(QTest::qWaitForWindowExposed(&window));
    edit.openCalendar();
    auto *const days = edit.findChild<QCalendarWidget *>();
    REQUIRE(days != nullptr);
    for (int month = 0; month < 3; ++month) QTest::keyClick(days, Qt::Key_PageUp);
    for (int week = 0; week < 8; ++week) QTest::keyClick(days, Qt::Key_Up);
    days->setSelectedDate(QDate(1868, 1, 24));
    CHECK(days->selectedDate() >= QDate(1868, 1, 25));
    edit.findChild<QFrame *>("calendar")->close();
}
