#pragma once

#include "platform/database.h"

#include <functional>
#include <memory>
#include <string>

namespace inin {

/// The database of every program: each connection string picks its adapter. `Provider=SQLite` is the embedded database,
/// everything else (an ADO string for SQL Server, an ODBC string, the name of a data source) goes through ODBC.
/// `resolvePath` turns an embedded database's Data Source, a path of the suite, into one that the system opens.
[[nodiscard]] std::unique_ptr<Database> makeSuiteDatabase(std::function<std::string(const std::string &)> resolvePath);

} // namespace inin
