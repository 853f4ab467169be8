#pragma once

#include "runtime/regional.h"
#include "runtime/variant.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace inin {

// The runtime's conversions. Halves round to even. A value outside the type is error 6, non-numeric or non-date text
// error 13, Null error 94. Empty counts as 0 and as the empty text.

[[nodiscard]] std::int16_t toInteger(const Variant &value);
[[nodiscard]] std::int32_t toLong(const Variant &value);
[[nodiscard]] double toDouble(const Variant &value);
/// The default text; a date in the short date format, followed by a blank and H:nn:ss if it has a time.
[[nodiscard]] std::string toText(const Variant &value, const Regional &regional);
/// Text is read in the order of the short date format first, then in the other customary orders; the year is required.
[[nodiscard]] Date toDate(const Variant &value, const Regional &regional);

[[nodiscard]] std::int16_t toInteger(double value);
[[nodiscard]] std::int32_t toLong(double value);
[[nodiscard]] std::int16_t narrow(std::int32_t value);
/// The number that a text contains: surrounding blanks, sign, commas between digits on both sides of the decimal point,
/// exponent, &H and &O, parentheses for minus. All digits count; a NUL ends the text. Error 13 for any other text, 6 if
/// it does not fit a double.
[[nodiscard]] double numberFromText(std::string_view text);
/// True if toDouble would succeed for a number, numeric text or Empty; false for Null and dates.
[[nodiscard]] bool isNumeric(const Variant &value);
/// The default text of a number: up to 15 digits; from 1E15 on with an exponent of the form "E+00".
[[nodiscard]] std::string numberText(double value);
/// The default text of a date.
[[nodiscard]] std::string dateText(Date date, const Regional &regional);

} // namespace inin
