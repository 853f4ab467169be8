#pragma once

#include <string_view>

namespace inin::viewer {

/// A letter file with the first letters of a demo site's month: the bytes of site/sample_letters.csv.
[[nodiscard]] std::string_view sampleLetters();

} // namespace inin::viewer
