#pragma once

#include "adapters/database/connection_parts.h"
#include "adapters/odbc/driver_choice.h"

#include <string>

namespace inin::odbc {

/// True for a value that a driver would truncate or misread without braces.
[[nodiscard]] bool needsBraces(const std::string &value);

/// The ODBC string for SQL Server in the spelling of the driver. `isNamedDriver`: the connection string names it. Sets
/// `problem` if the driver does not support a part.
[[nodiscard]] std::string serverString(const ConnectionParts &parts, const OdbcDriver &driver, bool isNamedDriver,
                                       std::string &problem);

} // namespace inin::odbc
