#include "runtime/runtime_error.h"
#include "viewer/document/letter_ticks.h"

#include <doctest/doctest.h>

using namespace inin;
using namespace inin::viewer;

TEST_CASE("all letters are ticked at first")
{
    const LetterTicks ticks(12);
    CHECK(ticks.count() == 12);
    CHECK(ticks.text() == "1-12");
}

TEST_CASE("the box's text sets the ticks, in the letters' own order")
{
    LetterTicks ticks(9);
    ticks.setText("５，1－3");
    CHECK(ticks.text() == "1-3,5");
    CHECK(ticks.letters() == std::vector<std::size_t>{0, 1, 2, 4});
    CHECK(ticks.count() == 4);
}

TEST_CASE("an empty text in the box unticks all letters")
{
    LetterTicks ticks(3);
    ticks.setAll(false);
    CHECK(ticks.text().empty());
    ticks.setAll(true);
    ticks.setText(" 　");
    CHECK(ticks.count() == 0);
}

TEST_CASE("an unreadable text leaves the ticks as they were")
{
    LetterTicks ticks(5);
    ticks.setText("2,4");
    for (const char *text : {"6", "0", "1-9", "二", "1,,2", "1;2", "-"}) {
        CAPTURE(text);
        CHECK_THROWS_AS(ticks.setText(text), RuntimeError);
        CHECK(ticks.text() == "2,4");
    }
}

TEST_CASE("a letter ticked twice counts once")
{
    LetterTicks ticks(4);
    ticks.set(2, false);
    ticks.set(2, false);
    CHECK(ticks.count() == 3);
    CHECK(ticks.text() == "1-2,4");
    ticks.set(2, true);
    CHECK(ticks.count() == 4);
}
