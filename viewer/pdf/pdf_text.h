#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace inin::viewer {

/// Appends a number as short as it can be written, to a hundredth or, with up to five `decimals`, finer. One that is
/// too large for any page is written as 1e13 or -1e13 in digits, and one that is not a number as 0.
void appendNumber(std::string &out, double number, int decimals = 2);
/// The number in hundredths, within the same bounds.
[[nodiscard]] std::int64_t hundredthsOf(double number);
/// Appends a number that counts hundredths.
void appendHundredths(std::string &out, std::int64_t hundredths);
/// Appends a text as a PDF text string: UTF-16 in hexadecimal digits.
void appendTextString(std::string &out, std::string_view utf8);
/// The hexadecimal UTF-16 digits of characters.
void appendUtf16Hex(std::string &out, std::u32string_view characters);

} // namespace inin::viewer
