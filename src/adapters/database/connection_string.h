#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace inin {

/// One `key=value` of a connection string.
struct ConnectionPair {
    std::string key;      ///< in lower case, with inner runs of blanks reduced to one
    std::string shownKey; ///< as written, trimmed
    std::string value;    ///< without quotes or braces
    std::string raw;      ///< as written, with quotes or braces
};

/// A parsed connection string. Quoting differs: ADO puts a value in "…" or '…' and doubles the quote inside; ODBC puts
/// it in {…} and doubles the closing brace inside.
struct ConnectionString {
    enum class Form : std::uint8_t { ado, odbc };
    Form form = Form::ado;
    std::vector<ConnectionPair> pairs;
    std::string problem; ///< why the string cannot be read; contains no value of it

    /// The value of a key, if there is one: the last one in ADO's form, the first in ODBC's.
    [[nodiscard]] std::optional<std::string> value(std::string_view key) const;
    /// True for `Provider=SQLite`, the embedded database.
    [[nodiscard]] bool isForSqlite() const;
};

/// Reads a string of either form; text without "=" is the name of a data source.
[[nodiscard]] ConnectionString readConnectionString(std::string_view text);
/// Reads a string of ODBC's form that is part of another string.
[[nodiscard]] ConnectionString readOdbcString(std::string_view text);

/// The value as written in an ODBC string: in braces if it contains a special character.
[[nodiscard]] std::string odbcQuoted(std::string_view value);

} // namespace inin
