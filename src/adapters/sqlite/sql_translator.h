#pragma once

#include <string>
#include <string_view>

namespace inin {

/// Turns a SQL Server text of the suite into SQLite's: SELECT TOP n, CONVERT(VARCHAR, x, 111 or 112), LEFT(a, n), 0x…
/// values, GetDate(), a literal that is wholly a date, LIKE as the server's Japanese collation compares. Works on
/// tokens: a quoted text is never touched except by its own rule.
[[nodiscard]] std::string translateSql(std::string_view sqlServerText);

/// True when the text is one SELECT (or WITH … SELECT) and nothing else.
[[nodiscard]] bool isSingleSelect(std::string_view sqlServerText);

} // namespace inin
