#pragma once

#include "runtime/regional.h"
#include "runtime/variant.h"

#include <string>
#include <string_view>

namespace inin {

/// The value formatted by a pattern: runs of y, m, M, d, h, n, s, era runs such as g and e, the digits 0 and #, and
/// literal text. Text is converted to a date or a number first if the pattern requires one, or else returned unchanged.
/// Null returns Null. As in the runtime, a date with a numeric pattern is written as its default text.
[[nodiscard]] Variant Format(const Variant &value, std::string_view pattern, const Regional &regional);

/// Like Format, but the result must be text: Null is error 94.
[[nodiscard]] std::string formatText(const Variant &value, std::string_view pattern, const Regional &regional);

} // namespace inin
