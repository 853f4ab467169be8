#include "runtime/conversion.h"
#include "runtime/number_text.h"
#include "support/errors.h"
#include "support/regional.h"

#include <doctest/doctest.h>

#include <limits>
#include <ostream>
#include <string_view>

namespace inin {
namespace {

TEST_CASE("numeric text may have blanks, a sign, commas, a point, an exponent or parentheses")
{
    struct Row {
        std::string_view text;
        double value;
    };
    const Row rows[] = {
        {"0", 0},
        {"12", 12},
        {"\t 12 \r\n", 12},
        {"　12　", 12},
        {"-12", -12},
        {"+12", 12},
        {"12-", -12},
        {"(12)", -12},
        {" ( 12 ) ", -12},
        {"1,234,567.5", 1234567.5},
        {"1.234,5", 1.2345},
        {"1.2,3,4,", 1.234},
        {"(1,2.,3)", -12.3},
        {"1.5,E3", 1500},
        {"-.,5", -0.5},
        {"1.5E3", 1500},
        {"1.5e-3", 0.0015},
        {"2d2", 200},
        {".5", 0.5},
        {"5.", 5},
        {"1e-400", 0},
        {"0.0000000000001", 1e-13},
    };
    for (const Row &row : rows) {
        CAPTURE(row.text);
        CHECK(numberFromText(row.text) == row.value);
    }
}

TEST_CASE("a text of another form is a type mismatch")
{
    for (const std::string_view text :
         {"",     " ",   "+",   "-",  ".",  ",",   "e3",  "1e",     "1e+",   "a",          "12a",      "1 2", "1.2.3",
          "--1",  "1--", "-1-", "(1", "1)", ".,",  ",.5", "1.5 ,2", "((1))", ")1(",        "１２",     "¥12", "12%",
          "0x10", "NaN", "inf", "&",  "&H", "&HG", "&O8", "&X1",    "-&H1",  "2024/05/01", "\xE3\x80", "\xFF"}) {
        CAPTURE(text);
        CHECK(errorOf([&] { return numberFromText(text); }) == 13);
    }
}

TEST_CASE("a leading number ends at the first character that is not part of it, and is 0 if there is none")
{
    struct Row {
        std::string_view text;
        double value;
    };
    const Row rows[] = {
        {"", 0},        {"無料", 0},    {"円340", 0},      {"-", 0},       {".", 0},
        {"340", 340},   {"340円", 340}, {" 1 550 ", 1550}, {"\t1\n2", 12}, {"-12a", -12},
        {"+12", 12},    {"--1", 0},     {"-+5", 0},        {"1e-+2", 1},   {"12-", 12},
        {"1,234", 1},   {"1.5.3", 1.5}, {".5x", 0.5},      {"5.", 5},      {"1e2", 100},
        {"1d-1", 0.1},  {"1e", 1},      {"1e+x", 1},       {"2e+1", 20},   {"2024/05/01", 2024},
        {"（340）", 0}, {"４", 0},      {"1e-400", 0},
    };
    for (const Row &row : rows) {
        CAPTURE(row.text);
        CHECK(leadingNumber(row.text) == row.value);
    }
    CHECK(errorOf([] { return leadingNumber("1e309円"); }) == 6);
}

TEST_CASE("a number that does not fit a double overflows in every notation")
{
    for (const std::string &text : {std::string("1e309"), std::string("-1e309"), "1" + std::string(400, '0'),
                                    std::string("1e9999999999"), std::string("1e9223372036854775807"),
                                    std::string("1e99999999999999999999999"), std::string("1.7976931348623159e308")}) {
        CAPTURE(text);
        CHECK(errorOf([&] { return numberFromText(text); }) == 6);
    }
}

TEST_CASE("a number too small for a double is 0")
{
    for (const std::string &text :
         {std::string("1e-999"), "0." + std::string(400, '0') + "1", std::string("1e-9999999999"),
          std::string("1e-99999999999999999999999"), std::string("0e99999")}) {
        CAPTURE(text);
        CHECK(numberFromText(text) == 0);
    }
}

TEST_CASE("all digits of a numeric text count")
{
    CHECK(numberFromText("123456789.123456789") == 123456789.123456789);
    CHECK(numberFromText("12345678901234567") == 12345678901234567.0);
    CHECK(numberFromText("0.49999999999999994") == 0.49999999999999994);
    CHECK(toLong(Variant("0.49999999999999994")) == 0);
    CHECK(toLong(Variant("2.5000000000000004")) == 3);
}

TEST_CASE("a NUL ends a numeric text")
{
    CHECK(numberFromText(std::string_view("12\0xyz", 6)) == 12);
    CHECK(errorOf([] {
              return numberFromText(std::string_view("\0"
                                                     "12",
                                                     3));
          }) == 13);
}

TEST_CASE("an &H or &O text is the bit pattern of the required type")
{
    CHECK(toInteger(Variant("&H7FFF")) == 32767);
    CHECK(toInteger(Variant("&hffff")) == -1);
    CHECK(toLong(Variant("&HFFFF")) == 65535);
    CHECK(toLong(Variant("&H80000000")) == std::numeric_limits<std::int32_t>::min());
    CHECK(toLong(Variant("&O17")) == 15);
    CHECK(toDouble(Variant("&H7FFFFFFF")) == 2147483647.0);
}

TEST_CASE("an &H text with more bits than the type overflows")
{
    CHECK(errorOf([] { return toInteger(Variant("&H10000")); }) == 6);
    CHECK(errorOf([] { return toLong(Variant("&H100000000")); }) == 6);
    CHECK(errorOf([] { return toDouble(Variant("&H80000000")); }) == 6);
}

TEST_CASE("numbers, Empty and numeric texts are numeric")
{
    CHECK(isNumeric(Variant()));
    CHECK(isNumeric(Variant(std::int16_t{1})));
    CHECK(isNumeric(Variant(1)));
    CHECK(isNumeric(Variant(1.5)));
    CHECK(isNumeric(Variant(" 1,000 ")));
    CHECK(isNumeric(Variant("&HFF")));
}

TEST_CASE("Null, dates, bytes and other texts are not numeric")
{
    CHECK_FALSE(isNumeric(Variant(Null{})));
    CHECK_FALSE(isNumeric(Variant(Date(1))));
    CHECK_FALSE(isNumeric(Variant(Binary{})));
    CHECK_FALSE(isNumeric(Variant("")));
    CHECK_FALSE(isNumeric(Variant("1e400")));
    CHECK_FALSE(isNumeric(Variant("2024/05/01")));
}

} // namespace
} // namespace inin
