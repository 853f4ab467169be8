#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace inin::viewer {

/// A date text as the letter file has it, written by a pattern of the runtime (y, m, d, ggg, e …), with the first year of
/// an era as 元. Nothing when the text is no date.
[[nodiscard]] std::optional<std::string> writtenDate(std::string_view text, std::string_view pattern);

} // namespace inin::viewer
