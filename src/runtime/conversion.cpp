#include "runtime/conversion.h"

#include "runtime/date_text.h"
#include "runtime/number_text.h"
#include "runtime/runtime_error.h"

#include <array>
#include <charconv>
#include <cmath>
#include <concepts>
#include <limits>

namespace inin {

namespace {

[[noreturn]] void raise(std::int32_t number)
{
    throw RuntimeError(number);
}

/// The nearest whole number; halves round to even. Independent of the processor's rounding mode.
double roundedHalfToEven(double value)
{
    const double below = std::floor(value);
    const double fraction = value - below;
    if (fraction != 0.5) return fraction < 0.5 ? below : below + 1;
    return std::fmod(below, 2) == 0 ? below : below + 1;
}

template <std::integral Whole> Whole wholeOf(double value)
{
    const double rounded = roundedHalfToEven(value);
    if (!(rounded >= std::numeric_limits<Whole>::min() && rounded <= std::numeric_limits<Whole>::max()))
        raise(error_number::overflow);
    return static_cast<Whole>(rounded);
}

double doubleOf(const NumberReading &reading)
{
    using Outcome = NumberReading::Outcome;
    if (reading.outcome == Outcome::mismatch) raise(error_number::typeMismatch);
    if (reading.outcome == Outcome::overflow) raise(error_number::overflow);
    // A bit pattern that would be negative as a 32-bit number is out of range here.
    const bool isNegative = reading.bits > std::uint32_t{std::numeric_limits<std::int32_t>::max()};
    if (reading.outcome == Outcome::bits && isNegative) raise(error_number::overflow);
    return reading.value;
}

/// Text as a whole number. An &H or &O pattern that fits the type's bits is taken literally, including the sign bit.
template <std::integral Whole> Whole wholeFromText(std::string_view text)
{
    const NumberReading reading = readNumber(text);
    using Bits = std::make_unsigned_t<Whole>;
    if (reading.outcome == NumberReading::Outcome::bits && reading.bits <= std::numeric_limits<Bits>::max())
        return static_cast<Whole>(static_cast<Bits>(reading.bits));
    return wholeOf<Whole>(doubleOf(reading));
}

struct DoubleOfValue {
    double operator()(Empty) const { return 0; }
    double operator()(Null) const { raise(error_number::invalidUseOfNull); }
    double operator()(std::int16_t value) const { return value; }
    double operator()(std::int32_t value) const { return value; }
    double operator()(double value) const { return value; }
    double operator()(const std::string &text) const { return numberFromText(text); }
    double operator()(Date date) const { return date.days(); }
    double operator()(const Binary &) const { raise(error_number::typeMismatch); }
};

template <std::integral Whole> Whole wholeOfValue(const Variant &value)
{
    if (const auto *text = value.getIf<std::string>()) return wholeFromText<Whole>(*text);
    return wholeOf<Whole>(std::visit(DoubleOfValue{}, value.value()));
}

template <std::integral Whole> std::string wholeText(Whole value)
{
    std::array<char, 24> buffer{};
    const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    return {buffer.data(), written.ptr};
}

struct TextOfValue {
    const Regional &regional;
    std::string operator()(Empty) const { return {}; }
    std::string operator()(Null) const { raise(error_number::invalidUseOfNull); }
    std::string operator()(std::int16_t value) const { return wholeText(value); }
    std::string operator()(std::int32_t value) const { return wholeText(value); }
    std::string operator()(double value) const { return numberText(value); }
    std::string operator()(const std::string &text) const { return text; }
    std::string operator()(Date date) const { return dateText(date, regional); }
    std::string operator()(const Binary &) const { raise(error_number::typeMismatch); }
};

Date dateFromNumber(double days)
{
    constexpr double kBeforeFirst = -657435;
    constexpr double kAfterLast = 2958466;
    if (!(days > kBeforeFirst && days < kAfterLast)) raise(error_number::overflow);
    return Date(days);
}

} // namespace

std::int16_t toInteger(const Variant &value)
{
    return wholeOfValue<std::int16_t>(value);
}
std::int32_t toLong(const Variant &value)
{
    return wholeOfValue<std::int32_t>(value);
}
double toDouble(const Variant &value)
{
    return std::visit(DoubleOfValue{}, value.value());
}

std::string toText(const Variant &value, const Regional &regional)
{
    return std::visit(TextOfValue{regional}, value.value());
}

Date toDate(const Variant &value, const Regional &regional)
{
    if (const auto *date = value.getIf<Date>()) return *date;
    const auto *text = value.getIf<std::string>();
    if (text == nullptr) return dateFromNumber(std::visit(DoubleOfValue{}, value.value()));
    const std::optional<Date> date = readDate(*text, regional);
    if (!date) raise(error_number::typeMismatch);
    return *date;
}

std::int16_t toInteger(double value)
{
    return wholeOf<std::int16_t>(value);
}
std::int32_t toLong(double value)
{
    return wholeOf<std::int32_t>(value);
}

std::int16_t narrow(std::int32_t value)
{
    if (value < std::numeric_limits<std::int16_t>::min() || value > std::numeric_limits<std::int16_t>::max())
        raise(error_number::overflow);
    return static_cast<std::int16_t>(value);
}

double numberFromText(std::string_view text)
{
    return doubleOf(readNumber(text));
}

bool isNumeric(const Variant &value)
{
    if (const auto *text = value.getIf<std::string>()) {
        const NumberReading::Outcome outcome = readNumber(*text).outcome;
        return outcome == NumberReading::Outcome::number || outcome == NumberReading::Outcome::bits;
    }
    return !value.isNull() && value.getIf<Date>() == nullptr && value.getIf<Binary>() == nullptr;
}

} // namespace inin
