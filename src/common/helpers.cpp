#include "common/helpers.h"

#include "runtime/conversion.h"
#include "runtime/runtime_error.h"
#include "runtime/text.h"

#include <algorithm>
#include <compare>

namespace inin {

namespace {

/// UTF-16 order of two UTF-8 texts: it differs from byte order only between U+E000 to U+FFFF and the planes above.
std::weak_ordering compareTexts(std::string_view a, std::string_view b)
{
    const auto rank = [](char c) {
        const auto byte = static_cast<unsigned char>(c);
        return byte == 0xEE || byte == 0xEF ? byte + 0x10 : int{byte};
    };
    return std::lexicographical_compare_three_way(
        a.begin(), a.end(), b.begin(), b.end(),
        [rank](char x, char y) -> std::weak_ordering { return rank(x) <=> rank(y); });
}

/// The runtime's comparison of two variants, neither of them Null: an Empty adopts the type of the other side, and a
/// number is less than every text.
std::partial_ordering compare(const Variant &a, const Variant &b)
{
    const auto *textA = a.getIf<std::string>();
    const auto *textB = b.getIf<std::string>();
    if (textA != nullptr && textB != nullptr) return compareTexts(*textA, *textB);
    if (textA != nullptr && b.isEmpty()) return compareTexts(*textA, "");
    if (textB != nullptr && a.isEmpty()) return compareTexts("", *textB);
    if (textA != nullptr || textB != nullptr)
        return textA != nullptr ? std::partial_ordering::greater : std::partial_ordering::less;
    return toDouble(a) <=> toDouble(b);
}

} // namespace

Variant vMin(const Variant &a, const Variant &b)
{
    if (a.isNull() || b.isNull()) return a;
    return std::is_lt(compare(b, a)) ? b : a;
}

Variant vMax(const Variant &a, const Variant &b)
{
    if (a.isNull() || b.isNull()) return a;
    return std::is_gt(compare(b, a)) ? b : a;
}

std::string csNullToStr(const Variant &value, const Regional &regional)
{
    return value.isNull() ? std::string() : toText(value, regional);
}

std::string csCutNul(std::string_view text)
{
    return std::string(text.substr(0, text.find('\0')));
}

std::string csNullRTrim(const Variant &value, const Regional &regional)
try {
    if (const auto *text = value.getIf<std::string>()) return rtrim(*text);
    return rtrim(csNullToStr(value, regional));
} catch (const RuntimeError &) {
    return {};
}

std::int32_t nNullToLong(const Variant &value)
try {
    // Columns without a number are common: detect them without the cost of an exception.
    const bool isOtherText = value.getIf<std::string>() != nullptr && !isNumeric(value);
    return value.isNull() || isOtherText ? 0 : toLong(value);
} catch (const RuntimeError &) {
    return 0;
}

} // namespace inin
