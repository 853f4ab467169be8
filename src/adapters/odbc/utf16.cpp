#include "adapters/odbc/utf16.h"

#include <cstddef>
#include <cstdint>

namespace inin::odbc {

namespace {

constexpr char32_t kNoCharacter = 0xFFFD;

bool isTrail(char16_t unit)
{
    return unit >= 0xDC00 && unit <= 0xDFFF;
}
bool isLead(char16_t unit)
{
    return unit >= 0xD800 && unit <= 0xDBFF;
}

/// Returns the character at `at` and advances past it; a byte that does not begin one is a character of its own.
char32_t takeUtf8(std::string_view text, std::size_t &at)
{
    const auto byte = [&text](std::size_t index) { return static_cast<std::uint8_t>(text[index]); };
    const std::uint8_t first = byte(at++);
    if (first < 0x80) return first;
    const std::size_t more = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : 1;
    constexpr char32_t kLowest[] = {0, 0x80, 0x800, 0x10000};
    if (first < 0xC2 || first > 0xF4 || at + more > text.size()) return kNoCharacter;
    char32_t character = first & (0x3FU >> more);
    for (std::size_t index = 0; index < more; ++index) {
        const std::uint8_t next = byte(at + index);
        if ((next & 0xC0U) != 0x80) return kNoCharacter;
        character = (character << 6U) | (next & 0x3FU);
    }
    const bool isSurrogate = character >= 0xD800 && character <= 0xDFFF;
    if (character < kLowest[more] || character > 0x10FFFF || isSurrogate) return kNoCharacter;
    at += more;
    return character;
}

void appendUtf8(std::string &text, char32_t character)
{
    const auto add = [&text](char32_t byte) { text += static_cast<char>(byte); };
    if (character < 0x80) return add(character);
    if (character < 0x800) {
        add(0xC0 | (character >> 6U));
    } else {
        if (character < 0x10000) {
            add(0xE0 | (character >> 12U));
        } else {
            add(0xF0 | (character >> 18U));
            add(0x80 | ((character >> 12U) & 0x3FU));
        }
        add(0x80 | ((character >> 6U) & 0x3FU));
    }
    add(0x80 | (character & 0x3FU));
}

} // namespace

std::u16string utf16FromUtf8(std::string_view text)
{
    std::u16string units;
    units.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const char32_t character = takeUtf8(text, at);
        if (character < 0x10000) {
            units += static_cast<char16_t>(character);
        } else {
            units += static_cast<char16_t>(0xD800 + ((character - 0x10000) >> 10U));
            units += static_cast<char16_t>(0xDC00 + ((character - 0x10000) & 0x3FFU));
        }
    }
    return units;
}

std::string utf8FromUtf16(std::u16string_view units)
{
    std::string text;
    text.reserve(units.size() * 3);
    for (std::size_t at = 0; at < units.size(); ++at) {
        const char16_t unit = units[at];
        if (isLead(unit) && at + 1 < units.size() && isTrail(units[at + 1])) {
            const char32_t high = static_cast<char32_t>(unit - 0xD800) << 10U;
            appendUtf8(text, 0x10000 + high + static_cast<char32_t>(units[++at] - 0xDC00));
        } else {
            appendUtf8(text, isLead(unit) || isTrail(unit) ? kNoCharacter : unit);
        }
    }
    return text;
}

} // namespace inin::odbc
