#include "viewer/window/window_world.h"

#include <QAbstractItemModel>
#include <QAction>
#include <QLabel>
#include <QTest>
#include <QTreeView>
#include <doctest/doctest.h>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

struct Checked : WindowWorld {
    explicit Checked(const std::vector<Row> &letters = rows()) : WindowWorld(letters) { openWindow(); }
    static std::vector<Row> rows()
    {
        std::vector<Row> rows = differentRows(5);
        rows[1]["口座名義"] = "";
        rows[4]["口座名義"] = "";
        rows[3]["会社名称"] = "";
        return rows;
    }
    [[nodiscard]] QTreeView *tree() const { return find<QTreeView>("checkTree"); }
    [[nodiscard]] QString text(int branch, int column) const
    {
        return tree()->model()->index(branch, column).data().toString();
    }
};

} // namespace

TEST_CASE("the window checks the letters on opening and lists the findings by cause")
{
    Checked world;
    REQUIRE(world.tree()->model()->rowCount() == 2);
    CHECK(world.text(0, 0) == QStringLiteral("会社名が入っていません（1通）"));
    CHECK(world.text(1, 0) == QStringLiteral("口座名義が入っていません（2通）"));
    CHECK(world.text(1, 1) == QStringLiteral("本社情報か代理人情報に口座名義を登録してください。"));
    CHECK(world.find<QLabel>("checkHeading")->text() ==
          QStringLiteral("点検：3通に注意があります。そのまま印刷することもできます。"));
}

TEST_CASE("a click on a letter of the check shows it")
{
    Checked world;
    const QModelIndex branch = world.tree()->model()->index(1, 0);
    const QModelIndex leaf = world.tree()->model()->index(1, 0, branch);
    REQUIRE(leaf.data().toString().startsWith(QStringLiteral("5番")));
    world.tree()->scrollTo(leaf);
    QTest::mouseClick(world.tree()->viewport(), Qt::LeftButton, {}, world.tree()->visualRect(leaf).center());
    CHECK(world.find<QWidget>("pageView")->accessibleDescription().startsWith(QStringLiteral("5番　")));
}

TEST_CASE("Enter on a letter of the check shows it")
{
    Checked world;
    const QModelIndex leaf = world.tree()->model()->index(0, 0, world.tree()->model()->index(0, 0));
    world.tree()->setCurrentIndex(leaf);
    QTest::keyClick(world.tree(), Qt::Key_Return);
    CHECK(world.find<QWidget>("pageView")->accessibleDescription().startsWith(QStringLiteral("4番　")));
}

TEST_CASE("the list marks the letters that have findings")
{
    Checked world;
    const auto *const list = world.find<QAbstractItemView>("letterList");
    CHECK(list->model()->index(1, 3).data().toString() == QStringLiteral("口座名義なし"));
    CHECK(list->model()->index(0, 3).data().toString().isEmpty());
    CHECK(list->model()->index(3, 3).data(Qt::ToolTipRole).toString() ==
          QStringLiteral("会社名が入っていません。\n　利用者マスターの代理人か団体請求の指定と、"
                         "本社情報か代理人情報の登録を確認してください。"));
}

TEST_CASE("the check changes no tick and does not block printing")
{
    Checked world;
    CHECK(world.window->letters().ticks.count() == 5);
    world.window->print(world.order());
    CHECK(pageCount(world.jobPath(0)) == 5);
}

TEST_CASE("the check shows a single line when no letter has a finding")
{
    WindowWorld world(differentRows(2));
    world.openWindow();
    CHECK(world.find<QLabel>("checkHeading")->text() == QStringLiteral("点検：注意が必要な委任状はありません。"));
    CHECK(!world.find<QTreeView>("checkTree")->isVisible());
}

namespace {

/// Ten letters that are all signed after the period, one of them without an account holder.
struct LateSigned : Checked {
    LateSigned() : Checked(rows()) {}
    static std::vector<Row> rows()
    {
        std::vector<Row> rows = differentRows(10);
        for (Row &row : rows) row["署名日"] = "2024/06/01";
        rows[2]["口座名義"] = "";
        return rows;
    }
    [[nodiscard]] QString heading() const { return find<QLabel>("checkHeading")->text(); }
    [[nodiscard]] QModelIndex leaf(int branch) const
    {
        return tree()->model()->index(0, 0, tree()->model()->index(branch, 0));
    }
    /// Presses the space bar on a row.
    void press(const QModelIndex &index) const
    {
        tree()->setCurrentIndex(index);
        QTest::keyClick(tree(), Qt::Key_Space);
        QCoreApplication::processEvents();
    }
};

} // namespace

