#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace inin::odbc {

/// The input of SQLDriverConnect.
struct OdbcString {
    std::string text;
    std::int32_t loginTimeout = 0;    ///< seconds, 0 waits forever
    std::vector<std::string> secrets; ///< what must not appear in any message
    std::string problem;              ///< why there is no such string; contains no secret
};

/// User and password passed to ADO's Open beside the connection string; they take precedence if the user is not empty.
struct LogIn {
    std::string user;
    std::string password;
};

/// Turns a connection string (ADO's form, ODBC's form, or the name of a data source) into an ODBC string for one of the
/// installed drivers. Pure: no system calls. A string for SQL Server is rewritten for the driver; any other is passed
/// on.
[[nodiscard]] OdbcString odbcStringFor(std::string_view connectionString,
                                       const std::vector<std::string> &installedDrivers, const LogIn &logIn = {});

/// The same connection string, of either form, with another database of the server.
[[nodiscard]] std::string withDatabase(std::string_view connectionString, std::string_view database);

} // namespace inin::odbc
