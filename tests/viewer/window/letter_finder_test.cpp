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
    for (const char *const text : {"乙", "　", ""}) CHECK(finder.find(qt(text)) == std::vector<bool>(3));
}

TEST_CASE("a text is not found across two values")
{
    WindowWorld world(differentRows(1));
    OpenLetters letters(world.script);
    LetterFinder finder(letters);
    CHECK(finder.find(qt("甲1"))[0]);
    CHECK(finder.find(qt("香川県"))[0]);
    CHECK(!finder.find(qt("甲1香川県"))[0]);
}

TEST_CASE("finding continues after the current letter and wraps around, in both directions")
{
    const std::vector<std::size_t> all{0, 1, 2, 3, 4};
    const std::vector<bool> second{false, true, false, true, false}, only{false, false, false, true, false};
    CHECK(nextWanted(all, 0, Direction::forward, second) == std::size_t{1});
    CHECK(nextWanted(all, 1, Direction::forward, second) == std::size_t{3});
    CHECK(nextWanted(all, 3, Direction::forward, second) == std::size_t{1});
    CHECK(nextWanted(all, 1, Direction::backward, second) == std::size_t{3});
    CHECK(nextWanted(all, 3, Direction::forward, only) == std::size_t{3});
    CHECK(nextWanted(all, 3, Direction::forward, std::vector<bool>(5)) == std::nullopt);
}

TEST_CASE("finding follows the order of the list and leaves the list only when it has no match")
{
    const std::vector<std::size_t> listed{4, 1, 2};
    const std::vector<bool> wanted{true, true, true, false, false};
    CHECK(nextWanted(listed, 4, Direction::forward, wanted) == std::size_t{1});
    CHECK(nextWanted(listed, 1, Direction::forward, wanted) == std::size_t{2});
    CHECK(nextWanted(listed, 2, Direction::forward, wanted) == std::size_t{1});
    CHECK(nextWanted(listed, 1, Direction::backward, wanted) == std::size_t{2});
    CHECK(nextWanted(listed, 3, Direction::forward, wanted) == std::size_t{1});
    CHECK(nextWanted(listed, 3, Direction::backward, wanted) == std::size_t{2});
    CHECK(nextWanted(listed, 4, Direction::forward, {true, false, false, false, false}) == std::size_t{0});
    CHECK(nextWanted({}, 4, Direction::backward, wanted) == std::size_t{2});
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
