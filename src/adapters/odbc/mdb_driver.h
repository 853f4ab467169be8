#pragma once

#include "adapters/odbc/column.h"

#include <string>
#include <string_view>

namespace inin::odbc {

// The driver that reads Jet files outside Windows keeps few of ODBC's promises. What it needs done differently:
// - Of a bound column's length it writes 32 bits only, and a text that does not fit it cuts, so nothing is bound: each
//   value is fetched by itself, into a buffer that holds the longest text that the driver gives.
// - It minds the caller's types little: texts come as UTF-8, a single comes where a double was asked for. A negative
//   whole number of 16 bits it takes for too large, but not where one of 32 bits is asked for.
// - It tells neither how many rows a fetch gave nor the present database; what it leaves there is chance.
// - It opens every file, even one that holds no database.
// - Its scanner takes ASCII names only, others in brackets, and no semicolon at the end.
// - Its conditions find the wrong rows without a word: with NULL, dates, currency, decimals, bytes and negative numbers
//   of 16 bits. So a statement with conditions is refused: who wants some of the rows reads them all and chooses.
// What stays, and is the driver's:
// - Values: a text ends behind 16383 bytes; an empty text is NULL; currency is a number without its type; a decimal and a
//   GUID come as text, bytes as text up to the first 0; a date before the end of 1899 comes as the text "1900-01-00".
// - Statements: columns of one table; no ORDER BY, DISTINCT, alias or join.
// - Paths: none with a semicolon.
// - Failures: one text for all, without the SQL state; the reason goes to the error stream of the process.

/// True for the name by which that driver calls its database.
[[nodiscard]] bool isMdbDriver(std::string_view databaseName);
/// A statement that every Jet file can run.
inline constexpr const char *kMdbCatalogue = "SELECT Id FROM MSysObjects";
/// The column as its values can be had from that driver.
[[nodiscard]] OdbcColumn mdbColumn(OdbcColumn column);
/// A statement as the driver's scanner takes it, or why it must not be given to the driver.
struct MdbStatement {
    std::string text;
    std::string problem;
};
[[nodiscard]] MdbStatement mdbStatement(std::string_view sql);
/// The library of that driver which takes statements in UTF-16: its package registers only the one that takes them in
/// the process's code page. The registered name when there is no such file.
[[nodiscard]] std::string mdbDriverLibrary();

} // namespace inin::odbc
