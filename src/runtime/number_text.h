#pragma once

#include <cstdint>
#include <string_view>

namespace inin {

/// The number in a text. Reading throws no exception, because Format and isNumeric only test the text.
struct NumberReading {
    enum class Outcome { number, bits, mismatch, overflow };
    Outcome outcome = Outcome::mismatch;
    double value = 0;
    /// The bit pattern of an &H or &O text.
    std::uint32_t bits = 0;
};

/// Reads a number by the rules of the conversions; see numberFromText for the forms.
[[nodiscard]] NumberReading readNumber(std::string_view text);

/// The number at the start of the text, 0 if there is none; error 6 if it does not fit a double. Blanks, tabs and line
/// feeds are skipped everywhere; commas and all other characters end the number: "1 234円" is 1234, "1,234" is 1.
[[nodiscard]] double leadingNumber(std::string_view text);

} // namespace inin
