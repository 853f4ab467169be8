#include "adapters/odbc/utf16.h"

#include <doctest/doctest.h>

using namespace inin;
using namespace inin::odbc;

TEST_CASE("Japanese text and characters outside the BMP convert to UTF-16 and back")
{
    CHECK(utf16FromUtf8("aé委𠮷") == u"aé委𠮷");
    CHECK(utf8FromUtf16(u"aé委𠮷😀") == "aé委𠮷😀");
}

TEST_CASE("each malformed UTF-8 byte becomes one replacement character")
{
    CHECK(utf16FromUtf8("a\x80z") == u"a\uFFFDz");
    CHECK(utf16FromUtf8("\xC0\xAF") == u"\uFFFD\uFFFD");
    CHECK(utf16FromUtf8("\xE5\xA7") == u"\uFFFD\uFFFD");
    CHECK(utf16FromUtf8("\xED\xA0\x80") == u"\uFFFD\uFFFD\uFFFD");
    CHECK(utf16FromUtf8("\xF5\x80\x80\x80") == u"\uFFFD\uFFFD\uFFFD\uFFFD");
}

TEST_CASE("an unpaired surrogate becomes a replacement character")
{
    const std::u16string lead{u'a', char16_t{0xD842}, u'b'};
    const std::u16string trail{char16_t{0xDFB7}, u'b'};
    CHECK(utf8FromUtf16(lead) == "a\uFFFDb");
    CHECK(utf8FromUtf16(trail) == "\uFFFDb");
    CHECK(utf8FromUtf16(std::u16string(1, char16_t{0xD842})) == "\uFFFD");
}
