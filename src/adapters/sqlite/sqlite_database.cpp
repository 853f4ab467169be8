#include "adapters/sqlite/sqlite_database.h"

#include "adapters/database/connection_string.h"
#include "adapters/database/dao_over_ado.h"
#include "adapters/sqlite/sqlite_connection.h"

#include <sqlite3.h>

#include <string_view>

namespace inin::sqlite {

namespace {

class SqliteDatabase : public Database {
public:
    explicit SqliteDatabase(ResolvePath resolvePath) : m_resolvePath(std::move(resolvePath)) {}
    ~SqliteDatabase() override { m_pool->close(); }

    std::unique_ptr<Connection> newConnection() override
    {
        return std::make_unique<SqliteConnection>(m_pool, m_resolvePath);
    }
    std::unique_ptr<Recordset> newRecordset() override { return std::make_unique<SqliteRecordset>(); }
    [[nodiscard]] bool isWriterBusy() const override { return m_pool->isWriting(); }

private:
    ResolvePath m_resolvePath;
    /// Shared with the sessions, which may outlive this object and then close their files themselves.
    std::shared_ptr<SqlitePool> m_pool = std::make_shared<SqlitePool>();
};

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

std::unique_ptr<Database> makeSqliteDatabase(std::function<std::string(const std::string &)> resolvePath)
{
    // Memory statistics are not used and would lock a mutex at each allocation. The call fails, without harm, once
    // SQLite is initialized.
    (void)sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
    return std::make_unique<SqliteDatabase>(std::move(resolvePath));
}

bool isSoundSqliteDatabase(const std::string &connectionString,
                           const std::function<std::string(const std::string &)> &resolvePath)
{
    const ConnectionString parts = readConnectionString(connectionString);
    if (!parts.isForSqlite()) return true;
    const std::string source = parts.value("data source").value_or("");
    SqliteHandle file(resolvePath(source), source, kDefaultCommandTimeout, std::make_shared<SqliteHandle::Errors>());
    return file.passesIntegrityCheck();
}

std::unique_ptr<DaoEngine> makeSqliteDao(std::function<std::string(const std::string &)> resolvePath)
{
    constexpr std::string_view kStart("SQLite format 3\0", 16);
    // The provider keeps the path, because makeDaoOverAdo has resolved it.
    std::shared_ptr<Database> provider = makeSqliteDatabase([](const std::string &path) { return path; });
    return makeDaoOverAdo({std::move(provider), std::move(resolvePath),
                           [kStart](std::string_view start) { return start.starts_with(kStart); }, connectionString,
                           DaoAccess::readWrite});
}

} // namespace inin::sqlite
