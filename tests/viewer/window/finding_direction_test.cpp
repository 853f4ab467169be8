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

/// Five letters, of which the first, the third and the fourth hold 乙: with three of them the one before is not the next.
std::vector<Row> rowsWithThree()
{
    std::vector<Row> rows = differentRows(5);
    for (const std::size_t row : {std::size_t{0}, std::size_t{2}, std::size_t{3}}) rows[row]["利用者氏名"] = "乙山";
    return rows;
}

} // namespace

TEST_CASE("finding backwards goes to the letter before, and round the beginning to the last")
{
    WindowWorld world(rowsWithThree());
    OpenLetters letters(world.script);
    LetterFinder finder(letters);
    const QString text = QStringLiteral("乙");
    CHECK(finder.next(text, 3, Direction::backward) == std::size_t{2});
    CHECK(finder.next(text, 2, Direction::backward) == std::size_t{0});
    CHECK(finder.next(text, 0, Direction::backward) == std::size_t{3});
    CHECK(finder.next(text, 3, Direction::forward) == std::size_t{0});
}

TEST_CASE("Shift and Enter in the find box, and Shift and F3, show the letter before")
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

TEST_CASE("a list of numbers becomes its shortest form when the box is left, not while it is typed")
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

TEST_CASE("a letter that still holds what is typed stays while more of it is typed")
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
