#pragma once

#include "platform/dao.h"
#include "platform/database.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace inin {

enum class DaoAccess { readWrite, readOnly };

/// A kind of local database file and the provider that reads it.
struct DaoFileKind {
    std::shared_ptr<Database> provider;
    /// Converts a path of the suite to one of the operating system.
    std::function<std::string(const std::string &name)> resolvePath;
    /// True when a file that begins with these bytes is of this kind.
    std::function<bool(std::string_view start)> isOfThisKind;
    std::function<std::string(const std::string &path, DaoWorkspace::Sharing sharing)> connectionString;
    DaoAccess access = DaoAccess::readWrite;
};

/// Implements DAO over a provider's ADO connections. It adds what ADO lacks: one transaction for all databases of a
/// workspace, table names as sources, and DAO's error numbers. Transactions do not nest. A statement that violates a
/// constraint fails even without dbFailOnError.
[[nodiscard]] std::unique_ptr<DaoEngine> makeDaoOverAdo(DaoFileKind kind);

} // namespace inin
