#include "adapters/sqlite/sqlite_database.h"

#include "adapters/sqlite/connection_string.h"
#include "adapters/sqlite/sqlite_connection.h"
#include "runtime/text.h"

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
    const ConnectionString parts(connectionString);
    if (!equalsIgnoringAsciiCase(parts.value("Provider"), "SQLite")) return true;
    const std::string source = parts.value("Data Source");
    SqliteHandle file(resolvePath(source), source, kDefaultCommandTimeout, std::make_shared<SqliteHandle::Errors>());
    return file.passesIntegrityCheck();
}

} // namespace inin::sqlite
