#include "runtime/text.h"

#include "support/errors.h"

#include <doctest/doctest.h>

#include <ostream>
#include <random>
#include <string_view>

namespace inin {
namespace {

// 𠮷 (U+20BB7) is outside the BMP: one character, two units, four bytes.

TEST_CASE("trimming removes ASCII blanks and keeps full-width blanks, tabs and inner blanks")
{
    CHECK(rtrim("  山田 太郎　  ") == "  山田 太郎　");
    CHECK(ltrim("  　山田 太郎 ") == "　山田 太郎 ");
    CHECK(trim("  \t山田 太郎\t  ") == "\t山田 太郎\t");
}

TEST_CASE("trimming a text of blanks returns the empty text")
{
    CHECK(rtrim("   ").empty());
    CHECK(ltrim("   ").empty());
    CHECK(trim("   ").empty());
    CHECK(trim("").empty());
}

TEST_CASE("length counts UTF-16 units")
{
    struct Row {
        std::string_view text;
        std::size_t units;
    };
    const Row rows[] = {{"", 0}, {"abc", 3}, {"委任状", 3}, {"ｱﾞ", 2}, {"é", 1}, {"𠮷野家", 4}, {"😀", 2}};
    for (const Row &row : rows) {
        CAPTURE(row.text);
        CHECK(length(row.text) == row.units);
    }
}

TEST_CASE("left returns the first units and omits a surrogate pair across the cut")
{
    struct Row {
        std::string_view text;
        std::size_t units;
        std::string_view expected;
    };
    const Row rows[] = {
        {"委任状", 2, "委任"}, {"委任状", 3, "委任状"}, {"委任状", 9, "委任状"}, {"委任状", 0, ""},   {"", 5, ""},
        {"a𠮷b", 1, "a"},      {"a𠮷b", 2, "a"},        {"a𠮷b", 3, "a𠮷"},      {"a𠮷b", 4, "a𠮷b"},
    };
    for (const Row &row : rows) {
        CAPTURE(row.text);
        CAPTURE(row.units);
        CHECK(left(row.text, row.units) == row.expected);
    }
}

TEST_CASE("mid counts from 1 and omits a surrogate pair across either end")
{
    struct Row {
        std::string_view text;
        std::size_t start;
        std::size_t units;
        std::string_view expected;
    };
    const Row rows[] = {
        {"委任状印刷", 1, 2, "委任"},
        {"委任状印刷", 4, 2, "印刷"},
        {"委任状印刷", 4, 99, "印刷"},
        {"委任状印刷", 6, 1, ""},
        {"委任状印刷", 99, 1, ""},
        {"委任状印刷", 2, 0, ""},
        {"a𠮷bc", 2, 2, "𠮷"},
        {"a𠮷bc", 2, 1, ""},
        {"a𠮷bc", 3, 1, ""},
        {"a𠮷bc", 3, 2, "b"},
        {"a𠮷bc", 3, 3, "bc"},
        {"a𠮷bc", 4, 1, "b"},
        {"", 1, 1, ""},
    };
    for (const Row &row : rows) {
        CAPTURE(row.text);
        CAPTURE(row.start);
        CAPTURE(row.units);
        CHECK(mid(row.text, row.start, row.units) == row.expected);
    }
}

TEST_CASE("mid with the largest count returns the rest of the text")
{
    CHECK(mid("a𠮷bc", 2, static_cast<std::size_t>(-1)) == "𠮷bc");
}

TEST_CASE("mid from position 0 is an invalid call")
{
    CHECK(errorOf([] { return mid("委任状", 0, 1); }) == 5);
}

TEST_CASE("a fixed text is padded with blanks and cut to its length")
{
    struct Row {
        std::string_view text;
        std::size_t units;
        std::string_view expected;
    };
    const Row rows[] = {
        {"ab", 4, "ab  "},    {"abcd", 4, "abcd"},   {"abcdef", 4, "abcd"}, {"", 3, "   "},
        {"委任", 3, "委任 "}, {"委任状", 2, "委任"}, {"abc", 0, ""},
    };
    for (const Row &row : rows) {
        CAPTURE(row.text);
        CHECK(fixedText(row.text, row.units) == row.expected);
    }
}

TEST_CASE("a fixed text has a blank in place of a surrogate pair across its end")
{
    CHECK(fixedText("ab𠮷", 3) == "ab ");
    CHECK(fixedText("ab𠮷", 4) == "ab𠮷");
}

TEST_CASE("lower case converts ASCII letters only")
{
    CHECK(asciiLower("Massage.INI ＡÀ委") == "massage.ini ＡÀ委");
    CHECK(asciiLower("@[`{") == "@[`{");
}

TEST_CASE("texts that differ only in ASCII case are equal")
{
    CHECK(equalsIgnoringAsciiCase("BaseID", "BASEid"));
    CHECK(equalsIgnoringAsciiCase("", ""));
    CHECK_FALSE(equalsIgnoringAsciiCase("BaseID", "BaseI"));
    CHECK_FALSE(equalsIgnoringAsciiCase("Ａ", "ａ"));
    CHECK_FALSE(equalsIgnoringAsciiCase("@", "`"));
}

TEST_CASE("left, mid and fixedText count units alike for any bytes")
{
    std::mt19937 random(20240501);
    for (int round = 0; round < 2000; ++round) {
        std::string text(random() % 12, '\0');
        for (char &byte : text) byte = static_cast<char>(random() % 3 == 0 ? random() : 0x80 + random() % 0x80);
        CAPTURE(text);
        const std::size_t units = random() % 14;
        const std::string head = left(text, units);
        CHECK(text.starts_with(head));
        CHECK(length(head) <= units);
        CHECK(head + mid(text, length(head) + 1, text.size()) == text);
        CHECK(length(fixedText(text, units)) == units);
    }
}

} // namespace
} // namespace inin
