#include "runtime/number_text.h"

#include "runtime/runtime_error.h"
#include "runtime/text_scan.h"

#include <charconv>
#include <cmath>
#include <optional>
#include <string>

namespace inin {

namespace {

using Outcome = NumberReading::Outcome;

/// Signs and parentheses around the digits: each may occur once, so "+-1" and "1-" are numbers too.
class Marks {
public:
    /// Reads the signs listed in `allowed`; false if one is repeated.
    bool read(TextScan &scan, std::string_view allowed)
    {
        for (;;) {
            scan.skipBlanks();
            const std::size_t mark = scan.atEnd() ? std::string_view::npos : allowed.find(scan.peek());
            if (mark == std::string_view::npos) return true;
            bool &seen = flagOf(scan.take());
            if (seen) return false;
            seen = true;
        }
    }
    [[nodiscard]] bool balanced() const { return m_open == m_closed; }
    [[nodiscard]] bool negative() const { return m_minus || m_open; }

private:
    bool &flagOf(char mark)
    {
        switch (mark) {
        case '+':
            return m_plus;
        case '-':
            return m_minus;
        case '(':
            return m_open;
        default:
            return m_closed;
        }
    }
    bool m_plus = false;
    bool m_minus = false;
    bool m_open = false;
    bool m_closed = false;
};

/// Appends digits and skips the thousands commas between them, which may be anywhere except at the start.
void takeGroupedDigits(TextScan &scan, std::string &decimal)
{
    while (scan.atDigit() || (!decimal.empty() && scan.peek() == ','))
        if (const char next = scan.take(); next != ',') decimal += next;
}

/// The digits with decimal point and exponent; nothing if the text has another form.
std::optional<std::string> takeDecimal(TextScan &scan)
{
    std::string decimal;
    takeGroupedDigits(scan, decimal);
    if (scan.accept('.')) takeGroupedDigits(scan, decimal += '.');
    if (decimal.empty() || decimal == ".") return std::nullopt;
    if (scan.acceptWord("e") || scan.acceptWord("d")) {
        decimal += 'e';
        if (scan.accept('-'))
            decimal += '-';
        else
            scan.accept('+');
        const std::string_view exponent = scan.takeDigits();
        if (exponent.empty()) return std::nullopt;
        decimal += exponent;
    }
    return decimal;
}

/// True if the first significant digit is left of the point: a value out of range is then too large, not too small.
bool isLarge(std::string_view decimal)
{
    const std::size_t end = std::min(decimal.find('e'), decimal.size());
    const std::size_t point = std::min(decimal.find('.'), end);
    const std::size_t first = decimal.find_first_of("123456789");
    int exponent = 0;
    if (end < decimal.size()) {
        const std::string_view digits = decimal.substr(end + 1);
        if (std::from_chars(digits.data(), digits.data() + digits.size(), exponent).ec != std::errc{})
            return !digits.starts_with('-');
    }
    return exponent + static_cast<long>(point) - static_cast<long>(first) > 0;
}

/// The double of a decimal text; infinite if it is out of range.
double doubleOf(std::string_view decimal)
{
    double value = 0;
    const auto result = std::from_chars(decimal.data(), decimal.data() + decimal.size(), value);
    if (result.ec == std::errc{}) return value;
    return isLarge(decimal) ? HUGE_VAL : 0.0;
}

/// Reads one optional sign; true for a minus.
bool takeMinus(TextScan &scan)
{
    if (scan.accept('-')) return true;
    scan.accept('+');
    return false;
}

NumberReading readBits(TextScan &scan)
{
    const int base = scan.acceptWord("h") ? 16 : scan.acceptWord("o") ? 8 : 0;
    const std::string_view digits = scan.takeRun("0123456789ABCDEFabcdef");
    scan.skipBlanks();
    if (base == 0 || digits.empty() || !scan.atEnd()) return {};
    NumberReading reading{Outcome::bits};
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), reading.bits, base);
    if (result.ptr != digits.data() + digits.size()) return {};
    if (result.ec == std::errc::result_out_of_range) return {Outcome::overflow};
    reading.value = reading.bits;
    return reading;
}

} // namespace

NumberReading readNumber(std::string_view text)
{
    TextScan scan(text);
    scan.skipBlanks();
    if (scan.accept('&')) return readBits(scan);
    Marks marks;
    if (!marks.read(scan, "+-(")) return {};
    const std::optional<std::string> decimal = takeDecimal(scan);
    if (!decimal || !marks.read(scan, "+-)") || !scan.atEnd() || !marks.balanced()) return {};
    const double value = doubleOf(*decimal);
    if (!std::isfinite(value)) return {Outcome::overflow};
    return {Outcome::number, marks.negative() ? -value : value};
}

double leadingNumber(std::string_view text)
{
    std::string packed(text);
    std::erase_if(packed, [](char c) { return c == ' ' || c == '\t' || c == '\n'; });
    TextScan scan(packed);
    const bool isNegative = takeMinus(scan);
    std::string decimal(scan.takeDigits());
    if (scan.accept('.')) decimal.append(".").append(scan.takeDigits());
    if (decimal.find_first_of("0123456789") == std::string::npos) return 0;
    if (scan.acceptWord("e") || scan.acceptWord("d")) {
        const std::string exponent = takeMinus(scan) ? "e-" : "e";
        const std::string_view digits = scan.takeDigits();
        if (!digits.empty()) decimal.append(exponent).append(digits);
    }
    const double value = doubleOf(decimal);
    if (!std::isfinite(value)) throw RuntimeError(error_number::overflow);
    return isNegative ? -value : value;
}

} // namespace inin
