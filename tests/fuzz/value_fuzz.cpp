// Numbers, dates and Format on foreign texts.

#include "fuzz/fuzz_input.h"
#include "runtime/conversion.h"
#include "runtime/date_text.h"
#include "runtime/format.h"
#include "runtime/number_text.h"
#include "support/regional.h"

#include <cmath>
#include <functional>
#include <optional>
#include <string>

using namespace inin;
using inin::fuzz::require;

namespace {

/// The number of the error that a conversion raises, 0 for none.
std::int32_t errorOf(const std::function<void()> &conversion)
{
    try {
        conversion();
    } catch (const RuntimeError &error) {
        return error.number();
    }
    return 0;
}

void checkNumber(std::string_view input)
{
    using Outcome = NumberReading::Outcome;
    const NumberReading reading = readNumber(input);
    const bool isNumber = reading.outcome == Outcome::number || reading.outcome == Outcome::bits;
    // A pattern of 32 bits has no value as a double.
    const bool isTooLarge = reading.outcome == Outcome::overflow ||
                            (reading.outcome == Outcome::bits && reading.bits > std::uint32_t{INT32_MAX});
    const std::int32_t due = isTooLarge ? error_number::overflow : isNumber ? 0 : error_number::typeMismatch;
    require(errorOf([&] { (void)numberFromText(input); }) == due, "a conversion raises the error of the reading");
    require(!isNumeric(Variant(input)) || isNumber, "a numeric text can be read");
    require(reading.outcome != Outcome::number || std::isfinite(reading.value), "a number is finite");
    (void)leadingNumber(input);
}

void checkNumberText(std::string_view input)
{
    const double value = numberFromText(input);
    constexpr double kAlmostLargest = 1.7976931348623e308, kFifteenDigits = 1e-14;
    if (std::abs(value) > kAlmostLargest) return; // fifteen digits may round up to more than a double holds
    const double again = numberFromText(numberText(value));
    // Below the smallest normal number a double has fewer digits.
    require(std::abs(again - value) <= std::max(std::abs(value) * kFifteenDigits, 1e-320),
            "the default text has fifteen digits of the number");
}

void checkWholeNumbers(std::string_view input)
{
    const Variant text(input);
    std::int32_t whole = 0;
    const std::int32_t error = errorOf([&] { whole = toLong(text); });
    require(error == 0 || error == error_number::overflow || error == error_number::typeMismatch,
            "a text is converted, too large or of another type");
    // &HFFFF is 65535 as a 32-bit number and -1 as a 16-bit one.
    if (error != 0 || readNumber(input).outcome == NumberReading::Outcome::bits) return;
    const bool fits = whole >= INT16_MIN && whole <= INT16_MAX;
    require(errorOf([&] { (void)toInteger(text); }) == (fits ? 0 : error_number::overflow),
            "a 16-bit number is a 32-bit number that fits");
    require(std::abs(toDouble(text) - whole) <= 0.5, "a whole number is the nearest one");
}

/// A line with the short date format, then a text.
void checkDate(std::string_view input)
{
    Regional regional;
    regional.shortDate = fuzz::takePart(input);
    const std::optional<Date> date = readDate(input, regional);
    require(errorOf([&] { (void)toDate(Variant(std::string(input)), regional); }) == 0 || !date,
            "a text that is a date is converted");
    if (!date) return;
    const DateParts parts = partsOf(*date);
    require(isRealDay(parts) && parts.hour < 24 && parts.minute < 60 && parts.second < 60, "a date is a real day");
    require(dateText(*date, regional).size() <= 64 + 16 * regional.shortDate.size(),
            "a date text is as long as its format");
    const std::optional<Date> again = readDate(dateText(*date, kRegional), kRegional);
    require(again && std::abs(again->days() - date->days()) < 1e-6, "a date text is read as the same date");
}

/// A line with the pattern, then a text.
void checkFormat(std::string_view input)
{
    const std::string_view pattern = fuzz::takePart(input);
    constexpr std::size_t kLongestNumber = 1000, kLongestPart = 64;
    const std::size_t longest = kLongestNumber + pattern.size() * kLongestPart + input.size();
    const Variant text(input);
    require(formatText(text, pattern, kRegional).size() <= longest, "a formatted text is as long as its pattern");
    if (isNumeric(text))
        require(formatText(Variant(toDouble(text)), pattern, kRegional).size() <= longest,
                "a formatted number is as long as its pattern");
    if (const auto date = readDate(input, kRegional))
        require(formatText(Variant(*date), pattern, kRegional).size() <= longest,
                "a formatted date is as long as its pattern");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    return fuzz::runChoice({checkNumber, checkNumberText, checkWholeNumbers, checkDate, checkFormat}, data, size);
}
