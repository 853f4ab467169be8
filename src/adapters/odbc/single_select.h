#pragma once

#include <string>
#include <string_view>

namespace inin::odbc {

/// Why a text is not one SELECT (or WITH … SELECT) of the server's language and nothing else; empty when it is one.
/// A text that could mean more to the server than to this reader is refused, whatever it means.
[[nodiscard]] std::string singleSelectProblem(std::string_view sql);

} // namespace inin::odbc
