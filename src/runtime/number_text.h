#pragma once

#include <cstdint>
#include <string_view>

namespace inin {

/// What a text says as a number, told without an exception, since Format and isNumeric only ask.
struct NumberReading {
    enum class Outcome { number, bits, mismatch, overflow };
    Outcome outcome = Outcome::mismatch;
    double value = 0;
    /// The bit pattern of an &H or &O text.
    std::uint32_t bits = 0;
};

/// Reads a number as the conversions do; see numberFromText for the forms.
[[nodiscard]] NumberReading readNumber(std::string_view text);

/// The number that the text begins with, 0 without one; error 6 beyond a double. Blanks, tabs and line feeds are skipped
/// everywhere, commas and all other characters end the number: "1 234円" is 1234, "1,234" is 1.
[[nodiscard]] double leadingNumber(std::string_view text);

} // namespace inin
