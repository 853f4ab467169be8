#include "viewer/layout/utf8.h"

namespace inin::viewer {

namespace {

constexpr char32_t kLost = 0xFFFD;

/// The length and the first bits of a sequence by its first byte; length 0 for a byte that cannot be the first.
struct Lead {
    std::size_t length;
    char32_t bits;
    char32_t least; ///< a smaller code point would be an overlong form
};

Lead leadOf(unsigned char byte)
{
    if (byte < 0x80) return {1, byte, 0};
    if (byte >= 0xC2 && byte < 0xE0) return {2, byte & 0x1FU, 0x80};
    if (byte >= 0xE0 && byte < 0xF0) return {3, byte & 0x0FU, 0x800};
    if (byte >= 0xF0 && byte < 0xF5) return {4, byte & 0x07U, 0x10000};
    return {0, 0, 0};
}

char32_t takeCharacter(std::string_view &text)
{
    const Lead lead = leadOf(static_cast<unsigned char>(text.front()));
    char32_t character = lead.bits;
    for (std::size_t i = 1; i < lead.length; ++i) {
        const unsigned char byte = i < text.size() ? static_cast<unsigned char>(text[i]) : 0;
        if ((byte & 0xC0) != 0x80) {
            text.remove_prefix(i);
            return kLost;
        }
        character = character << 6 | (byte & 0x3FU);
    }
    text.remove_prefix(lead.length == 0 ? 1 : lead.length);
    const bool isNone = lead.length == 0 || character < lead.least || character > 0x10FFFF ||
                        (character >= 0xD800 && character < 0xE000);
    return isNone ? kLost : character;
}

} // namespace

bool appendCharacters(std::string_view text, std::u32string &characters, std::size_t most)
{
    for (std::size_t count = 0; !text.empty(); ++count) {
        if (count == most) return false;
        characters += takeCharacter(text);
    }
    return true;
}

void appendUtf8(std::string &text, char32_t character)
{
    const auto byte = [&](char32_t value) { text += static_cast<char>(value); };
    const auto tail = [&](unsigned shift) { byte(0x80 | (character >> shift & 0x3F)); };
    if (character < 0x80) {
        byte(character);
    } else if (character < 0x800) {
        byte(0xC0 | character >> 6);
        tail(0);
    } else if (character < 0x10000) {
        byte(0xE0 | character >> 12);
        tail(6);
        tail(0);
    } else {
        byte(0xF0 | character >> 18);
        tail(12);
        tail(6);
        tail(0);
    }
}

bool isBlankText(std::string_view text)
{
    while (!text.empty()) {
        if (text.front() == ' ')
            text.remove_prefix(1);
        else if (text.starts_with(kWideBlank))
            text.remove_prefix(kWideBlank.size());
        else
            return false;
    }
    return true;
}

} // namespace inin::viewer
