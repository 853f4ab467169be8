#pragma once

#include "runtime/regional.h"
#include "runtime/variant.h"

#include <string>
#include <string_view>

namespace inin {

/// The value written by a pattern: y, m, M, d, h, n, s runs, the era runs g, e and their like, digits 0 and #, and
/// literal text. A text is read as a date or a number first where the pattern wants one; a text that is neither comes
/// back as it is. Null gives Null. A pattern of numbers for a date gives its default text, as the runtime does.
[[nodiscard]] Variant Format(const Variant &value, std::string_view pattern, const Regional &regional);

/// As Format, but a text is due: Null is error 94.
[[nodiscard]] std::string formatText(const Variant &value, std::string_view pattern, const Regional &regional);

} // namespace inin
