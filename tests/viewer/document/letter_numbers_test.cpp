#include "runtime/runtime_error.h"
#include "viewer/document/letter_numbers.h"

#include <doctest/doctest.h>

using namespace inin;
using namespace inin::viewer;

using Letters = std::vector<std::size_t>;

TEST_CASE("a list of letters is read in its order, each letter once")
{
    struct Case {
        std::string text;
        Letters letters;
    };
    const Case cases[] = {
        {"", {0, 1, 2, 3, 4, 5, 6, 7}},
        {"1-3,7", {0, 1, 2, 6}},
        {"7,1-3", {6, 0, 1, 2}},
        {"3-1", {2, 1, 0}},
        {"2,2,1-3", {1, 0, 2}},
        {"6-", {5, 6, 7}},
        {"-2", {0, 1}},
        {" 1 , 3 ", {0, 2}},
        {"１－３，７", {0, 1, 2, 6}},
        {"８", {7}},
    };
    for (const Case &each : cases) {
        CAPTURE(each.text);
        CHECK(readLetterList(each.text, 8) == each.letters);
    }
}

TEST_CASE("a letter that does not exist and an invalid list are refused")
{
    CHECK_THROWS_WITH_AS(static_cast<void>(readLetterList("9", 8)), "9番の委任状はありません（1～8）。", RuntimeError);
    CHECK_THROWS_WITH_AS(static_cast<void>(readLetterList("0", 8)), "0番の委任状はありません（1～8）。", RuntimeError);
    CHECK_THROWS_WITH_AS(static_cast<void>(readLetterList("1-4000000000", 8)),
                         "4000000000番の委任状はありません（1～8）。", RuntimeError);
    for (const char *text : {"a", "1,,2", "-", "1-2-3", "1.5", ","}) {
        CAPTURE(std::string(text));
        CHECK_THROWS_AS(static_cast<void>(readLetterList(text, 8)), RuntimeError);
    }
}

TEST_CASE("letters are written as the shortest list")
{
    CHECK(letterListText({6, 0, 1, 2}) == "1-3,7");
    CHECK(letterListText({0, 1}) == "1-2");
    CHECK(letterListText({}).empty());
}
