#include "runtime/text.h"

#include "runtime/runtime_error.h"

#include <algorithm>

namespace inin {

namespace {

struct Character {
    std::size_t bytes;
    std::size_t units;
};

unsigned char byteAt(std::string_view text, std::size_t position)
{
    return static_cast<unsigned char>(text[position]);
}

bool isContinuation(std::string_view text, std::size_t position)
{
    return position < text.size() && (byteAt(text, position) & 0xC0U) == 0x80U;
}

/// The second byte rules out overlong forms, surrogates and code points above U+10FFFF.
bool isSecondByte(unsigned char lead, unsigned char second)
{
    switch (lead) {
    case 0xE0:
        return second >= 0xA0;
    case 0xED:
        return second < 0xA0;
    case 0xF0:
        return second >= 0x90;
    case 0xF4:
        return second < 0x90;
    default:
        return true;
    }
}

/// The character at a position in the text; a byte that does not begin one counts as one unit.
Character characterAt(std::string_view text, std::size_t position)
{
    constexpr Character kByte{1, 1};
    const unsigned char lead = byteAt(text, position);
    if (lead < 0xC2 || lead > 0xF4) return kByte;
    const std::size_t bytes = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    for (std::size_t i = 1; i < bytes; ++i)
        if (!isContinuation(text, position + i)) return kByte;
    if (!isSecondByte(lead, byteAt(text, position + 1))) return kByte;
    return {bytes, bytes == 4 ? std::size_t{2} : std::size_t{1}};
}

struct Prefix {
    std::size_t bytes = 0;
    std::size_t units = 0;
};

/// The longest prefix of whole characters with at most `units` units.
Prefix prefixOf(std::string_view text, std::size_t units)
{
    Prefix prefix;
    while (prefix.bytes < text.size()) {
        const Character next = characterAt(text, prefix.bytes);
        if (next.units > units - prefix.units) break;
        prefix.bytes += next.bytes;
        prefix.units += next.units;
    }
    return prefix;
}

char lowered(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

std::string_view withoutRight(std::string_view text)
{
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

std::string_view withoutLeft(std::string_view text)
{
    return text.substr(std::min(text.find_first_not_of(' '), text.size()));
}

} // namespace

std::string rtrim(std::string_view text)
{
    return std::string(withoutRight(text));
}
std::string ltrim(std::string_view text)
{
    return std::string(withoutLeft(text));
}
std::string trim(std::string_view text)
{
    return std::string(withoutLeft(withoutRight(text)));
}

std::size_t length(std::string_view text)
{
    return prefixOf(text, std::string_view::npos).units;
}

std::string left(std::string_view text, std::size_t units)
{
    return std::string(text.substr(0, prefixOf(text, units).bytes));
}

std::string mid(std::string_view text, std::size_t start, std::size_t units)
{
    if (start == 0) throw RuntimeError(error_number::invalidCall);
    Prefix before = prefixOf(text, start - 1);
    if (before.bytes == text.size()) return {};
    if (before.units < start - 1) { // the start is inside a surrogate pair, which is skipped
        before.bytes += characterAt(text, before.bytes).bytes;
        units -= std::min<std::size_t>(units, 1);
    }
    return left(text.substr(before.bytes), units);
}

std::string fixedText(std::string_view text, std::size_t units)
{
    const Prefix kept = prefixOf(text, units);
    std::string fixed(text.substr(0, kept.bytes));
    fixed.append(units - kept.units, ' ');
    return fixed;
}

std::string asciiLower(std::string_view text)
{
    std::string lower(text);
    std::ranges::transform(lower, lower.begin(), lowered);
    return lower;
}

bool equalsIgnoringAsciiCase(std::string_view a, std::string_view b)
{
    return std::ranges::equal(a, b, {}, lowered, lowered);
}

} // namespace inin
