#pragma once

#include "platform/database.h"

#include <functional>
#include <memory>
#include <string>

namespace inin {

/// The embedded database behind the database port. Takes `Provider=SQLite;Data Source=demo.db`; statements come in as
/// SQL Server texts. Physical connections are kept idle for a minute, by connection string.
/// `resolvePath` turns the Data Source, a path of the suite, into one that the system opens.
[[nodiscard]] std::unique_ptr<Database> makeSqliteDatabase(std::function<std::string(const std::string &)> resolvePath);

/// Reads the whole database file of a connection string, its pages, rows and indexes; false where they contradict each
/// other. A wrong byte within a value is not noticed. RuntimeError when the file cannot be opened or is locked; a
/// connection string of another provider is sound.
[[nodiscard]] bool isSoundSqliteDatabase(const std::string &connectionString,
                                         const std::function<std::string(const std::string &)> &resolvePath);

} // namespace inin
