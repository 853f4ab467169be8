#pragma once

struct sqlite3;

namespace inin {

/// Registers what translated statements use: the collations of texts and dates, the server's LIKE, SUBSTRING and LEFT
/// by UTF-16 units, and the conversion of dates to texts. Returns SQLite's result code.
[[nodiscard]] int registerSqlFunctions(sqlite3 *db);

} // namespace inin
