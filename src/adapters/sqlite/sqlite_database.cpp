#include "adapters/sqlite/sqlite_database.h"

#include "adapters/database/connection_string.h"
#include "adapters/sqlite/sqlite_connection.h"
#include "adapters/sqlite/sqlite_handle.h"
#include "adapters/sqlite/sqlite_pool.h"
#include "adapters/sqlite/sqlite_recordset.h"

#include <sqlite3.h>

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
    std::vector<ProviderError> errors;
    return SqliteHandle(resolvePath(source), source, kDefaultCommandTimeout, errors).passesIntegrityCheck(errors);
}

} // namespace inin::sqlite
