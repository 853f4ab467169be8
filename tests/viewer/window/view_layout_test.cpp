#include "viewer/window/window_world.h"

#include <QAction>
#include <QDateTime>
#include <QSplitter>
#include <doctest/doctest.h>

#include <filesystem>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

std::vector<Row> rowsWithFinding()
{
    std::vector<Row> rows = differentRows(3);
    rows[1]["口座名義"] = "";
    return rows;
}

QSplitter *splitterOf(const WindowWorld &world, const char *child)
{
    return dynamic_cast<QSplitter *>(world.find<QWidget>(child)->parentWidget()->parentWidget());
}

} // namespace

TEST_CASE("the widths of list and check and the zoom mode are kept for the next window")
{
    WindowWorld world(rowsWithFinding());
    world.openWindow();
    auto *const across = splitterOf(world, "letterList");
    auto *const down = splitterOf(world, "checkTree");
    REQUIRE(across != nullptr);
    REQUIRE(down != nullptr);
    across->setSizes({400, across->width() - 400});
    down->setSizes({down->height() - 150, 150});
    const int list = across->sizes()[0], check = down->sizes()[1];
    world.find<QAction>("fitWidth")->trigger();
    world.window->close();

    world.openWindow();
    CHECK(splitterOf(world, "letterList")->sizes()[0] == list);
    CHECK(splitterOf(world, "checkTree")->sizes()[1] == check);
    const auto *page = dynamic_cast<PageView *>(world.find<QWidget>("pageView"));
    CHECK(page->fit() == PageView::Fit::width);
    world.find<QAction>("zoomWhole")->trigger();
    world.find<QAction>("zoomIn")->trigger();
    world.window->close();

    world.openWindow();
    page = dynamic_cast<PageView *>(world.find<QWidget>("pageView"));
    CHECK(page->fit() == PageView::Fit::none);
    CHECK(page->zoom() == doctest::Approx(1.25));
}

TEST_CASE("a corrupt layout in the settings is replaced by the default")
{
    WindowWorld world(rowsWithFinding());
    world.folder.put("settings.ini", "[window]\nlistWidth=oops\ncheckHeight=-3\nzoom=large\n");
    world.openWindow();
    CHECK(dynamic_cast<PageView *>(world.find<QWidget>("pageView"))->fit() == PageView::Fit::page);
    CHECK(splitterOf(world, "letterList")->sizes()[0] > 100);
    CHECK(splitterOf(world, "checkTree")->sizes()[1] > 50);
}

TEST_CASE("the window's title names the kind of letters, their number and when they were written")
{
    WindowWorld world(differentRows(3));
    world.folder.put("委任状37_01.wfd",
                     svgPage("<title>委任状（見本）</title><text x='9' y='9'>{{利用者氏名}}</text>"));
    world.openWindow();
    const auto now = QDateTime::fromMSecsSinceEpoch(world.window->letters().set.letterFiles[0].stamp.changed / 1000000);
    CHECK(now.secsTo(QDateTime::currentDateTime()) < 600);
    const QString expected =
        QStringLiteral("　3通　%1 出力 － 印刷プレビュー").arg(now.toString(QStringLiteral("M/d HH:mm")));
    CHECK(world.window->windowTitle().endsWith(expected));
    CHECK(world.window->windowTitle().contains(QStringLiteral("委任状（見本）　3通")));
}
