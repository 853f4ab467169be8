#pragma once

#include "runtime/regional.h"
#include "runtime/variant.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace inin {

// The runtime's conversions. Halves round to the even neighbour; a value beyond the type is error 6, a text that is no
// number or date error 13, Null error 94. An Empty counts as 0 and as the empty text.

[[nodiscard]] std::int16_t toInteger(const Variant &value, const Regional &regional);
[[nodiscard]] std::int32_t toLong(const Variant &value, const Regional &regional);
[[nodiscard]] double toDouble(const Variant &value, const Regional &regional);
/// The default text; a date by the short date form, then a blank and H:nn:ss when it has a time.
[[nodiscard]] std::string toText(const Variant &value, const Regional &regional);
/// A text is read by the order of the short date first, then by the other customary ones; it needs its year.
[[nodiscard]] Date toDate(const Variant &value, const Regional &regional);

[[nodiscard]] std::int16_t toInteger(double value);
[[nodiscard]] std::int32_t toLong(double value);
[[nodiscard]] std::int16_t narrow(std::int32_t value);
/// A number read from text: blanks around, sign, commas among the digits on both sides of the decimal point, exponent,
/// &H and &O, parentheses for minus. Every digit counts; a NUL ends the text. Error 13 for any other text, 6 beyond a
/// double.
[[nodiscard]] double numberFromText(std::string_view text);
/// True where toDouble would give a number: texts that are numbers, numbers, Empty; never Null or a date.
[[nodiscard]] bool isNumeric(const Variant &value);
/// The default text of a number: up to 15 digits, "E+00" exponents from 1E15 on.
[[nodiscard]] std::string numberText(double value);
/// The default text of a date.
[[nodiscard]] std::string dateText(Date date, const Regional &regional);

} // namespace inin
