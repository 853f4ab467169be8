#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace inin::viewer {

/// Appends a number in its shortest form, rounded to `decimals`, at most five. Numbers beyond ±1e13 are clamped to it, and
/// NaN is written as 0.
void appendNumber(std::string &out, double number, int decimals = 2);
/// The number in hundredths, clamped in the same way.
[[nodiscard]] std::int64_t hundredthsOf(double number);
/// Appends a number given in hundredths.
void appendHundredths(std::string &out, std::int64_t hundredths);
/// Writes a number to the right end of a field, after blanks.
void writePadded(std::span<char> field, std::size_t number);
/// Appends a number after blanks. A number that is too long for `width` takes more.
void appendPadded(std::string &out, std::size_t number, std::size_t width);
/// Appends the box of a page, "[0 0 595.28 841.89]".
void appendPageBox(std::string &out, double width, double height);
/// Appends a text as a PDF text string: UTF-16 in hexadecimal digits.
void appendTextString(std::string &out, std::string_view utf8);
/// The hexadecimal UTF-16 digits of characters.
void appendUtf16Hex(std::string &out, std::u32string_view characters);

/// Appends the last bytes of a number, the most significant one first.
void appendBigEndian(std::string &out, std::uint64_t number, int bytes);

} // namespace inin::viewer
