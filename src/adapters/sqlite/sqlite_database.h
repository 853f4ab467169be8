#pragma once

#include "platform/dao.h"
#include "platform/database.h"

#include <functional>
#include <memory>
#include <string>

namespace inin::sqlite {

/// The database port on SQLite. It opens `Provider=SQLite;Data Source=demo.db` and runs statements written for SQL
/// Server. Idle physical connections are kept for a minute, by connection string. `resolvePath` converts the Data
/// Source, a path of the suite, to one of the operating system.
[[nodiscard]] std::unique_ptr<Database> makeSqliteDatabase(std::function<std::string(const std::string &)> resolvePath);

/// Checks the pages, rows and indexes of the whole database file of a connection string; false when they are
/// inconsistent. A changed byte within a value is not detected. RuntimeError when the file cannot be opened or is
/// locked. True for another provider's connection string.
[[nodiscard]] bool isSoundSqliteDatabase(const std::string &connectionString,
                                         const std::function<std::string(const std::string &)> &resolvePath);

/// The embedded database with the interface of DAO. A database's name is the path of its file; `resolvePath` converts
/// that path of the suite to one of the operating system.
[[nodiscard]] std::unique_ptr<DaoEngine> makeSqliteDao(std::function<std::string(const std::string &)> resolvePath);

} // namespace inin::sqlite
