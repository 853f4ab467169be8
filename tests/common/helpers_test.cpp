#include "common/helpers.h"

#include "runtime/runtime_error.h"
#include "support/errors.h"
#include "support/regional.h"

#include <doctest/doctest.h>

#include <cstdint>
#include <limits>
#include <ostream>
#include <string_view>

namespace inin {
namespace {

Variant least(const Variant &a, const Variant &b)
{
    return vMin(a, b);
}
Variant most(const Variant &a, const Variant &b)
{
    return vMax(a, b);
}

TEST_CASE("the lesser and the greater of two numbers are found by value, whatever their types")
{
    const Variant small(std::int16_t{9});
    const Variant large(31);
    CHECK(least(small, large) == small);
    CHECK(least(large, small) == small);
    CHECK(most(small, large) == large);
    CHECK(most(large, small) == large);
    CHECK(least(2.5, 2) == Variant(2));
    CHECK(most(-1, -1.5) == Variant(-1));
}

TEST_CASE("two texts are compared as texts, not as numbers")
{
    CHECK(least("9", "10") == Variant("10"));
    CHECK(most("9", "10") == Variant("9"));
    CHECK(least("ｱ", "ア") == Variant("ア"));
    CHECK(most("abc", "ab") == Variant("abc"));
}

TEST_CASE("texts beyond the first plane are less than U+E000, as in UTF-16 order")
{
    CHECK(least("Ａ", "𠮷") == Variant("𠮷"));
    CHECK(most("Ａ", "𠮷") == Variant("Ａ"));
    CHECK(least("家", "𠮷") == Variant("家"));
}

TEST_CASE("equal arguments give the first one")
{
    CHECK(least(std::int16_t{5}, 5) == Variant(std::int16_t{5}));
    CHECK(most(std::int16_t{5}, 5) == Variant(std::int16_t{5}));
    CHECK(least(5, std::int16_t{5}) == Variant(5));
    CHECK(most(5.0, 5) == Variant(5.0));
}

TEST_CASE("a Null in the second argument gives the first argument")
{
    CHECK(least(5, Null{}) == Variant(5));
    CHECK(most("x", Null{}) == Variant("x"));
}

TEST_CASE("a Null in the first argument gives Null")
{
    CHECK(least(Null{}, 5).isNull());
    CHECK(most(Null{}, 5).isNull());
    CHECK(most(Null{}, Null{}).isNull());
}

TEST_CASE("an Empty compares as 0 with a number and as the empty text with a text")
{
    CHECK(least(1, Variant()).isEmpty());
    CHECK(most(-1, Variant()).isEmpty());
    CHECK(most(Variant(), "a") == Variant("a"));
    CHECK(least("a", Variant()).isEmpty());
    CHECK(least("", Variant()) == Variant(""));
}

TEST_CASE("a number is less than every text")
{
    CHECK(least("1", 999) == Variant(999));
    CHECK(most(999, "1") == Variant("1"));
    CHECK(least(999, "1") == Variant(999));
}

TEST_CASE("dates compare by their day numbers")
{
    CHECK(least(Date(45413), Date(45412)) == Variant(Date(45412)));
    CHECK(most(Date(45413), 45414) == Variant(45414));
}

TEST_CASE("bytes cannot be compared")
{
    CHECK_THROWS_AS(least(Binary{}, 1), RuntimeError);
    CHECK_THROWS_AS(most(1, Binary{}), RuntimeError);
}

TEST_CASE("csNullToStr gives the empty text for Null and keeps every blank")
{
    CHECK(csNullToStr(Null{}, kRegional).empty());
    CHECK(csNullToStr(Variant(), kRegional).empty());
    CHECK(csNullToStr("  山田 　 ", kRegional) == "  山田 　 ");
    CHECK(csNullToStr(std::int16_t{12}, kRegional) == "12");
    CHECK(csNullToStr(-3, kRegional) == "-3");
    CHECK(csNullToStr(0.5, kRegional) == "0.5");
    CHECK(csNullToStr(Date(45413), kRegional) == "2024/05/01");
}

TEST_CASE("csNullToStr raises an error for a value without a text form")
{
    CHECK(errorOf([] { return csNullToStr(Binary{}, kRegional); }) == 13);
}

TEST_CASE("csCutNul gives the part before the first NUL")
{
    CHECK(csCutNul("委任状") == "委任状");
    CHECK(csCutNul("").empty());
    CHECK(csCutNul(std::string_view("\0abc", 4)).empty());
    CHECK(csCutNul(std::string_view("ab\0\0cd", 6)) == "ab");
    CHECK(csCutNul(std::string_view("ab \0", 4)) == "ab ");
}

TEST_CASE("csNullRTrim removes only ASCII blanks on the right")
{
    CHECK(csNullRTrim("  山田  ", kRegional) == "  山田");
    CHECK(csNullRTrim("山田　", kRegional) == "山田　");
    CHECK(csNullRTrim("山田　 ", kRegional) == "山田　");
    CHECK(csNullRTrim("   ", kRegional).empty());
    CHECK(csNullRTrim(12, kRegional) == "12");
}

TEST_CASE("csNullRTrim gives the empty text for Null and for any failure")
{
    CHECK(csNullRTrim(Null{}, kRegional).empty());
    CHECK(csNullRTrim(Binary{std::byte{65}}, kRegional).empty());
    CHECK(csNullRTrim(Date(1e10), kRegional).empty());
}

TEST_CASE("nNullToLong gives a 32-bit number and rounds halves to even")
{
    struct Row {
        Variant value;
        std::int32_t expected;
    };
    const Row rows[] = {
        {"12", 12},
        {" 12 ", 12},
        {2.5, 2},
        {3.5, 4},
        {"2.5", 2},
        {"3.5", 4},
        {-2.5, -2},
        {std::int16_t{-7}, -7},
        {Variant(), 0},
        {Date(45413), 45413},
        {2147483647, 2147483647},
        {2147483647.4, 2147483647},
        {-2147483648.0, std::numeric_limits<std::int32_t>::min()},
    };
    for (const Row &row : rows) CHECK(nNullToLong(row.value) == row.expected);
}

TEST_CASE("nNullToLong gives 0 for Null and for any failure")
{
    CHECK(nNullToLong(Null{}) == 0);
    CHECK(nNullToLong("") == 0);
    CHECK(nNullToLong("12a") == 0);
    CHECK(nNullToLong("2024/05/01") == 0);
    CHECK(nNullToLong(2147483648.0) == 0);
    CHECK(nNullToLong("2147483648") == 0);
    CHECK(nNullToLong(-2147483649.0) == 0);
    CHECK(nNullToLong(Binary{std::byte{1}}) == 0);
}

} // namespace
} // namespace inin
