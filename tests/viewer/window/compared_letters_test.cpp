#include "viewer/window/ledger_world.h"

#include "viewer/window/link_line.h"

#include <QMenu>
#include <QTest>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>
#include <QTreeWidget>
#include <doctest/doctest.h>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

std::string lineOf(const LedgerWorld &world, const char *name)
{
    const auto *const line = dynamic_cast<LinkLine *>(world.find<QLabel>(name));
    REQUIRE(line != nullptr);
    return line->isVisible() ? line->plainText().toStdString() : "";
}

void follow(const LedgerWorld &world, const char *name, const char *target)
{
    emit world.find<QLabel>(name)->linkActivated(QString::fromLatin1(target));
}

/// The texts of the pane under the list, cells joined by "|".
std::vector<std::string> changes(const LedgerWorld &world)
{
    const auto *const table = world.find<QTreeWidget>("changesTable");
    std::vector<std::string> rows;
    for (int row = 0; row < table->topLevelItemCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < table->columnCount(); ++column) cells << table->topLevelItem(row)->text(column);
        rows.push_back(cells.join(u'|').toStdString());
    }
    return rows;
}

/// Five letters of which the second has moved, the fourth is gone and one is new.
std::vector<Row> nextRows()
{
    std::vector<Row> rows = differentRows(5);
    rows[1]["利用者住所"] = "香川県丸亀市";
    rows.erase(rows.begin() + 3);
    rows.insert(rows.begin(), ordinaryRow());
    rows[0]["利用者氏名"] = "新田";
    return rows;
}

} // namespace

TEST_CASE("letters that were printed before are reported as the same")
{
    LedgerWorld world(differentRows(3));
    world.openWindow();
    CHECK(lineOf(world, "comparedLine").empty());
    world.print("1-3");
    world.openAgain();
    CHECK(lineOf(world, "comparedLine") == "5月20日 10:32 の3通と同じ内容です。");
}

TEST_CASE("the same letters are named by their first print, not by a later one of some of them")
{
    LedgerWorld world(differentRows(3));
    world.openWindow();
    world.print("1-3");
    world.openAgain();
    world.print("2");
    world.openAgain();
    CHECK(lineOf(world, "comparedLine") == "5月20日 10:32 の3通と同じ内容です。");
}

TEST_CASE("a run is compared with the last printed one, and each part of the line filters the list")
{
    LedgerWorld world(differentRows(5));
    world.openWindow();
    world.print("1-5");
    world.click("paperAll");
    world.openAgain(nextRows());
    CHECK(lineOf(world, "comparedLine") == "前回（5月20日）から：新しい 1通、変わった 1通、なくなった 1通");
    CHECK(world.states() == States{"未印刷 新", "未印刷", "未印刷 変更", "未印刷", "未印刷"});
    follow(world, "comparedLine", "added");
    CHECK(world.listed() == "1");
    follow(world, "comparedLine", "changed");
    CHECK(world.listed() == "3");
    follow(world, "comparedLine", "gone");
    CHECK(world.textOf("changesHeading") == "なくなった委任状：1通");
    CHECK(changes(world) == std::vector<std::string>{"4|高松市|甲4"});
}

TEST_CASE("a changed letter shows field, old and new text, and its field is marked on the page")
{
    LedgerWorld world(differentRows(5));
    world.openWindow();
    world.print("1-5");
    world.openAgain(nextRows());
    auto *const page = dynamic_cast<PageView *>(world.find<QWidget>("pageView"));
    CHECK(page->marks().empty());
    CHECK(world.textOf("changesHeading") == "1番：新しい委任状です。");
    world.window->showLetter(2);
    CHECK(world.textOf("changesHeading") == "3番：変わった欄");
    CHECK(changes(world) == std::vector<std::string>{"利用者住所|香川県高松市番町2|香川県丸亀市"});
    CHECK(page->marks().size() == 1);
    const QModelIndex patient = world.find<QTableView>("letterList")->model()->index(2, LetterListModel::patient);
    CHECK(patient.data(Qt::ToolTipRole).toString() ==
          QStringLiteral("甲2\n利用者住所：「香川県高松市番町2」から「香川県丸亀市」に変わりました。"));
    world.window->showLetter(3);
    CHECK(page->marks().empty());
    CHECK(world.textOf("changesHeading") == "4番：変わっていません。");
}

