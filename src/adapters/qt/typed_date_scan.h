#pragma once

#include "runtime/date.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace inin {

/// A typed date taken apart, before anybody asks what its numbers mean.
struct ScannedDate {
    enum class Unit { none, year, month, day };
    struct Number {
        std::int32_t value = 0;
        std::size_t digits = 0;
        Unit unit = Unit::none; ///< the 年, 月 or 日 behind it
    };
    const Era *era = nullptr;
    std::vector<Number> numbers;
    bool isWhole = false; ///< false when something stands in the text that belongs to no date
};

/// Full-width characters, and those that an input method types for a point, a slash and a hyphen, become their plain
/// ones.
[[nodiscard]] std::string foldedDateText(std::string_view text);
[[nodiscard]] ScannedDate scanTypedDate(std::string_view foldedText, std::span<const Era> eraTable);

} // namespace inin
