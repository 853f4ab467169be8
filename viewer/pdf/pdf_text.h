#pragma once

#include <string>
#include <string_view>

namespace inin::viewer {

/// Appends a number as short as it can be written, to a hundredth or, with `decimals`, finer.
void appendNumber(std::string &out, double number, int decimals = 2);
/// Appends a number that counts hundredths.
void appendHundredths(std::string &out, long hundredths);
/// Appends a text as a PDF text string: UTF-16 in hexadecimal digits.
void appendTextString(std::string &out, std::string_view utf8);
/// The hexadecimal UTF-16 digits of characters.
void appendUtf16Hex(std::string &out, std::u32string_view characters);

} // namespace inin::viewer
