#include "adapters/qt/date_edit.h"
#include "adapters/qt/grid_model.h"
#include "adapters/qt/grid_view.h"
#include "adapters/qt/picture_box.h"
#include "adapters/qt/qt_text.h"
#include "desktop_theme/japanese_font.h"
#include "screen/grid.h"

#include <doctest/doctest.h>

#include <QApplication>
#include <QCalendarWidget>
#include <QFrame>
#include <QPainter>
#include <QtTest/QTest>

#include <utility>

using namespace inin;
using namespace inin::qt;

TEST_CASE("numbers of a grid are right-aligned, texts left-aligned, and headers like their columns")
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

TEST_CASE("the font size is the desktop's, but at least the minimum for Japanese text")
{
    QFont font = QApplication::font();
    font.setPointSizeF(6);
    CHECK(theme::japaneseFont(font).pointSizeF() == 9.75);
    font.setPointSizeF(14);
    CHECK(theme::japaneseFont(font).pointSizeF() == 14);
}

TEST_CASE("a stretched picture is smooth once the windows have settled")
{
    QPixmap picture(2, 1);
    picture.fill(Qt::black);
    {
        QPainter painter(&picture);
        painter.fillRect(1, 0, 1, 1, Qt::white);
    }
    PictureBox box(nullptr);
    box.resize(200, 20);
    box.setPicture(picture);
    box.show();
    REQUIRE(QTest::qWaitForWindowExposed(&box));
    const auto middle = [&] { return box.grab().toImage().pixelColor(100, 10).lightness(); };
    CHECK(QTest::qWaitFor([&] { return middle() > 60 && middle() < 200; }, 2000));
    CHECK(box.grab().toImage().pixelColor(3, 10).lightness() < 60);
}

TEST_CASE("a column of a grid is as wide as its number of characters")
{
    EventEdge edge;
    Grid grid{"spr_1ran",
              {{"ID No.", Grid::CellKind::number, 8},
               {"氏名", Grid::CellKind::text, 20},
               {"住所", Grid::CellKind::text, 40}}};
    GridView view(grid, edge, nullptr);
    grid.setRowCount(1);
    view.refresh();
    const int letter = view.fontMetrics().horizontalAdvance(QLatin1Char('0'));
    for (const auto &[column, letters] : {std::pair(0, 8), std::pair(1, 20)}) {
        CHECK(view.columnWidth(column) >= letters * letter);
        CHECK(view.columnWidth(column) < (letters + 4) * letter);
    }
}
