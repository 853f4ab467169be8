#pragma once

struct sqlite3;

namespace inin {

/// Gives a connection what the translated statements call: the collations of texts and dates, LIKE as the server
/// compares, SUBSTRING and LEFT by UTF-16 units, and dates as texts. Gives back SQLite's code.
[[nodiscard]] int registerSqlFunctions(sqlite3 *db);

} // namespace inin
