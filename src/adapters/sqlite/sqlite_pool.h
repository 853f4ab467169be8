#pragma once

#include "adapters/common/idle_pool.h"
#include "adapters/sqlite/sqlite_handle.h"

#include <chrono>
#include <functional>
#include <memory>
#include <set>
#include <string>

namespace inin {

/// The idle connections of the embedded database, and a list of those that sessions use.
class SqlitePool {
public:
    using TimePoint = std::chrono::steady_clock::time_point;
    explicit SqlitePool(std::function<TimePoint()> now = std::chrono::steady_clock::now) : m_idle(std::move(now)) {}

    /// An idle connection whose file is unchanged, nullptr when there is none.
    std::unique_ptr<SqliteHandle> take(const std::string &connectionString) { return m_idle.take(connectionString); }
    /// Lists a connection that a session uses from now on, whether taken or new.
    void lend(SqliteHandle &handle);
    /// A lent connection has the right to write.
    [[nodiscard]] bool isWriting() const;
    /// Takes a connection back from its session; one that cannot be tidied is closed.
    void giveBack(const std::string &connectionString, std::unique_ptr<SqliteHandle> handle);
    /// Closes all idle connections, and from now on each that comes back.
    void close() { m_idle.close(); }
    [[nodiscard]] std::size_t idleCount() const { return m_idle.idleCount(); }

private:
    IdlePool<SqliteHandle> m_idle;
    std::set<const SqliteHandle *> m_lent;
};

} // namespace inin
