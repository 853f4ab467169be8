#pragma once

#include "runtime/date.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace inin {

/// The parts of a typed date before they are interpreted.
struct ScannedDate {
    enum class Unit { none, year, month, day };
    struct Number {
        std::int32_t value = 0;
        std::size_t digits = 0;
        Unit unit = Unit::none; ///< the 年, 月 or 日 that follows it
    };
    const Era *era = nullptr;
    std::vector<Number> numbers;
    bool isWhole = false; ///< false when the text contains something that is not part of a date
};

/// Replaces full-width characters, and those that an input method enters for a point, a slash and a hyphen, by the
/// plain ones, and a single character for an era or a weekday by its name.
[[nodiscard]] std::string foldedDateText(std::string_view text);
/// Numbers are separated by a sign, blanks or 年, 月 and 日. A weekday in brackets and a time at the end are dropped.
[[nodiscard]] ScannedDate scanTypedDate(std::string_view foldedText, std::span<const Era> eraTable);

} // namespace inin
