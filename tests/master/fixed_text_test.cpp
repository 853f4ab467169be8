#include "master/fixed_text.h"

#include <doctest/doctest.h>

using namespace inin;

TEST_CASE("a fixed text without an assignment is full of NULs")
{
    CHECK(FixedText<3>().text() == std::string(3, '\0'));
}

TEST_CASE("a fixed text counts characters, is padded with blanks and truncated")
{
    struct Row {
        const char *claim;
        const char *assigned;
        const char *held;
    };
    const Row rows[] = {
        {"an empty text leaves blanks", "", "        "},
        {"a short one stands on the left", "12", "12      "},
        {"one that just fits stays", "123-4567", "123-4567"},
        {"one character more is cut", "123-45678", "123-4567"},
        {"blanks on the left stay", "  1", "  1     "},
        {"a Japanese character is one", "一二三四五六七", "一二三四五六七 "},
        {"Japanese characters are cut as characters", "一二三四五六七八九", "一二三四五六七八"},
        {"half-width katakana are one each", "ｱｲｳｴｵｶｷｸｹ", "ｱｲｳｴｵｶｷｸ"},
        {"a pair counts as two", "𠮷田", "𠮷田     "},
        {"a pair that just fits stays", "123456𠮷", "123456𠮷"},
        {"a pair across the cut goes whole, a blank takes its place", "1234567𠮷", "1234567 "},
    };
    for (const Row &row : rows) {
        CAPTURE(row.claim);
        FixedText<8> text;
        text = row.assigned;
        CHECK(text.text() == row.held);
    }
}

TEST_CASE("a shorter text keeps nothing of the longer one before it")
{
    FixedText<4> text;
    text = "abcd";
    text = "x";
    CHECK(text.text() == "x   ");
}

TEST_CASE("fixed texts are equal by their contents, and NULs differ from blanks")
{
    FixedText<2> blanks;
    blanks = "";
    FixedText<2> same;
    same = "  ";
    CHECK(blanks == same);
    CHECK_FALSE(blanks == FixedText<2>());
}