TEST_CASE("a cause that holds for all letters is one note and leaves their ticks on")
{
    LateSigned world;
    REQUIRE(world.tree()->model()->rowCount() == 2);
    CHECK(world.text(0, 0) == QStringLiteral("全体の注意（1件）"));
    CHECK(world.leaf(0).data().toString() == QStringLiteral("署名日が委任期間の外です（10通のうち10通）"));
    CHECK(world.heading() ==
          QStringLiteral("点検：1通に注意があります。そのまま印刷することもできます。全体の注意が1件あります。"));
    CHECK(world.find<QAbstractItemView>("letterList")->model()->index(0, 3).data().toString().isEmpty());
    world.find<QAction>("untickMarked")->trigger();
    CHECK(world.window->letters().ticks.count() == 9);
}

TEST_CASE("the space bar on a cause switches its check off, which is shown and remembered")
{
    LateSigned world;
    world.press(world.leaf(0));
    REQUIRE(world.tree()->model()->rowCount() == 2);
    CHECK(world.text(0, 0) == QStringLiteral("口座名義が入っていません（1通）"));
    CHECK(world.text(1, 0) == QStringLiteral("行わない点検（1種類）"));
    CHECK(world.leaf(1).data().toString() == QStringLiteral("署名日が委任期間の外です"));
    CHECK(world.heading().endsWith(QStringLiteral("行わない点検が1種類あります。")));

    world.openWindow();
    CHECK(world.text(1, 0) == QStringLiteral("行わない点検（1種類）"));
    world.press(world.leaf(1));
    CHECK(world.text(0, 0) == QStringLiteral("全体の注意（1件）"));
    CHECK(world.tree()->model()->rowCount() == 2);
}

TEST_CASE("a cause of single letters is switched off with its marks, and a letter has no check box")
{
    LateSigned world;
    const QModelIndex cause = world.tree()->model()->index(1, 0);
    CHECK(world.leaf(1).data(Qt::CheckStateRole).isNull());
    CHECK(cause.data(Qt::CheckStateRole).toInt() == Qt::Checked);
    world.press(cause);
    CHECK(world.window->findings().empty());
    CHECK(world.find<QAbstractItemView>("letterList")->model()->index(2, 3).data().toString().isEmpty());
}

TEST_CASE("an unknown form document is reported among the notices")
{
    WindowWorld world(differentRows(1));
    world.folder.put("委任状37_01.wfd", std::string("\x01\x02 binary", 9));
    world.openWindow();
    const QAbstractItemModel *const model = world.find<QTreeView>("checkTree")->model();
    CHECK(model->index(0, 0).data().toString() == QStringLiteral("お知らせ（1件）"));
    CHECK(model->index(0, 0, model->index(0, 0))
              .data()
              .toString()
              .endsWith(QStringLiteral("はこのプログラムの帳票（SVG）ではないため、各行の内容を一覧で表示します。")));
}

TEST_CASE("the name at the end of a finding's line is fully visible")
{
    std::vector<Row> rows = differentRows(3);
    rows[1]["保険者名"] = "東京都後期高齢者医療広域連合";
    rows[1]["利用者氏名"] = "勅使河原　茂左衛門";
    rows[1]["世帯主名"].clear();
    WindowWorld world(rows);
    world.openWindow();
    const auto *const tree = world.find<QTreeView>("checkTree");
    const QModelIndex line = tree->model()->index(0, 0, tree->model()->index(0, 0));
    const QString text = line.data().toString();
    REQUIRE(text.endsWith(QStringLiteral("勅使河原　茂左衛門")));
    CHECK(tree->columnWidth(0) >= tree->fontMetrics().horizontalAdvance(text) + 2 * tree->indentation());
}

TEST_CASE("a single letter of the Aichi form opens with the notice to compare the name")
{
    WindowWorld world(differentRows(1), "委任状23.wfd");
    world.openWindow();
    CHECK(world.find<QLabel>("noticeText")->text() ==
          QStringLiteral(
              "この様式は一通だけ出力されます。印刷の前に、利用者の氏名と住所が正しいことを確認してください。"));
    CHECK(world.find<QWidget>("noticeBar")->isVisible());
}

TEST_CASE("a site's cover form that cannot be used is reported among the notices, before a cover is asked for")
{
    WindowWorld world(differentRows(1));
    world.folder.put("束の表紙.wfd", svgPage("<text x='10' y='10'>{{担当}}</text>"));
    world.openWindow();
    const QAbstractItemModel &model = *world.find<QTreeView>("checkTree")->model();
    const QModelIndex notices = model.index(model.rowCount() - 1, 0);
    const QString notice = model.index(0, 0, notices).data().toString();
    CHECK(notice.contains(QStringLiteral("束の表紙.wfd")));
    CHECK(notice.contains(QStringLiteral("担当")));
}
