#include "runtime/utf8.h"

#include "runtime/text.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <random>
#include <string>
#include <string_view>

namespace inin {
namespace {

struct DecodingRow {
    std::string_view claim;
    std::string_view bytes;
    std::u32string_view characters;
};
constexpr DecodingRow kValid[] = {
    {"the empty text", "", U""},
    {"the last of one byte", "\x7F", U"\x7F"},
    {"the first and the last of two bytes", "\xC2\x80\xDF\xBF", U"\x80\x7FF"},
    {"the first and the last of three bytes", "\xE0\xA0\x80\xEF\xBF\xBF", U"\x800\xFFFF"},
    {"three bytes after the overlong forms", "\xE1\x80\x80\xEC\xBF\xBF", U"\x1000\xCFFF"},
    {"the neighbours of the surrogates", "\xED\x9F\xBF\xEE\x80\x80", U"\xD7FF\xE000"},
    {"the first and the last of four bytes", "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF", U"\x10000\x10FFFF"},
    {"Japanese", "aé委𠮷", U"aé委𠮷"},
};
constexpr DecodingRow kMalformed[] = {
    {"a lone continuation byte", "a\x80z", U"a\xFFFDz"},
    {"a run of continuation bytes", "あ\x80\xBF", U"あ\xFFFD\xFFFD"},
    {"an overlong form of two bytes", "\xC0\xAF\xC1\xBF", U"\xFFFD\xFFFD\xFFFD\xFFFD"},
    {"an overlong form of three bytes", "\xE0\x80\xAF", U"\xFFFD\xFFFD\xFFFD"},
    {"the last overlong form of three bytes", "\xE0\x9F\xBF", U"\xFFFD\xFFFD\xFFFD"},
    {"an overlong form of four bytes", "\xF0\x8F\xBF\xBF", U"\xFFFD\xFFFD\xFFFD\xFFFD"},
    {"the first surrogate", "\xED\xA0\x80", U"\xFFFD\xFFFD\xFFFD"},
    {"the last surrogate", "\xED\xBF\xBF", U"\xFFFD\xFFFD\xFFFD"},
    {"above U+10FFFF", "\xF4\x90\x80\x80", U"\xFFFD\xFFFD\xFFFD\xFFFD"},
    {"a lead byte above F4", "\xF5\x80\x80\x80", U"\xFFFD\xFFFD\xFFFD\xFFFD"},
    {"bytes that UTF-8 never uses", "\xFF\xFE", U"\xFFFD\xFFFD"},
    {"two bytes cut at the end", "a\xC3", U"a\xFFFD"},
    {"three bytes cut at the end", "a\xE5\xA7", U"a\xFFFD"},
    {"four bytes cut at the end", "a\xF0\xA0\xAE", U"a\xFFFD"},
    {"a character cut before ASCII", "\xE5\xA7z", U"\xFFFDz"},
    {"a character cut before another one", "\xE5\xA7\xE5\xA7\x94", U"\xFFFD委"},
    {"a third byte that does not continue", "\xE5\xA7\xC0\xEF\xBFz", U"\xFFFD\xFFFD\xFFFDz"},
    {"a lead byte twice", "\xE3\xE3\x81\x82", U"\xFFFDあ"},
};

std::string encoded(std::u32string_view characters)
{
    std::string text;
    for (const char32_t character : characters) appendUtf8(text, character);
    return text;
}

} // namespace

TEST_CASE("valid text is decoded and encoded back to the same bytes")
{
    for (const DecodingRow &row : kValid) {
        CAPTURE(row.claim);
        std::u32string characters;
        CHECK(appendCharacters(characters, row.bytes));
        CHECK(characters == row.characters);
        CHECK(encoded(row.characters) == row.bytes);
        CHECK(validUtf8(row.bytes) == row.bytes);
        CHECK(utf8FromUtf16(utf16FromUtf8(row.bytes)) == row.bytes);
    }
}

TEST_CASE("malformed text has one U+FFFD for each truncated character and each other byte, in every conversion")
{
    for (const DecodingRow &row : kMalformed) {
        CAPTURE(row.claim);
        std::u32string characters;
        CHECK(appendCharacters(characters, row.bytes));
        CHECK(characters == row.characters);
        CHECK(validUtf8(row.bytes) == encoded(row.characters));
        CHECK(utf8FromUtf16(utf16FromUtf8(row.bytes)) == encoded(row.characters));
        CHECK(length(row.bytes) == row.characters.size());
    }
}

TEST_CASE("the first character has its size and is valid or not")
{
    const DecodedCharacter kanji = firstCharacter("委任");
    CHECK(kanji.character == U'委');
    CHECK(kanji.bytes == 3);
    CHECK(kanji.isValid);
    const DecodedCharacter cut = firstCharacter("\xF0\xA0\xAE");
    CHECK(cut.bytes == 3);
    CHECK_FALSE(cut.isValid);
    CHECK(firstCharacter("\uFFFD").isValid);
}

TEST_CASE("decoding stops after the wanted number of characters")
{
    std::u32string characters = U"x";
    CHECK_FALSE(appendCharacters(characters, "委任状", 2));
    CHECK(characters == U"x委任");
    CHECK(appendCharacters(characters, "委任", 2));
    CHECK_FALSE(appendCharacters(characters, "a", 0));
}

TEST_CASE("a character that UTF-8 cannot encode is encoded as U+FFFD")
{
    for (const char32_t character : {char32_t{0xD800}, char32_t{0xDFFF}, char32_t{0x110000}, char32_t{0xFFFFFFFF}})
        CHECK(encoded(std::u32string(1, character)) == "\uFFFD");
}

TEST_CASE("characters above U+FFFF are two units of UTF-16")
{
    CHECK(utf16FromUtf8("aé委𠮷") == u"aé委𠮷");
    CHECK(utf16FromUtf8("\U0010FFFF") == std::u16string{char16_t{0xDBFF}, char16_t{0xDFFF}});
    CHECK(utf8FromUtf16(u"aé委𠮷😀") == "aé委𠮷😀");
}

TEST_CASE("an unpaired surrogate becomes U+FFFD")
{
    const std::u16string high{u'a', char16_t{0xD842}, u'b'};
    const std::u16string low{char16_t{0xDFB7}, u'b'};
    const std::u16string twoHigh{char16_t{0xD842}, char16_t{0xD842}, char16_t{0xDFB7}};
    CHECK(utf8FromUtf16(high) == "a\uFFFDb");
    CHECK(utf8FromUtf16(low) == "\uFFFDb");
    CHECK(utf8FromUtf16(twoHigh) == "\uFFFD𠮷");
    CHECK(utf8FromUtf16(std::u16string(1, char16_t{0xD842})) == "\uFFFD");
}

TEST_CASE("a position inside a character belongs to the character that decoding from the start finds there")
{
    CHECK(characterStart("a委", 2) == 1);
    CHECK(characterStart("a委", 3) == 1);
    CHECK(characterStart("a委", 4) == 4);
    CHECK(characterStart("𠮷", 3) == 0);
    CHECK(characterStart("委\x80", 3) == 3);
    CHECK(characterStart("\xE0\x80\x80", 2) == 2);
    CHECK(characterStart("\xE5\xA7z", 1) == 0);
    std::mt19937 random(20240501);
    for (int round = 0; round < 2000; ++round) {
        std::string text(random() % 12, '\0');
        for (char &byte : text) byte = static_cast<char>(random() % 3 == 0 ? random() : 0x80 + random() % 0x80);
        CAPTURE(text);
        for (std::size_t at = 0; at < text.size();) {
            const std::size_t next = at + firstCharacter(std::string_view(text).substr(at)).bytes;
            for (std::size_t inside = at; inside < next; ++inside) CHECK(characterStart(text, inside) == at);
            at = next;
        }
    }
}

} // namespace inin
