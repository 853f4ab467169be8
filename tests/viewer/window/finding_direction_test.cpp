#include "viewer/window/letter_finder.h"
#include "viewer/window/window_world.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QTableView>
#include <QTest>
#include <doctest/doctest.h>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

/// Five letters, of which the first, the third and the fourth contain 乙: with three matches, previous and next differ.
std::vector<Row> rowsWithThree()
{
    std::vector<Row> rows = differentRows(5);
    for (const std::size_t row : {std::size_t{0}, std::size_t{2}, std::size_t{3}}) rows[row]["利用者氏名"] = "乙山";
    return rows;
}

} // namespace

TEST_CASE("finding backwards shows the previous match and wraps from the first to the last")
{
    const std::vector<std::size_t> all{0, 1, 2, 3, 4};
    const std::vector<bool> wanted{true, false, true, true, false};
    CHECK(nextWanted(all, 3, Direction::backward, wanted) == std::size_t{2});
    CHECK(nextWanted(all, 2, Direction::backward, wanted) == std::size_t{0});
    CHECK(nextWanted(all, 0, Direction::backward, wanted) == std::size_t{3});
    CHECK(nextWanted(all, 3, Direction::forward, wanted) == std::size_t{0});
}

TEST_CASE("Shift+Enter in the find box and Shift+F3 show the previous match")
{
    WindowWorld world(rowsWithThree());
    world.openWindow();
    auto *const box = world.find<QLineEdit>("find");
    const auto shown = [&] { return world.find<QWidget>("pageView")->accessibleDescription().section(u'番', 0, 0); };
    box->setText(QStringLiteral("乙"));
    QTest::keyClick(box, Qt::Key_Return);
    REQUIRE(shown() == QStringLiteral("3"));
    QTest::keyClick(box, Qt::Key_Return, Qt::ShiftModifier);
    CHECK(shown() == QStringLiteral("1"));
    QTest::keyClick(box, Qt::Key_Return, Qt::ShiftModifier);
    CHECK(shown() == QStringLiteral("4"));
    QTest::keyClick(box, Qt::Key_F3, Qt::ShiftModifier);
    CHECK(shown() == QStringLiteral("3"));
    QTest::keyClick(box, Qt::Key_F3);
    CHECK(shown() == QStringLiteral("4"));
}

TEST_CASE("a list of numbers becomes its shortest form when the box loses the focus, not while the user types")
{
    WindowWorld world(differentRows(6));
    world.openWindow();
    auto *const box = world.find<QLineEdit>("rangeBox");
    box->setFocus();
    box->selectAll();
    QTest::keyClicks(box, QStringLiteral("1,2,3,5"));
    CHECK(box->text() == QStringLiteral("1,2,3,5"));
    QTest::keyClick(box, Qt::Key_Tab);
    CHECK(box->text() == QStringLiteral("1-3,5"));
}

TEST_CASE("the current letter stays while it contains the text typed so far")
{
    WindowWorld world(rowsWithThree());
    world.openWindow();
    auto *const box = world.find<QLineEdit>("find");
    const auto shown = [&] { return world.find<QWidget>("pageView")->accessibleDescription().section(u'番', 0, 0); };
    world.find<QTableView>("letterList")->setCurrentIndex(world.find<QTableView>("letterList")->model()->index(2, 0));
    for (const QChar letter : QStringLiteral("乙山")) {
        QInputMethodEvent composed;
        composed.setCommitString(letter);
        QApplication::sendEvent(box, &composed);
        CHECK(shown() == QStringLiteral("3"));
    }
}
