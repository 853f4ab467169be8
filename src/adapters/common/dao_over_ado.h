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
    /// A path of the suite as the system writes it.
    std::function<std::string(const std::string &name)> resolvePath;
    /// True when a file that begins with these bytes is of this kind.
    std::function<bool(std::string_view start)> isOfThisKind;
    std::function<std::string(const std::string &path, DaoWorkspace::Sharing sharing)> connectionString;
    DaoAccess access = DaoAccess::readWrite;
};

/// The older library over a provider's connections. What DAO has and ADO lacks is done here: one transaction for all
/// databases of a workspace, table names as sources, and DAO's error numbers. Workspaces do not nest transactions, and
/// a statement that breaks a rule of its table fails whether or not dbFailOnError asks for it.
[[nodiscard]] std::unique_ptr<DaoEngine> makeDaoOverAdo(DaoFileKind kind);

} // namespace inin
