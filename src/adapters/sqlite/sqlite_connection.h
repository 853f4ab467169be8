#pragma once

#include "adapters/database/idle_pool.h"
#include "adapters/database/pooled_session.h"
#include "adapters/sqlite/sqlite_handle.h"

#include <functional>
#include <memory>
#include <set>
#include <string>

namespace inin::sqlite {

/// The idle connections of the embedded database, and the list of connections in use. All connections use its clock.
class SqlitePool : public IdlePool<SqliteHandle> {
public:
    using IdlePool::IdlePool;
    /// Lists a connection, taken or new, as in use by a session.
    void lend(SqliteHandle &handle);
    /// True while a connection in use has the write lock.
    [[nodiscard]] bool isWriting() const;
    /// Returns a connection to the pool, or closes it when it cannot be used again.
    void giveBack(const std::string &connectionString, std::unique_ptr<SqliteHandle> handle);

private:
    std::set<const SqliteHandle *> m_lent;
};

using ResolvePath = std::function<std::string(const std::string &)>;

class SqliteConnection : public PooledConnection<SqliteHandle, SqlitePool> {
public:
    SqliteConnection(std::shared_ptr<SqlitePool> pool, ResolvePath resolvePath)
        : PooledConnection(std::move(pool)), m_resolvePath(std::move(resolvePath))
    {
    }
    void Open(const std::string &connectionString, const std::string &user, const std::string &password,
              std::int32_t options) override;
    [[nodiscard]] std::string DefaultDatabase() const override { return isOpen() ? m_database : std::string(); }

private:
    [[nodiscard]] std::unique_ptr<SqliteHandle> openFile(const std::string &connectionString);

    ResolvePath m_resolvePath;
    std::string m_connectionString;
    std::string m_database;
};

using SqliteRecordset = PooledRecordset<SqliteHandle, SqliteCursor, SqliteConnection>;

} // namespace inin::sqlite
