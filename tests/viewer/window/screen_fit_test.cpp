#include "viewer/window/screen_fit.h"
#include "viewer/window/window_world.h"

#include <QScreen>
#include <QStatusBar>
#include <QTableView>
#include <QToolBar>
#include <QTreeView>
#include <doctest/doctest.h>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

std::vector<Row> rowsWithFindings()
{
    std::vector<Row> rows = differentRows(60);
    for (Row &row : rows) row["保険者名"] = "香川県後期高齢者医療広域連合";
    for (const std::size_t row : {3U, 7U, 11U, 30U}) rows[row]["口座名義"] = "";
    rows[5]["会社名称"] = "";
    return rows;
}

/// The part of a widget that lies in the window.
QRect placeOf(const WindowWorld &world, const char *name)
{
    const auto *const widget = world.find<QWidget>(name);
    REQUIRE(widget != nullptr);
    CHECK(widget->isVisible());
    return {widget->mapTo(world.window.get(), QPoint(0, 0)), widget->size()};
}

} // namespace

TEST_CASE("on this screen the window shows range box, status line, check list and a readable page")
{
    WindowWorld world(rowsWithFindings());
    world.openWindow();
    const QRect room = world.window->screen()->availableGeometry();
    CAPTURE(room.width());
    CAPTURE(room.height());
    CHECK(room.contains(world.window->geometry()));
    for (const char *const name : {"rangeBox", "rangeCount", "status", "checkTree", "checkHeading", "letterList",
                                   "pageView", "find", "filter", "tools"}) {
        CAPTURE(name);
        CHECK(world.window->rect().contains(placeOf(world, name)));
    }
    const auto *const tree = world.find<QTreeView>("checkTree");
    CHECK(tree->viewport()->height() >= 3 * tree->visualRect(tree->model()->index(0, 0)).height());
    CHECK(world.find<QTableView>("letterList")->viewport()->height() >= 5 * 20);
    const auto *const list = world.find<QTableView>("letterList");
    CHECK(list->columnWidth(3) >= 4 * list->fontMetrics().horizontalAdvance(u'漢'));
    CHECK(list->columnViewportPosition(3) + list->columnWidth(3) <= list->viewport()->width());
    const auto *const page = dynamic_cast<PageView *>(world.find<QWidget>("pageView"));
    CHECK(page->fit() == PageView::Fit::page);
    CHECK(page->zoom() >= PageView::kReadableZoom);
    // No command of the tool bar is hidden in its menu of further commands.
    const auto *const more =
        world.find<QToolBar>("tools")->findChild<QWidget *>(QStringLiteral("qt_toolbar_ext_button"));
    CHECK((more == nullptr || !more->isVisible()));
}

TEST_CASE("on this screen a remembered size larger than the screen is reduced")
{
    WindowWorld world(differentRows(3));
    {
        QWidget large;
        large.setGeometry(-50, -50, 6000, 4000);
        ViewerSettings settings(QString::fromStdString(world.folder / "settings.ini"));
        settings.setWindowPlace(large.saveGeometry());
        REQUIRE(settings.save());
    }
    world.openWindow();
    const QRect room = world.window->screen()->availableGeometry();
    CHECK(room.contains(world.window->geometry()));
    if (!world.window->isMaximized()) CHECK(world.window->height() <= 0.95 * room.height());
}

TEST_CASE("a window takes at most 95 percent of the screen and is maximised on one below 1280 by 800")
{
    CHECK(fitWindow({1200, 820}, {1920, 1080}).size == QSize(1200, 820));
    CHECK(!fitWindow({1200, 820}, {1920, 1080}).isMaximised);
    CHECK(fitWindow({3000, 2000}, {1920, 1000}).size == QSize(1824, 950));
    CHECK(!fitWindow({1200, 820}, {1280, 800}).isMaximised);
    CHECK(fitWindow({1200, 820}, {1280, 800}).size == QSize(1200, 760));
    CHECK(fitWindow({1200, 820}, {1279, 1024}).isMaximised);
    CHECK(fitWindow({1200, 820}, {1366, 720}).isMaximised);
}

TEST_CASE("a window is moved into its screen")
{
    const QRect room(100, 30, 1000, 700);
    CHECK(movedInto({-50, 0, 400, 300}, room) == QRect(100, 30, 400, 300));
    CHECK(movedInto({900, 600, 400, 300}, room) == QRect(700, 430, 400, 300));
    CHECK(movedInto({200, 100, 400, 300}, room) == QRect(200, 100, 400, 300));
}
