#include "runtime/utf8.h"

namespace inin {

namespace {

constexpr char32_t kFirstOfTwoUnits = 0x10000;

unsigned byteAt(std::string_view text, std::size_t at)
{
    return static_cast<unsigned char>(text[at]);
}

bool isContinuation(unsigned byte)
{
    return (byte & 0xC0U) == 0x80U;
}

/// The second byte rules out overlong forms, surrogates and code points above U+10FFFF.
bool isSecondByte(unsigned lead, unsigned byte)
{
    const unsigned low = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
    const unsigned high = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
    return byte >= low && byte <= high;
}

} // namespace

DecodedCharacter decodeFirstCharacter(std::string_view text)
{
    const unsigned lead = byteAt(text, 0);
    if (lead < 0xC2 || lead > 0xF4) return {kReplacementCharacter, 1, false};
    const std::size_t bytes = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    char32_t character = lead & (0x7FU >> bytes);
    for (std::size_t at = 1; at < bytes; ++at) {
        const unsigned byte = at < text.size() ? byteAt(text, at) : 0;
        if (!(at == 1 ? isSecondByte(lead, byte) : isContinuation(byte))) return {kReplacementCharacter, at, false};
        character = character << 6U | (byte & 0x3FU);
    }
    return {character, bytes, true};
}

std::size_t characterStart(std::string_view text, std::size_t at)
{
    if (at >= text.size()) return at;
    constexpr std::size_t kMostContinuations = 3;
    for (std::size_t back = 1; back <= kMostContinuations && back <= at && isContinuation(byteAt(text, at - back + 1));
         ++back)
        if (firstCharacter(text.substr(at - back)).bytes > back) return at - back;
    return at;
}

bool appendCharacters(std::u32string &characters, std::string_view text, std::size_t most)
{
    for (; !text.empty() && most > 0; --most) {
        const DecodedCharacter next = firstCharacter(text);
        characters += next.character;
        text.remove_prefix(next.bytes);
    }
    return text.empty();
}

void appendUtf8(std::string &text, char32_t character)
{
    const auto add = [&text](char32_t byte) { text += static_cast<char>(static_cast<unsigned char>(byte)); };
    const auto addContinuation = [&](unsigned shift) { add(0x80U | (character >> shift & 0x3FU)); };
    if (isHighSurrogate(character) || isLowSurrogate(character) || character > 0x10FFFF)
        character = kReplacementCharacter;
    if (character < 0x80) return add(character);
    if (character < 0x800) {
        add(0xC0U | character >> 6U);
    } else if (character < kFirstOfTwoUnits) {
        add(0xE0U | character >> 12U);
        addContinuation(6);
    } else {
        add(0xF0U | character >> 18U);
        addContinuation(12);
        addContinuation(6);
    }
    addContinuation(0);
}

std::string validUtf8(std::string_view text)
{
    std::size_t at = 0;
    while (at < text.size()) {
        const DecodedCharacter next = firstCharacter(text.substr(at));
        if (!next.isValid) break;
        at += next.bytes;
    }
    std::string valid(text.substr(0, at));
    while (at < text.size()) {
        const DecodedCharacter next = firstCharacter(text.substr(at));
        appendUtf8(valid, next.character);
        at += next.bytes;
    }
    return valid;
}

void appendUtf16(std::u16string &units, char32_t character)
{
    if (character < kFirstOfTwoUnits) {
        units += static_cast<char16_t>(character);
        return;
    }
    units += static_cast<char16_t>(0xD800 + ((character - kFirstOfTwoUnits) >> 10U));
    units += static_cast<char16_t>(0xDC00 + ((character - kFirstOfTwoUnits) & 0x3FFU));
}

std::u16string utf16FromUtf8(std::string_view text)
{
    std::u16string units;
    units.reserve(text.size());
    while (!text.empty()) {
        const DecodedCharacter next = firstCharacter(text);
        appendUtf16(units, next.character);
        text.remove_prefix(next.bytes);
    }
    return units;
}

std::string utf8FromUtf16(std::u16string_view units)
{
    std::string text;
    text.reserve(units.size() * 3);
    for (std::size_t at = 0; at < units.size(); ++at) {
        char32_t character = units[at];
        if (isHighSurrogate(character) && at + 1 < units.size() && isLowSurrogate(units[at + 1]))
            character = kFirstOfTwoUnits + ((character - 0xD800) << 10U) + (units[++at] - 0xDC00U);
        appendUtf8(text, character);
    }
    return text;
}

} // namespace inin
