#pragma once

#include "adapters/odbc/column.h"

#include <string>
#include <string_view>

namespace inin::odbc {

// The driver that reads Jet files outside Windows deviates from ODBC. Workarounds in this adapter:
// - It writes only 32 bits of a bound column's length and truncates text that does not fit. Therefore nothing is
//   bound: each value is fetched by itself, into a buffer for the longest text that the driver returns.
// - It ignores most requested types: text is UTF-8, and a single is returned where a double was requested. A negative
//   16-bit number fails as out of range unless a 32-bit number is requested.
// - The row count of a fetch and the current database are undefined; they are not read.
// - It opens any file, even one without a database.
// - Its scanner reads only ASCII names (others in brackets) and no semicolon at the end.
// - Its conditions silently select wrong rows for NULL, dates, currency, decimals, bytes and negative 16-bit numbers.
//   Therefore a statement with conditions is refused: read all rows and filter them here.
// Limits that remain:
// - Values: text is cut after 16383 bytes; an empty text is NULL; currency is a number without its type; decimals and
//   GUIDs are text; bytes are text up to the first 0; a date before the end of 1899 is the text "1900-01-00".
// - Statements: columns of one table; no ORDER BY, DISTINCT, alias or join.
// - Paths: no semicolons.
// - Failures: one text for all, without SQL state; the reason is written to the error stream of the process.

/// True if SQLGetInfo reports the database name of that driver.
[[nodiscard]] bool isMdbDriver(std::string_view databaseName);
/// A statement that every Jet file can run.
inline constexpr const char *kMdbCatalogue = "SELECT Id FROM MSysObjects";
/// The column adjusted to the types in which that driver delivers its values.
[[nodiscard]] OdbcColumn mdbColumn(OdbcColumn column);
/// A statement in the form that the driver's scanner accepts, or why it must not be sent to the driver.
struct MdbStatement {
    std::string text;
    std::string problem;
};
[[nodiscard]] MdbStatement mdbStatement(std::string_view sql);
/// The library of that driver that accepts UTF-16 statements; the driver's package registers only the one for the
/// process's code page. The registered name if that file does not exist.
[[nodiscard]] std::string mdbDriverLibrary();

} // namespace inin::odbc
