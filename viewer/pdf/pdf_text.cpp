#include "viewer/pdf/pdf_text.h"

#include "runtime/utf8.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <iterator>

namespace inin::viewer {

namespace {

/// `scaled` is the number times ten to the power of `decimals`.
void appendScaled(std::string &out, std::int64_t scaled, int decimals)
{
    if (scaled < 0) out += '-';
    std::array<char, 24> digits{};
    const auto end = std::to_chars(digits.begin(), digits.end(), scaled < 0 ? -scaled : scaled).ptr;
    const auto count = static_cast<int>(end - digits.begin());
    const int whole = count - decimals;
    if (whole > 0) out.append(digits.data(), static_cast<std::size_t>(whole));
    int last = count;
    while (last > std::max(whole, 0) && digits[static_cast<std::size_t>(last - 1)] == '0') --last;
    if (last <= std::max(whole, 0)) {
        if (whole <= 0) out += '0';
        return;
    }
    out += '.';
    for (int i = whole; i < 0; ++i) out += '0';
    out.append(digits.data() + std::max(whole, 0), static_cast<std::size_t>(last - std::max(whole, 0)));
}

/// The number times ten to the power of `decimals`. A form may contain any number.
std::int64_t scaled(double number, int decimals)
{
    constexpr double kLargest = 1e13; // in hundred-thousandths it fits into 64 bits
    if (std::isnan(number)) return 0;
    double factor = 1;
    for (int i = 0; i < decimals; ++i) factor *= 10;
    return std::llround(std::clamp(number, -kLargest, kLargest) * factor);
}

} // namespace

void appendNumber(std::string &out, double number, int decimals)
{
    appendScaled(out, scaled(number, decimals), decimals);
}

std::int64_t hundredthsOf(double number)
{
    return scaled(number, 2);
}

void appendHundredths(std::string &out, std::int64_t hundredths)
{
    appendScaled(out, hundredths, 2);
}

void writePadded(std::span<char> field, std::size_t number)
{
    std::size_t at = field.size();
    do {
        field[--at] = static_cast<char>('0' + number % 10);
        number /= 10;
    } while (number != 0 && at > 0);
    while (at > 0) field[--at] = ' ';
}

void appendPadded(std::string &out, std::size_t number, std::size_t width)
{
    std::array<char, 24> digits{};
    const auto count =
        static_cast<std::size_t>(std::to_chars(digits.begin(), digits.end(), number).ptr - digits.begin());
    if (count < width) out.append(width - count, ' ');
    out.append(digits.data(), count);
}

void appendPageBox(std::string &out, double width, double height)
{
    out += "[0 0 ";
    appendNumber(out, width);
    out += ' ';
    appendNumber(out, height);
    out += ']';
}

void appendUtf16Hex(std::string &out, std::u32string_view characters)
{
    std::u16string units;
    for (const char32_t character : characters) appendUtf16(units, character);
    for (const char16_t unit : units) fmt::format_to(std::back_inserter(out), "{:04X}", static_cast<unsigned>(unit));
}

void appendTextString(std::string &out, std::string_view utf8)
{
    std::u32string characters;
    appendCharacters(characters, utf8);
    out += "<FEFF";
    appendUtf16Hex(out, characters);
    out += '>';
}

void appendBigEndian(std::string &out, std::uint64_t number, int bytes)
{
    for (int i = bytes - 1; i >= 0; --i) out += static_cast<char>(number >> (8 * i) & 0xFF);
}

} // namespace inin::viewer
