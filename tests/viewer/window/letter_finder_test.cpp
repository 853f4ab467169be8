#include "viewer/window/window_world.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <doctest/doctest.h>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

struct KeyCase {
    const char *name;
    const char *typed;
};

QString qt(const char *text)
{
    return QString::fromUtf8(text);
}

/// Enters a text in one piece, as an input method does.
void type(QWidget &box, const char *text)
{
    QInputMethodEvent event;
    event.setCommitString(qt(text));
    QApplication::sendEvent(&box, &event);
}

} // namespace

TEST_CASE("a text is found regardless of width, case, kana and blanks")
{
    for (const KeyCase &each : {KeyCase{"ABC治療院", "ａｂｃ"}, KeyCase{"ﾀｶﾊｼ ｼﾞﾛｳ", "たかはしじろう"},
                                KeyCase{"長尾　西", "長尾西"}, KeyCase{"１２３番地", "123"}, KeyCase{"ガ", "ｶﾞ"}}) {
        CAPTURE(each.name);
        CHECK(searchKey(qt(each.name)).contains(searchKey(qt(each.typed))));
    }
}

TEST_CASE("a rare variant of a name is found by the common one, and vice versa")
{
    for (const KeyCase &each : {KeyCase{"髙橋", "高橋"}, KeyCase{"山崎", "山﨑"}, KeyCase{"𠮷田", "吉田"}}) {
        CAPTURE(each.name);
        CHECK(searchKey(qt(each.name)) == searchKey(qt(each.typed)));
    }
}

TEST_CASE("a search for an absent text finds nothing")
{
    WindowWorld world(differentRows(3));
    OpenLetters letters(world.script);
    LetterFinder finder(letters);
    CHECK(finder.next(qt("乙"), 0, Direction::forward) == std::nullopt);
    CHECK(finder.next(qt("　"), 0, Direction::forward) == std::nullopt);
    CHECK(finder.count(qt("")) == 0);
}

TEST_CASE("a text is not found across two values")
{
    WindowWorld world(differentRows(1));
    OpenLetters letters(world.script);
    LetterFinder finder(letters);
    CHECK(finder.holds(0, qt("甲1")));
    CHECK(finder.holds(0, qt("香川県")));
    CHECK(!finder.holds(0, qt("甲1香川県")));
}

TEST_CASE("finding continues after the current letter and wraps around, in both directions")
{
    std::vector<Row> rows = differentRows(5);
    rows[1]["利用者氏名"] = "乙山";
    rows[3]["利用者氏名"] = "乙川";
    WindowWorld world(rows);
    OpenLetters letters(world.script);
    LetterFinder finder(letters);
    CHECK(finder.next(qt("乙"), 0, Direction::forward) == std::size_t{1});
    CHECK(finder.next(qt("乙"), 1, Direction::forward) == std::size_t{3});
    CHECK(finder.next(qt("乙"), 3, Direction::forward) == std::size_t{1});
    CHECK(finder.next(qt("乙"), 1, Direction::backward) == std::size_t{3});
    CHECK(finder.next(qt("乙川"), 3, Direction::forward) == std::size_t{3});
    CHECK(finder.count(qt("乙")) == 2);
}

TEST_CASE("typing in the find box shows the first match, Enter the next, Shift+Enter the previous")
{
    std::vector<Row> rows = differentRows(5);
    rows[1]["利用者氏名"] = "乙山";
    rows[3]["利用者氏名"] = "乙川";
    WindowWorld world(rows);
    world.openWindow();
    auto *const box = world.find<QLineEdit>("find");
    const auto shown = [&] { return world.find<QWidget>("pageView")->accessibleDescription(); };
    type(*box, "乙");
    CHECK(shown().startsWith(qt("2番　")));
    CHECK(world.find<QLabel>("found")->text() == qt("2通"));
    QTest::keyClick(box, Qt::Key_Return);
    CHECK(shown().startsWith(qt("4番　")));
    QTest::keyClick(box, Qt::Key_Return, Qt::ShiftModifier);
    CHECK(shown().startsWith(qt("2番　")));
    type(*box, "川");
    CHECK(shown().startsWith(qt("4番　")));
    type(*box, "丙");
    CHECK(world.find<QLabel>("found")->text() == qt("ありません"));
    CHECK(shown().startsWith(qt("4番　")));
}
