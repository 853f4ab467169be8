#include "viewer/window/window_world.h"

#include <QAction>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>
#include <QStatusBar>
#include <QTableView>
#include <QTest>
#include <doctest/doctest.h>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

using Numbers = std::vector<std::string>;

/// Six letters; the second and the fifth have findings, and the patients of the third and the fifth contain 乙.
struct Filtered : WindowWorld {
    Filtered() : WindowWorld(rows())
    {
        openWindow();
        REQUIRE(QTest::qWaitForWindowActive(window.get()));
        list()->setFocus();
    }
    static std::vector<Row> rows()
    {
        std::vector<Row> rows = differentRows(6);
        rows[1]["口座名義"] = "";
        rows[4]["会社名称"] = "";
        rows[2]["利用者氏名"] = "乙川";
        rows[4]["利用者氏名"] = "乙山";
        rows[3]["保険者名"] = "さぬき市";
        return rows;
    }
    [[nodiscard]] QTableView *list() const { return find<QTableView>("letterList"); }
    [[nodiscard]] Numbers listed() const
    {
        Numbers numbers;
        for (int row = 0; row < list()->model()->rowCount(); ++row)
            numbers.push_back(list()->model()->index(row, 0).data().toString().toStdString());
        return numbers;
    }
    [[nodiscard]] std::string ticks() const { return window->letters().ticks.text(); }
    [[nodiscard]] QLabel *note() const { return find<QLabel>("listNote"); }
    void act(const char *name) const { find<QAction>(name)->trigger(); }
    void search(const QString &text) const
    {
        auto *const box = find<QLineEdit>("find");
        box->clear();
        box->insert(text);
        emit box->textEdited(text);
    }
};

} // namespace

TEST_CASE("the list can be filtered by findings, ticks and search, and shows how many letters remain")
{
    Filtered world;
    CHECK(world.listed() == Numbers{"1", "2", "3", "4", "5", "6"});
    CHECK(!world.note()->isVisible());

    world.window->setFilter(ListFilter::flagged);
    CHECK(world.listed() == Numbers{"2", "5"});
    CHECK(world.note()->text().startsWith(QStringLiteral("2通を表示しています。")));
    CHECK(world.note()->isVisible());

    world.find<QLineEdit>("rangeBox")->setText(QStringLiteral("1,6"));
    emit world.find<QLineEdit>("rangeBox")->textEdited({});
    world.window->setFilter(ListFilter::ticked);
    CHECK(world.listed() == Numbers{"1", "6"});

    world.search(QStringLiteral("乙"));
    world.window->setFilter(ListFilter::found);
    CHECK(world.listed() == Numbers{"3", "5"});
    world.search(QStringLiteral("乙山"));
    CHECK(world.listed() == Numbers{"5"});

    world.window->setFilter(ListFilter::all);
    CHECK(world.listed().size() == 6);
    CHECK(!world.note()->isVisible());
}

TEST_CASE("a filter shows its first letter unless it lists the current one")
{
    Filtered world;
    world.window->showLetter(4);
    world.window->setFilter(ListFilter::flagged);
    CHECK(world.shownNumber() == "5");
    world.window->setFilter(ListFilter::all);
    world.window->showLetter(3);
    world.window->setFilter(ListFilter::flagged);
    CHECK(world.shownNumber() == "2");
    CHECK(world.list()->currentIndex().data().toString() == QStringLiteral("2"));
}

TEST_CASE("a letter that the filter hides is shown by its number, and the list shows all letters again")
{
    Filtered world;
    world.window->setFilter(ListFilter::flagged);
    world.find<QSpinBox>("number")->setValue(4);
    CHECK(world.shownNumber() == "4");
    CHECK(world.listed().size() == 6);
    CHECK(world.find<QComboBox>("filter")->currentIndex() == 0);
}

TEST_CASE("a letter that is unticked in the list of ticked letters stays there and can be ticked again")
{
    Filtered world;
    world.window->setFilter(ListFilter::ticked);
    QTest::keyClick(world.list(), Qt::Key_Space);
    CHECK(world.ticks() == "2-6");
    CHECK(world.listed().size() == 6);
    QTest::keyClick(world.list(), Qt::Key_Space);
    CHECK(world.ticks() == "1-6");
    world.act("tickNone");
    CHECK(world.listed().empty());
}

TEST_CASE("a text without a match empties the list of found letters, and an empty text fills it")
{
    Filtered world;
    world.window->setFilter(ListFilter::found);
    CHECK(world.listed().size() == 6);
    world.search(QStringLiteral("丙"));
    CHECK(world.listed().empty());
    CHECK(world.shownNumber() == "1");
    world.search({});
    CHECK(world.listed().size() == 6);
}

