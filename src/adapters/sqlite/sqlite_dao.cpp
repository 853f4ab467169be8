#include "adapters/sqlite/sqlite_dao.h"

#include "adapters/common/dao_over_ado.h"
#include "adapters/sqlite/sqlite_database.h"

#include <string_view>

namespace inin {

namespace {

std::string inDoubleQuotes(std::string_view value)
{
    std::string text = "\"";
    for (const char c : value) text.append(c == '"' ? 2 : 1, c);
    return text + "\"";
}

std::string connectionString(const std::string &path, DaoWorkspace::Sharing sharing)
{
    const std::string text = "Provider=SQLite;Data Source=" + inDoubleQuotes(path);
    return sharing == DaoWorkspace::Sharing::exclusive ? text + ";Mode=Share Exclusive" : text;
}

} // namespace

std::unique_ptr<DaoEngine> makeSqliteDao(std::function<std::string(const std::string &)> resolvePath)
{
    constexpr std::string_view kStart("SQLite format 3\0", 16);
    // The provider keeps the path, because makeDaoOverAdo has resolved it.
    std::shared_ptr<Database> provider = makeSqliteDatabase([](const std::string &path) { return path; });
    return makeDaoOverAdo({std::move(provider), std::move(resolvePath),
                           [kStart](std::string_view start) { return start.starts_with(kStart); }, connectionString,
                           DaoAccess::readWrite});
}

} // namespace inin
