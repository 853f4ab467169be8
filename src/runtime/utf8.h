#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace inin {

// UTF-8 and UTF-16. Malformed text has one rule, which Unicode recommends and Windows follows: one U+FFFD replaces the
// longest part that could begin a character, else a single byte. A truncated character thus becomes one U+FFFD. So does
// each byte of an overlong form, of a surrogate, of a code point above U+10FFFF and of a run of continuation bytes, and
// each unpaired surrogate of UTF-16.

inline constexpr char32_t kReplacementCharacter = 0xFFFD;

[[nodiscard]] constexpr bool isAscii(char c)
{
    return static_cast<unsigned char>(c) < 0x80;
}
[[nodiscard]] constexpr bool isHighSurrogate(char32_t unit)
{
    return unit >= 0xD800 && unit < 0xDC00;
}
[[nodiscard]] constexpr bool isLowSurrogate(char32_t unit)
{
    return unit >= 0xDC00 && unit < 0xE000;
}
/// The number of UTF-16 units of a character.
[[nodiscard]] constexpr std::size_t utf16Units(char32_t character)
{
    return character < 0x10000 ? 1 : 2;
}

struct DecodedCharacter {
    char32_t character; ///< U+FFFD for malformed bytes
    std::size_t bytes;  ///< at least 1
    bool isValid;
};

/// The part of firstCharacter() that is not inline, for every text that begins with another character than ASCII.
[[nodiscard]] DecodedCharacter decodeFirstCharacter(std::string_view text);
/// The first character of a text, which must not be empty. Nearly all characters are ASCII or, as kana and kanji, have
/// three bytes: these are decoded inline, because a print run decodes each of its texts twice.
[[nodiscard]] inline DecodedCharacter firstCharacter(std::string_view text)
{
    const auto byteAt = [text](std::size_t at) { return static_cast<unsigned char>(text[at]); };
    const unsigned lead = byteAt(0);
    if (lead < 0x80) return {lead, 1, true};
    // 0xE0 and 0xED also begin overlong forms and surrogates.
    if (lead < 0xE1 || lead > 0xEF || lead == 0xED || text.size() < 3) return decodeFirstCharacter(text);
    const unsigned second = byteAt(1), third = byteAt(2);
    if ((second & 0xC0U) != 0x80U || (third & 0xC0U) != 0x80U) return decodeFirstCharacter(text);
    return {(lead & 0x0FU) << 12U | (second & 0x3FU) << 6U | (third & 0x3FU), 3, true};
}
/// The position of the character that contains the byte at `at`; a position at or after the end is returned unchanged.
[[nodiscard]] std::size_t characterStart(std::string_view text, std::size_t at);
/// Appends at most `most` characters of a text. False when the text has more.
bool appendCharacters(std::u32string &characters, std::string_view text, std::size_t most = std::string_view::npos);
/// Appends a character; one that UTF-8 cannot encode is appended as U+FFFD.
void appendUtf8(std::string &text, char32_t character);
/// The text with malformed bytes replaced.
[[nodiscard]] std::string validUtf8(std::string_view text);

/// Appends a character as one unit or as a surrogate pair.
void appendUtf16(std::u16string &units, char32_t character);
[[nodiscard]] std::u16string utf16FromUtf8(std::string_view text);
[[nodiscard]] std::string utf8FromUtf16(std::u16string_view units);

} // namespace inin
