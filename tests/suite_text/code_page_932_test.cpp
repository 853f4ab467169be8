#include "suite_text/code_page_932.h"

#include <string>

#include <doctest/doctest.h>

using namespace inin;
using namespace std::string_literals;

namespace {
struct Pair {
    std::string utf8;
    std::string bytes;
};
} // namespace

TEST_CASE("characters of the code page survive encoding and decoding")
{
    const Pair pairs[] = {
        {"", ""},
        {"ABC 012\r\n\t\\~", "ABC 012\r\n\t\\~"},
        {"委任状", "\x88\xCF\x94\x43\x8F\xF3"},
        {"ｱｶﾞ｡ﾟ", "\xB1\xB6\xDE\xA1\xDF"},
        {"髙﨑", "\xFB\xFC\xFA\xB1"},
        {"①Ⅳ㈱№℡", "\x87\x40\x87\x57\x87\x8A\x87\x82\x87\x84"},
        {"\0委\0"s, "\0\x88\xCF\0"s},
        {"―∥－～￢￥", "\x81\x5C\x81\x61\x81\x7C\x81\x60\x81\xCA\x81\x8F"},
        {"＼", "\x81\x5F"},
    };
    for (const Pair &pair : pairs) {
        INFO(pair.utf8);
        CHECK(encodeCp932(pair.utf8) == pair.bytes);
        CHECK(decodeCp932(pair.bytes) == pair.utf8);
    }
}

TEST_CASE("both Unicode characters for dash, double bar, minus and wave dash are encoded")
{
    CHECK(encodeCp932("\u2014\u2016\u2212\u301C") == "\x81\x5C\x81\x61\x81\x7C\x81\x60");
    CHECK(encodeCp932("\u2015\u2225\uFF0D\uFF5E") == "\x81\x5C\x81\x61\x81\x7C\x81\x60");
    CHECK(decodeCp932("\x81\x5C\x81\x61\x81\x7C\x81\x60") == "\u2015\u2225\uFF0D\uFF5E");
}

TEST_CASE("a character outside the code page becomes one question mark")
{
    CHECK(encodeCp932("é") == "?");
    CHECK(encodeCp932("𠮷野家") == "?\x96\xEC\x89\xC6");
    CHECK(encodeCp932("¥¢©") == "???");
    CHECK(encodeCp932("\uFFFD") == "?");
    CHECK(encodeCp932("が") == "\x82\xAA"); // one character; the combining mark below is a second one
    CHECK(encodeCp932("か\u3099") == "\x82\xA9?");
}

TEST_CASE("a malformed UTF-8 sequence becomes a question mark and does not hide what follows")
{
    const Pair pairs[] = {
        {"a\x80z", "a?z"},           {"a\xFFz", "a?z"},
        {"a\xC0\xAFz", "a??z"},      {"a\xE5\xA7z", "a?z"},
        {"a\xED\xA0\x80z", "a???z"}, {"a\xF0\xA0\xAEz", "a?z"},
        {"a\xE5\xA7", "a?"},         {"\xE5\xA7\xE5\xA7\x94", "?\x88\xCF"},
    };
    for (const Pair &pair : pairs) CHECK(encodeCp932(pair.utf8) == pair.bytes);
}

TEST_CASE("a duplicate character is encoded with the code that the suite's system writes")
{
    struct Row {
        std::string read, written;
    };
    const Row rows[] = {
        {"\x87\x90", "\x81\xE0"}, {"\x87\x95", "\x81\xE3"}, {"\xFA\x54", "\x81\xCA"}, {"\xEE\xF9", "\x81\xCA"},
        {"\xFA\x4A", "\x87\x54"}, {"\xFA\x58", "\x87\x8A"}, {"\xFA\x5B", "\x81\xE6"}, {"\x87\x9A", "\x81\xE6"},
        {"\xED\x40", "\xFA\x5C"}, {"\xEE\xEF", "\xFA\x40"}, {"\xEE\xFA", "\xFA\x55"}, {"\xEE\xFC", "\xFA\x57"},
    };
    for (const Row &row : rows) CHECK(encodeCp932(decodeCp932(row.read)) == row.written);
}

TEST_CASE("user-defined characters keep their codes")
{
    CHECK(decodeCp932("\xF0\x40") == "\uE000");
    CHECK(decodeCp932("\xF0\xFC") == "\uE0BB");
    CHECK(decodeCp932("\xF9\xFC") == "\uE757");
    CHECK(encodeCp932("\uE000\uE757\uE758") == "\xF0\x40\xF9\xFC?");
}

TEST_CASE("a byte that is not a character is decoded as U+FFFD and decoding continues")
{
    const Pair pairs[] = {
        {"a\uFFFDz", "a\x80z"},   {"a\uFFFDz", "a\xA0z"}, {"a\uFFFDz", "a\xFDz"},       {"a\uFFFDz", "a\xFEz"},
        {"a\uFFFDz", "a\xFFz"},   {"a\uFFFD", "a\x81"},   {"\uFFFD\r\nz", "\x81\r\nz"}, {"\uFFFD\uFFFDz", "\x81\xFFz"},
        {"\uFFFDz", "\x85\x40z"}, {"\uFFFD z", "\x81 z"},
    };
    for (const Pair &pair : pairs) CHECK(decodeCp932(pair.bytes) == pair.utf8);
}

TEST_CASE("every double-byte character decodes and encodes to the same bytes")
{
    int characters = 0;
    for (int lead = 0x81; lead <= 0xFC; ++lead)
        for (int trail = 0x40; trail <= 0xFC; ++trail) {
            const std::string bytes = {static_cast<char>(lead), static_cast<char>(trail)};
            const auto unit = cp932Unit(static_cast<unsigned char>(lead), static_cast<unsigned char>(trail));
            if (unit == 0) continue;
            ++characters;
            const std::string utf8 = decodeCp932(bytes);
            if (decodeCp932(encodeCp932(utf8)) != utf8) FAIL_CHECK("lead ", lead, " trail ", trail);
        }
    // 6879 of JIS X 0208, 83 of row 13, 374 and 388 of the extensions, 1880 user-defined.
    CHECK(characters == 9604);
}

TEST_CASE("the lead bytes are 81 to 9F and E0 to FC")
{
    CHECK_FALSE(isCp932Lead(0x80));
    CHECK(isCp932Lead(0x81));
    CHECK(isCp932Lead(0x9F));
    CHECK_FALSE(isCp932Lead(0xA0));
    CHECK_FALSE(isCp932Lead(0xDF));
    CHECK(isCp932Lead(0xE0));
    CHECK(isCp932Lead(0xFC));
    CHECK_FALSE(isCp932Lead(0xFD));
}
