#pragma once

#include "adapters/common/idle_pool.h"
#include "adapters/sqlite/sqlite_handle.h"

#include <chrono>
#include <functional>
#include <memory>
#include <set>
#include <string>

namespace inin {

/// The idle connections of the embedded database, and the list of connections in use.
class SqlitePool {
public:
    using TimePoint = std::chrono::steady_clock::time_point;
    explicit SqlitePool(std::function<TimePoint()> now = std::chrono::steady_clock::now)
        : m_now(now), m_idle(std::move(now))
    {
    }
    /// The clock of the pool and of its connections.
    [[nodiscard]] const std::function<TimePoint()> &clock() const { return m_now; }

    /// An idle connection whose file is unchanged, nullptr for none.
    std::unique_ptr<SqliteHandle> take(const std::string &connectionString) { return m_idle.take(connectionString); }
    /// Lists a connection, taken or new, as in use by a session.
    void lend(SqliteHandle &handle);
    /// True while a connection in use has the write lock.
    [[nodiscard]] bool isWriting() const;
    /// Returns a connection to the pool, or closes it when it cannot be used again.
    void giveBack(const std::string &connectionString, std::unique_ptr<SqliteHandle> handle);
    /// Closes all idle connections, and later each one that is returned.
    void close() { m_idle.close(); }
    [[nodiscard]] std::size_t idleCount() const { return m_idle.idleCount(); }

private:
    std::function<TimePoint()> m_now;
    IdlePool<SqliteHandle> m_idle;
    std::set<const SqliteHandle *> m_lent;
};

} // namespace inin
