#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace inin::viewer {

/// Formats a date text of the letter file by a runtime pattern (y, m, d, ggg, e …). The first year of an era is 元.
/// Empty when the text is not a date.
[[nodiscard]] std::optional<std::string> formattedDate(std::string_view text, std::string_view pattern);

/// The pattern with blanks instead of the date, to be filled in by hand: "ggge年m月d日" gives "　　　　年　　月　　日".
[[nodiscard]] std::string blankDate(std::string_view pattern);

} // namespace inin::viewer