TEST_CASE("the list of found letters follows the typed text and shows its first letter")
{
    Filtered world;
    world.window->setFilter(ListFilter::found);
    world.window->showLetter(5);
    world.search(QStringLiteral("乙"));
    CHECK(world.listed() == Numbers{"3", "5"});
    CHECK(world.shownNumber() == "3");
    world.search(QStringLiteral("乙山"));
    CHECK(world.shownNumber() == "5");
    world.search(QStringLiteral("乙山丙"));
    CHECK(world.listed().empty());
    CHECK(world.shownNumber() == "5");
}

TEST_CASE("a click on a heading sorts the list for viewing; the print order stays and is stated")
{
    Filtered world;
    QHeaderView *const head = world.list()->horizontalHeader();
    const auto click = [&](int column) {
        QTest::mouseClick(head->viewport(), Qt::LeftButton, {},
                          {head->sectionViewportPosition(column) + 20, head->height() / 2});
    };
    click(2);
    CHECK(world.listed() == Numbers{"5", "3", "1", "2", "4", "6"});
    CHECK(world.note()->text() ==
          QStringLiteral("印刷するのはチェックした委任状で、順は印刷の設定の「並べ方」のとおりです。"));
    click(3);
    CHECK(world.listed() == Numbers{"5", "2", "1", "3", "4", "6"});
    click(1);
    CHECK(world.listed() == Numbers{"4", "1", "2", "3", "5", "6"});

    world.pdfFile = QString::fromStdString(world.folder / "o.pdf");
    world.window->savePdf({true, false, {}});
    const std::vector<std::string> pages = pagesOf(world.folder / "o.pdf");
    REQUIRE(pages.size() == 6);
    CHECK(contains(packed(pages[0]), "甲1"));
    CHECK(contains(packed(pages[5]), "甲6"));

    click(0);
    CHECK(world.listed() == Numbers{"1", "2", "3", "4", "5", "6"});
    CHECK(!world.note()->isVisible());
    click(0);
    CHECK(world.listed() == Numbers{"6", "5", "4", "3", "2", "1"});
    CHECK(world.note()->isVisible());
}

TEST_CASE("moving through the letters follows the list, sorted and filtered")
{
    Filtered world;
    world.act("sortPatient");
    world.act("first");
    CHECK(world.shownNumber() == "5");
    world.act("next");
    CHECK(world.shownNumber() == "3");
    world.act("last");
    CHECK(world.shownNumber() == "6");
    world.window->setFilter(ListFilter::flagged);
    CHECK(world.listed() == Numbers{"5", "2"});
    world.act("first");
    world.act("next");
    CHECK(world.shownNumber() == "2");
    world.act("next");
    CHECK(world.shownNumber() == "2");
}

TEST_CASE("F8 shows the next letter with findings and wraps around, Shift+F8 the previous one")
{
    Filtered world;
    world.press(Qt::Key_F8);
    CHECK(world.shownNumber() == "2");
    world.press(Qt::Key_F8);
    CHECK(world.shownNumber() == "5");
    world.press(Qt::Key_F8);
    CHECK(world.shownNumber() == "2");
    world.press(Qt::Key_F8, Qt::ShiftModifier);
    CHECK(world.shownNumber() == "5");
}

TEST_CASE("F8 reports that no letter has findings")
{
    WindowWorld world(differentRows(2));
    world.openWindow();
    world.find<QAction>("nextFlagged")->trigger();
    CHECK(world.window->statusBar()->currentMessage() == QStringLiteral("注意のある委任状はありません。"));
    CHECK(world.shownNumber() == "1");
}

TEST_CASE("the found letters can be ticked in addition or alone")
{
    Filtered world;
    world.act("tickNone");
    world.window->letters().ticks.set(0, true);
    world.search(QStringLiteral("乙"));
    world.press(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
    CHECK(world.ticks() == "1,3,5");
    CHECK(world.find<QLineEdit>("rangeBox")->text() == QStringLiteral("1,3,5"));
    world.search(QStringLiteral("乙山"));
    world.press(Qt::Key_O, Qt::ControlModifier | Qt::ShiftModifier);
    CHECK(world.ticks() == "5");
}

TEST_CASE("without a found letter the ticks stay as they are")
{
    Filtered world;
    for (const char *const text : {"", "丙"}) {
        CAPTURE(text);
        world.search(QString::fromUtf8(text));
        world.act("tickOnlyFound");
        CHECK(world.ticks() == "1-6");
        CHECK(world.window->statusBar()->currentMessage() ==
              QStringLiteral("検索で見つかった委任状がありません。チェックはそのままです。"));
    }
}

TEST_CASE("Ctrl+Home and Ctrl+End show the first and the last letter while the find box has the focus")
{
    Filtered world;
    auto *const box = world.find<QLineEdit>("find");
    box->setFocus();
    world.press(Qt::Key_End, Qt::ControlModifier);
    CHECK(world.shownNumber() == "6");
    world.press(Qt::Key_Home, Qt::ControlModifier);
    CHECK(world.shownNumber() == "1");
    QTest::keyClicks(box, QStringLiteral("abc"));
    world.press(Qt::Key_Home);
    CHECK(box->cursorPosition() == 0);
}
