#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace inin::odbc {

/// What SQLDriverConnect is to be given.
struct OdbcString {
    std::string text;
    std::int32_t loginTimeout = 0;    ///< seconds, 0 waits for ever
    std::vector<std::string> secrets; ///< what must not stand in any message
    std::string problem;              ///< why there is no such string; holds no secret
};

/// User and password that ADO's Open was given beside the connection string; they win when the user is not empty.
struct LogIn {
    std::string user;
    std::string password;
};

/// Turns a connection string (ADO's form, ODBC's form, or the name of a data source) into an ODBC string for one of the
/// installed drivers. Pure: asks nothing of the system.
/// A string for SQL Server is spelled anew for the driver; one for any other driver goes through as it stands.
[[nodiscard]] OdbcString odbcStringFor(std::string_view connectionString,
                                       const std::vector<std::string> &installedDrivers, const LogIn &logIn = {});

/// The same connection string, of either form, for another database of the server.
[[nodiscard]] std::string withDatabase(std::string_view connectionString, std::string_view database);

} // namespace inin::odbc