TEST_CASE("the table of changes takes no room while no letter has changed")
{
    LedgerWorld world(differentRows(5));
    world.openWindow();
    world.print("1-5");
    world.openAgain(differentRows(4));
    CHECK(!world.isShown("changesPane"));
    follow(world, "comparedLine", "gone");
    CHECK(world.isShown("changesTable"));
    world.window->showLetter(1);
    CHECK(!world.isShown("changesPane"));
}

TEST_CASE("the mark of a changed field is on the screen and not on paper")
{
    LedgerWorld world(differentRows(5));
    world.openWindow();
    world.print("1-5");
    world.openAgain(nextRows());
    world.window->showLetter(2);
    const auto *const page = dynamic_cast<PageView *>(world.find<QWidget>("pageView"));
    REQUIRE(page->marks().size() == 1);
    const auto orangePixels = [](const QImage &image) {
        int count = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x) count += image.pixel(x, y) == qRgb(0xC8, 0x50, 0x00);
        return count;
    };
    CHECK(orangePixels(page->viewport()->grab().toImage()) > 10);
    OpenLetters &letters = world.window->letters();
    CHECK(orangePixels(pageImage(letters.renderer, 2, 96, letters.glyphs)) == 0);
}

TEST_CASE("the state of a changed letter is not cut on a small screen")
{
    LedgerWorld world(differentRows(5));
    world.openWindow();
    world.window->resize(1366, 720);
    world.print("1-5");
    world.openAgain(nextRows());
    world.window->resize(1366, 720);
    world.print("1-5");
    world.click("paperAll");
    CHECK(world.states()[2] == "紙で確認済み 変更");
    const auto *const list = world.find<QTableView>("letterList");
    const QModelIndex state = list->model()->index(2, LetterListModel::state);
    CHECK(list->sizeHintForIndex(state).width() <= list->columnWidth(LetterListModel::state));
    CHECK(list->columnViewportPosition(LetterListModel::marks) < list->viewport()->width());
}

TEST_CASE("a changed text that is wider than its column gets more lines, and the name of its field is not cut")
{
    LedgerWorld world(differentRows(3));
    world.openWindow();
    world.print("1-3");
    std::vector<Row> rows = differentRows(3);
    rows[0]["利用者住所"] = "香川県丸亀市大手町二丁目4番21号　大手町第三コーポひだまり205号室";
    rows[1]["利用者氏名"] = "甲2";
    rows[1]["口座番号"] = "1";
    world.openAgain(rows);
    world.window->resize(1366, 720);
    QApplication::processEvents();
    const auto *const table = world.find<QTreeWidget>("changesTable");
    const auto height = [&] { return table->visualItemRect(table->topLevelItem(0)).height(); };
    const int line = table->fontMetrics().height();
    CHECK(height() >= 2 * line);
    CHECK(table->columnWidth(0) >= table->fontMetrics().horizontalAdvance(table->topLevelItem(0)->text(0)));
    CHECK(table->columnWidth(0) < table->columnWidth(1));
    world.window->showLetter(1);
    CHECK(height() < 2 * line);
}

TEST_CASE("the page is scrolled to the first mark of a changed letter")
{
    LedgerWorld world(differentRows(5));
    world.openWindow();
    world.print("1-5");
    world.openAgain(nextRows());
    auto *const page = dynamic_cast<PageView *>(world.find<QWidget>("pageView"));
    page->setZoom(3);
    world.window->showLetter(2);
    REQUIRE(page->marks().size() == 1);
    const PlaceOnPage &mark = page->marks()[0];
    const double scale =
        page->paperPlace(mark.page).height() / world.window->letters().renderer.paperSize(2, mark.page).y;
    const double top = page->paperPlace(mark.page).top() + mark.top * scale;
    CHECK(top >= 0);
    CHECK(top + mark.height * scale <= page->viewport()->height());
}

