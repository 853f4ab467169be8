#pragma once

#include "runtime/regional.h"
#include "runtime/variant.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace inin {

// The null-safe conversions between database values and the rest of the code.

/// b if b is less than a, else a. Numbers compare as numbers, texts in UTF-16 order, and a number is less than every
/// text. If either is Null, the result is a.
[[nodiscard]] Variant vMin(const Variant &a, const Variant &b);
/// b if b is greater than a, else a, by the same rules.
[[nodiscard]] Variant vMax(const Variant &a, const Variant &b);
/// Null gives the empty text, anything else its default text, blanks kept. A value without a text form is error 13.
[[nodiscard]] std::string csNullToStr(const Variant &value, const Regional &regional);
/// The part before the first NUL character.
[[nodiscard]] std::string csCutNul(std::string_view text);
/// Like csNullToStr without ASCII blanks on the right; any failure gives the empty text.
[[nodiscard]] std::string csNullRTrim(const Variant &value, const Regional &regional);
/// Null and any value that is not a 32-bit number give 0; halves round to even.
[[nodiscard]] std::int32_t nNullToLong(const Variant &value);

} // namespace inin
