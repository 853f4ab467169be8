#pragma once

#include <string>
#include <string_view>

namespace inin::odbc {

/// Why a text is not exactly one SELECT (or WITH … SELECT) of the server's language; empty if it is. A text that the
/// server might read differently from this scanner is refused, even if harmless.
[[nodiscard]] std::string singleSelectProblem(std::string_view sql);

} // namespace inin::odbc
