#include "viewer/window/window_world.h"

#include <QTableView>
#include <QTreeView>
#include <doctest/doctest.h>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

struct MarkedLetters : WindowWorld {
    explicit MarkedLetters(const std::vector<Row> &rows, const std::string &form = "委任状37_01.wfd")
        : WindowWorld(rows, form)
    {
        openWindow();
    }
    [[nodiscard]] QTreeView &tree() const { return *find<QTreeView>("checkTree"); }
    [[nodiscard]] QString marksOf(int letter) const
    {
        return find<QTableView>("letterList")->model()->index(letter, 3).data().toString();
    }
};

/// Letters without an account holder, and as many with one.
std::vector<Row> rowsWithoutHolder(int count)
{
    std::vector<Row> rows = differentRows(2 * count);
    for (int i = 0; i < count; ++i) rows[static_cast<std::size_t>(i)]["口座名義"] = "";
    return rows;
}

} // namespace

TEST_CASE("a letter shows a mark once, however many of its fields have that mark")
{
    std::vector<Row> rows = differentRows(1);
    rows[0]["代表者名"] = "?田";
    rows[0]["会社住所"] = "?町";
    const MarkedLetters world(rows);
    REQUIRE(world.window->findings().size() == 2);
    CHECK(!world.marksOf(0).contains(u'、'));
    CHECK(!world.marksOf(0).isEmpty());
}

TEST_CASE("activating a notice of the check selects no letter")
{
    std::vector<Row> rows = differentRows(3);
    MarkedLetters world(rows);
    writeBytes(world.script, "Hop,1\r\n" + bytesOf(world.script));
    world.window->reload();
    world.settle();
    QTableView &list = *world.find<QTableView>("letterList");
    list.setCurrentIndex(list.model()->index(2, 0));
    const QAbstractItemModel &model = *world.tree().model();
    const QModelIndex notice = model.index(0, 0, model.index(0, 0));
    REQUIRE(notice.data().toString().contains(QStringLiteral("Hop,1")));
    emit world.tree().activated(notice);
    CHECK(list.currentIndex().row() == 2);
}

TEST_CASE("the check shows a few findings expanded and many collapsed by cause")
{
    const MarkedLetters few(rowsWithoutHolder(30)), many(rowsWithoutHolder(31));
    const auto isOpen = [](const MarkedLetters &world) {
        return world.tree().isExpanded(world.tree().model()->index(0, 0));
    };
    CHECK(isOpen(few));
    CHECK(!isOpen(many));
}
