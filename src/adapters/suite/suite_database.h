#pragma once

#include "platform/database.h"

#include <functional>
#include <memory>
#include <string>

namespace inin {

/// The database of every program: the connection string selects the adapter. `Provider=SQLite` selects the embedded
/// database; anything else (an ADO string for SQL Server, an ODBC string, the name of a data source) selects ODBC.
/// `resolvePath` converts the Data Source of an embedded database, a path of the suite, to one of the system.
[[nodiscard]] std::unique_ptr<Database> makeSuiteDatabase(std::function<std::string(const std::string &)> resolvePath);

} // namespace inin
