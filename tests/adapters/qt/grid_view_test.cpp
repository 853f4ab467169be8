#include "adapters/qt/grid_view.h"

#include "adapters/qt/control_mirror.h"
#include "adapters/qt/qt_text.h"
#include "screen/grid.h"

#include <doctest/doctest.h>

#include <QHeaderView>
#include <QStyledItemDelegate>
#include <QtTest/QTest>

#include <string>
#include <vector>

using namespace inin;
using namespace inin::qt;

namespace {

struct GridOnScreen {
    GridOnScreen()
    {
        view.resize(600, 300);
        view.show();
        view.activateWindow();
        REQUIRE(QTest::qWaitForWindowActive(&view));
        grid.onDblClick = [this](std::int32_t row) { doubleClicks.push_back(row); };
        // ControlMirror does the same.
        grid.watch([this] { view.refresh(); });
    }
    void fill(std::int32_t rows)
    {
        grid.ReDraw = false;
        grid.setRowCount(rows);
        for (std::int32_t row = 1; row <= rows; ++row) {
            grid.setNumber(row, 2, row * 10);
            grid.setText(row, 3, "利用者" + std::to_string(row));
        }
        grid.ReDraw = true;
    }
    void click(int row, bool isDouble)
    {
        const QPoint place = view.visualRect(view.model()->index(row - 1, 2)).center();
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, place);
        if (isDouble) QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, place);
    }
    [[nodiscard]] std::string cell(int row, int column) const
    {
        return fromQt(view.model()->index(row - 1, column - 1).data().toString());
    }

    EventEdge edge;
    Grid grid{"spr_1ran",
              {{"拠点 No.", Grid::CellKind::number, 0},
               {"ID No.", Grid::CellKind::number, 8},
               {"氏名", Grid::CellKind::text, 20}}};
    GridView view{grid, edge, nullptr};
    std::vector<std::int32_t> doubleClicks;
};

/// Counts the cells that the view measures and paints.
class CountingDelegate : public QStyledItemDelegate {
public:
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        ++measured;
        return QStyledItemDelegate::sizeHint(option, index);
    }
    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        ++painted;
        QStyledItemDelegate::paint(painter, option, index);
    }
    mutable int measured = 0;
    mutable int painted = 0;
};

} // namespace

TEST_CASE("30,000 rows cost no more measuring, painting and widgets than the visible rows")
{
    constexpr int kRows = 30000;
    GridOnScreen screen;
    CountingDelegate counting;
    screen.view.setItemDelegate(&counting);
    const int inSight = screen.view.viewport()->height() / screen.view.verticalHeader()->defaultSectionSize() + 2;
    const int cellsInSight = inSight * screen.grid.ColumnCount();
    const auto checkWork = [&] {
        CHECK(counting.measured == 0);
        CHECK(counting.painted > 0);
        CHECK(counting.painted <= 4 * cellsInSight); // a few paints of the visible cells
        counting.painted = 0;
    };

    screen.fill(kRows);
    screen.view.repaint();
    checkWork();
    CHECK(screen.view.model()->rowCount() == kRows);
    CHECK(screen.cell(kRows, 3) == "利用者30000");
    CHECK(screen.view.findChildren<QWidget *>().size() < 30);

    QTest::keyClick(&screen.view, Qt::Key_End);
    screen.view.repaint();
    checkWork();
    CHECK(screen.grid.ActiveRow == kRows);
    screen.view.setItemDelegate(nullptr);
}

TEST_CASE("a column of width 0 is hidden, and the header does not sort")
{
    GridOnScreen screen;
    screen.fill(3);
    CHECK(screen.view.isColumnHidden(0));
    CHECK_FALSE(screen.view.isColumnHidden(1));
    CHECK_FALSE(screen.view.isSortingEnabled());
    CHECK(fromQt(screen.view.model()->headerData(1, Qt::Horizontal).toString()) == "ID No.");
}

TEST_CASE("a click makes a row the active one, a double click raises the event with its row")
{
    GridOnScreen screen;
    screen.fill(5);
    screen.click(2, false);
    CHECK(screen.grid.ActiveRow == 2);
    CHECK(screen.doubleClicks.empty());
    screen.click(4, true);
    CHECK(screen.grid.ActiveRow == 4);
    CHECK(screen.doubleClicks == std::vector<std::int32_t>{4});
}

TEST_CASE("a double click on the header raises the event with row 0")
{
    GridOnScreen screen;
    screen.fill(5);
    QWidget *header = screen.view.horizontalHeader()->viewport();
    QTest::mouseDClick(header, Qt::LeftButton, {}, QPoint(20, header->height() / 2));
    CHECK(screen.doubleClicks == std::vector<std::int32_t>{0});
}

TEST_CASE("the arrow keys, Home and End move between the rows")
{
    GridOnScreen screen;
    screen.fill(5);
    for (const auto &[key, row] : {std::pair{Qt::Key_Home, 1}, {Qt::Key_Down, 2}, {Qt::Key_End, 5}, {Qt::Key_Up, 4}}) {
        QTest::keyClick(&screen.view, key);
        CHECK(screen.grid.ActiveRow == row);
    }
}

TEST_CASE("a row activated by the program is selected and scrolled into view")
{
    GridOnScreen screen;
    screen.fill(1000);
    screen.grid.ActiveRow = 700;
    screen.grid.showRow(700);
    CHECK(screen.view.currentIndex().row() == 699);
    CHECK(screen.view.viewport()->rect().intersects(screen.view.visualRect(screen.view.model()->index(699, 2))));
}

TEST_CASE("rows removed while the redraw is off are not read any more")
{
    GridOnScreen screen;
    screen.fill(10);
    screen.grid.ReDraw = false;
    screen.grid.setRowCount(0);
    CHECK(screen.view.model()->rowCount() == 10);
    CHECK(screen.cell(5, 3) == "");
    screen.view.repaint();
    screen.grid.ReDraw = true;
    CHECK(screen.view.model()->rowCount() == 0);
    CHECK(screen.grid.ActiveRow == 0);
}

TEST_CASE("rows removed while the redraw is off leave no lines on the screen")
{
    GridOnScreen screen;
    screen.fill(5);
    screen.grid.ReDraw = false;
    screen.grid.setRowCount(0);
    const QImage seen = screen.view.viewport()->grab().toImage();
    const QColor base = screen.view.palette().color(QPalette::Base);
    int others = 0;
    for (int y = 0; y < seen.height(); ++y)
        for (int x = 0; x < seen.width(); ++x)
            if (seen.pixelColor(x, y) != base) ++others;
    CHECK(others == 0);
}
