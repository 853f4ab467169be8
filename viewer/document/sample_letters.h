#pragma once

#include "runtime/date.h"

#include <string_view>

namespace inin::viewer {

/// A letter file with the first letters of a demo site's month: the bytes of site/sample_letters.csv.
[[nodiscard]] std::string_view sampleLetters();
/// A day of that month, which is today for the check of these letters.
[[nodiscard]] inline Date sampleDay()
{
    return DateSerial(2024, 5, 31);
}

} // namespace inin::viewer