TEST_CASE("no link above the list is broken over two lines")
{
    LedgerWorld world(differentRows(5));
    world.openWindow();
    world.print("1-5");
    world.openAgain(nextRows());
    world.print("1-5");
    world.openAgain(differentRows(6));
    const auto *const line = world.find<QLabel>("comparedLine");
    const int longest = line->fontMetrics().horizontalAdvance(QStringLiteral("なくなった 9通、"));
    int breaks = 0;
    for (int width = longest; width < 4 * longest; ++width) {
        QTextDocument text;
        text.setDefaultFont(line->font());
        text.setHtml(line->text());
        text.setTextWidth(width);
        (void)text.size(); // lays it out
        const QTextBlock block = text.begin();
        for (int i = 1; i < block.layout()->lineCount(); ++i) {
            ++breaks;
            QTextCursor at(block);
            at.setPosition(block.layout()->lineAt(i).textStart());
            const QString before = at.charFormat().anchorHref();
            at.movePosition(QTextCursor::NextCharacter);
            CHECK((before.isEmpty() || before != at.charFormat().anchorHref()));
        }
    }
    CHECK(breaks > 0);
}

TEST_CASE("another run can be picked for the comparison")
{
    LedgerWorld world(differentRows(5));
    world.openWindow();
    world.print("1-5");
    world.openAgain(nextRows());
    world.print("1-5");
    world.openAgain(differentRows(6));
    CHECK(lineOf(world, "comparedLine") ==
          "前回（5月21日）から：新しい 2通、変わった 1通、なくなった 1通　比べる相手…");
    follow(world, "comparedLine", "runs");
    auto *const menu = world.find<QMenu>("comparedRunMenu");
    CHECK(menu->isVisible());
    REQUIRE(menu->actions().size() == 2);
    CHECK(menu->actions()[1]->text() == QStringLiteral("5月20日 10:32　5通"));
    menu->actions()[1]->trigger();
    CHECK(lineOf(world, "comparedLine") == "5月20日 10:32 の5通から：新しい 1通　比べる相手…");
    CHECK(world.states()[5] == "未印刷 新");
    follow(world, "comparedLine", "added");
    CHECK(world.listed() == "6");
}

TEST_CASE("Tab reaches the links of the line above the list, and Enter follows them")
{
    LedgerWorld world(differentRows(5));
    world.openWindow();
    world.print("1-5");
    world.openAgain(nextRows());
    auto *const line = world.find<QLabel>("comparedLine");
    line->setFocus(Qt::TabFocusReason);
    QTest::keyClick(line, Qt::Key_Tab);
    QTest::keyClick(line, Qt::Key_Tab);
    QTest::keyClick(line, Qt::Key_Return);
    CHECK(world.listed() == "3");
}

TEST_CASE("persons with a printed letter of the same period are counted, listed and unticked")
{
    LedgerWorld world(differentRows(5));
    world.openWindow();
    CHECK(lineOf(world, "printedLine").empty());
    world.print("1-3");
    world.openAgain(nextRows());
    CHECK(lineOf(world, "printedLine") == "この期間の委任状を印刷済みの人が3通あります。表示　チェックを外す");
    follow(world, "printedLine", "printed");
    CHECK(world.listed() == "2 3 4");
    follow(world, "printedLine", "untick");
    CHECK(world.ticks() == "1,5");
}

TEST_CASE("the print dialog counts the letters to be printed that are printed already")
{
    LedgerWorld world(differentRows(4));
    world.openWindow();
    world.print("1-3");
    world.openAgain();
    const auto printedOf = [&](const char *numbers) {
        world.window->letters().ticks.setText(numbers);
        return world.printNotices().section(u'\n', -1).toStdString();
    };
    CHECK(printedOf("1-4") == "この期間の委任状を印刷済みの人が3通あります。");
    CHECK(printedOf("2,4") == "この期間の委任状を印刷済みの人が1通あります。");
    CHECK(printedOf("4").find("印刷済み") == std::string::npos);
}
