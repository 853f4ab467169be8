#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace inin::odbc {

/// One `key=value` of a connection string.
struct ConnectionPair {
    std::string key;      ///< in lower case, blanks within it made single
    std::string shownKey; ///< as written, without the blanks around it
    std::string value;    ///< as meant: without quotes or braces
    std::string raw;      ///< as written, quotes and braces included
};

/// A connection string taken apart. ADO and ODBC quote differently: in ADO's form "…" and '…' hold a value, with the
/// quote doubled inside, in ODBC's form {…} does, with the closing brace doubled.
struct ConnectionText {
    enum class Form : std::uint8_t { ado, odbc };
    Form form = Form::ado;
    std::vector<ConnectionPair> pairs;
    std::string problem; ///< why the string cannot be read; never holds a value of it

    /// The last value of a key in ADO's form, the first in ODBC's; nothing when there is none.
    [[nodiscard]] std::optional<std::string> value(std::string_view key) const;
};

/// Reads a string of either form; a text without any "=" is the name of a data source.
[[nodiscard]] ConnectionText readConnectionText(std::string_view text);
/// Reads one of ODBC's form, as it stands inside another string.
[[nodiscard]] ConnectionText readOdbcText(std::string_view text);

/// The value as an ODBC string holds it: in braces where a sign in it would be read as more than itself.
[[nodiscard]] std::string odbcQuoted(std::string_view value);

} // namespace inin::odbc
