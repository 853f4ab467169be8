#include "runtime/text.h"

#include "runtime/runtime_error.h"
#include "runtime/utf8.h"

#include <algorithm>

namespace inin {

namespace {

struct Prefix {
    std::size_t bytes = 0;
    std::size_t units = 0;
};

/// The longest prefix of whole characters with at most `units` units.
Prefix prefixOf(std::string_view text, std::size_t units)
{
    Prefix prefix;
    while (prefix.bytes < text.size()) {
        const DecodedCharacter next = firstCharacter(text.substr(prefix.bytes));
        const std::size_t nextUnits = utf16Units(next.character);
        if (nextUnits > units - prefix.units) break;
        prefix.bytes += next.bytes;
        prefix.units += nextUnits;
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
        before.bytes += firstCharacter(text.substr(before.bytes)).bytes;
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
