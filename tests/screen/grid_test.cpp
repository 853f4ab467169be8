#include "screen/grid.h"

#include "support/errors.h"

#include <doctest/doctest.h>

#include <string>

using namespace inin;

namespace {

/// A grid of a number and a text column with two rows.
struct GridFixture {
    Grid grid{"spr_1ran", {{"ID No.", Grid::CellKind::number, 8}, {"利用者氏名", Grid::CellKind::text, 16}}};
    int notifications = 0;

    GridFixture()
    {
        grid.setRowCount(2);
        grid.watch([this] { ++notifications; });
    }
    void fill()
    {
        grid.setNumber(1, 1, 21);
        grid.setText(1, 2, "青木 一郎");
        grid.setNumber(2, 1, -2147483647 - 1);
        grid.setText(2, 2, "髙橋");
    }
};

} // namespace

TEST_CASE("a grid stores numbers and texts by row and column, counted from 1")
{
    GridFixture fixture;
    fixture.fill();
    CHECK(fixture.grid.RowCount() == 2);
    CHECK(fixture.grid.ColumnCount() == 2);
    CHECK(fixture.grid.number(1, 1) == 21);
    CHECK(fixture.grid.text(1, 1) == "21");
    CHECK(fixture.grid.text(1, 2) == "青木 一郎");
    CHECK(fixture.grid.number(2, 1) == -2147483647 - 1);
    CHECK(fixture.grid.text(2, 1) == "-2147483648");
    CHECK(fixture.grid.text(2, 2) == "髙橋");
}

TEST_CASE("new rows are blank, and existing rows keep their cells")
{
    GridFixture fixture;
    fixture.fill();
    fixture.grid.setRowCount(1);
    fixture.grid.setRowCount(3);
    CHECK(fixture.grid.text(1, 2) == "青木 一郎");
    CHECK(fixture.grid.number(2, 1) == 0);
    CHECK(fixture.grid.text(3, 2).empty());
}

TEST_CASE("a text can be replaced, and a number in a text column is shown by its digits")
{
    GridFixture fixture;
    fixture.fill();
    fixture.grid.setText(1, 2, "井上");
    CHECK(fixture.grid.text(1, 2) == "井上");
    CHECK(fixture.grid.text(2, 2) == "髙橋");
    fixture.grid.setText(1, 2, "");
    CHECK(fixture.grid.text(1, 2).empty());
    fixture.grid.setNumber(1, 2, 5);
    CHECK(fixture.grid.text(1, 2) == "5");
    CHECK(fixture.grid.number(1, 2) == 0);
}

TEST_CASE("a row or column out of range is error 9, a text in a number column error 13")
{
    GridFixture fixture;
    Grid &grid = fixture.grid;
    CHECK(errorOf([&] { grid.setNumber(0, 1, 1); }) == 9);
    CHECK(errorOf([&] { grid.setNumber(3, 1, 1); }) == 9);
    CHECK(errorOf([&] { grid.setText(1, 3, ""); }) == 9);
    CHECK(errorOf([&] { grid.setText(1, 0, ""); }) == 9);
    CHECK(errorOf([&] { static_cast<void>(grid.number(-1, 1)); }) == 9);
    CHECK(errorOf([&] { static_cast<void>(grid.text(1, 3)); }) == 9);
    CHECK(errorOf([&] { grid.setRowCount(-1); }) == 9);
    CHECK(errorOf([&] { grid.setColumnWidth(3, 1); }) == 9);
    CHECK(errorOf([&] { grid.showRow(0); }) == 9);
    CHECK(errorOf([&] { grid.showRow(3); }) == 9);
    CHECK(errorOf([&] { grid.ActiveRow = 3; }) == 9);
    CHECK(errorOf([&] { grid.ActiveRow = -1; }) == 9);
    CHECK(errorOf([&] { grid.setText(1, 1, "x"); }) == 13);
    CHECK(grid.ActiveRow == 0);
}

TEST_CASE("removing the chosen row resets the choice, and keeping it does not")
{
    GridFixture fixture;
    fixture.grid.ActiveRow = 2;
    fixture.grid.setRowCount(5);
    CHECK(fixture.grid.ActiveRow == 2);
    fixture.grid.setRowCount(1);
    CHECK(fixture.grid.ActiveRow == 0);
}

TEST_CASE("the row to scroll to is kept until the rows are cleared")
{
    GridFixture fixture;
    fixture.grid.showRow(2);
    CHECK(fixture.grid.RowInSight() == 2);
    CHECK(fixture.notifications == 1);
    fixture.grid.setRowCount(0);
    CHECK(fixture.grid.RowInSight() == 0);
}

TEST_CASE("each change notifies the watchers unless ReDraw is off; turning it on notifies them once")
{
    GridFixture fixture;
    fixture.fill();
    CHECK(fixture.notifications == 4);
    fixture.grid.ReDraw = false;
    const int before = fixture.notifications;
    const std::uint64_t revision = fixture.grid.revision();
    fixture.fill();
    fixture.grid.setRowCount(3);
    fixture.grid.showRow(3);
    CHECK(fixture.notifications == before);
    CHECK(fixture.grid.revision() > revision);
    fixture.grid.ReDraw = true;
    CHECK(fixture.notifications == before + 1);
}

TEST_CASE("each column has its own width, and 0 hides it")
{
    GridFixture fixture;
    fixture.grid.setColumnWidth(1, 0);
    CHECK(fixture.grid.columns()[0].width == 0);
    CHECK(fixture.grid.columns()[1].width == 16);
    CHECK(fixture.notifications == 1);
}

TEST_CASE("the grid of a form is found, and a form without one has none")
{
    struct GridForm : Form {
        GridForm() : Form("frm")
        {
            add(label);
            add(grid);
        }
        Label label{"lbl"};
        Grid grid{"spr", {}};
    };
    const GridForm form;
    CHECK(gridOf(form) == &form.grid);
    const Form bare("frmBare");
    CHECK(gridOf(bare) == nullptr);
}
