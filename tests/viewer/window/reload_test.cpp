#include "viewer/window/window_world.h"

#include <QComboBox>
#include <QStatusBar>
#include <QTableView>
#include <doctest/doctest.h>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

struct Reloaded : WindowWorld {
    explicit Reloaded(const std::vector<Row> &rows) : WindowWorld(rows) { openWindow(); }
    void reload(const std::vector<Row> &rows)
    {
        writeBytes(folder / "委任状.csv", csvOf(rows));
        window->reload();
    }
    [[nodiscard]] std::string ticks() const { return window->letters().ticks.text(); }
};

} // namespace

TEST_CASE("F5 keeps the shown letter and the ticks of the rows that are still the same")
{
    const std::vector<Row> rows = differentRows(4);
    Reloaded world(rows);
    world.window->letters().ticks.setText("1,4");
    world.window->showLetter(2);
    Row added = ordinaryRow();
    added["利用者氏名"] = "新";
    world.reload({added, rows[0], rows[1], rows[2], rows[3]});
    CHECK(world.ticks() == "1-2,5");
    CHECK(world.shownNumber() == "4");
    CHECK(world.find<QTableView>("letterList")->currentIndex().row() == 3);
    CHECK(world.window->statusBar()->currentMessage() ==
          QStringLiteral(
              "再読み込みしました。新しい、または内容の変わった1通にはチェックが付いています。ほかは前のままです。"));
}

TEST_CASE("F5 without a change reports that the ticks are unchanged")
{
    const std::vector<Row> rows = differentRows(3);
    Reloaded world(rows);
    world.window->letters().ticks.setText("2");
    world.reload(rows);
    CHECK(world.ticks() == "2");
    CHECK(world.window->statusBar()->currentMessage() ==
          QStringLiteral("再読み込みしました。チェックは前のままです。"));
}

TEST_CASE("F5 keeps the list's filter as long as it lists the shown letter")
{
    std::vector<Row> rows = differentRows(4);
    rows[1]["口座名義"] = "";
    rows[2]["口座名義"] = "";
    Reloaded world(rows);
    world.window->setFilter(ListFilter::flagged);
    world.window->showLetter(2);
    rows[1]["口座名義"] = "ｶﾅ";
    world.reload(rows);
    CHECK(world.find<QTableView>("letterList")->model()->rowCount() == 1);
    CHECK(world.shownNumber() == "3");
    rows[2]["口座名義"] = "ｶﾅ";
    world.reload(rows);
    CHECK(world.find<QTableView>("letterList")->model()->rowCount() == 4);
    CHECK(world.shownNumber() == "3");
    CHECK(world.find<QComboBox>("filter")->currentIndex() == 0);
}
