#pragma once

#include "adapters/sqlite/sqlite_handle.h"

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace inin {

/// Idle physical connections by connection string, each kept for a minute after its last session. There is no
/// thread behind it: what is too old goes when the pool is asked next.
class SqlitePool {
public:
    using TimePoint = std::chrono::steady_clock::time_point;
    explicit SqlitePool(std::function<TimePoint()> now = std::chrono::steady_clock::now) : m_now(std::move(now)) {}

    /// An idle connection that still stands on its file, nullptr when there is none.
    std::unique_ptr<SqliteHandle> take(const std::string &connectionString);
    /// Lists a connection that a session uses from now on, whether taken or new.
    void lend(SqliteHandle &handle);
    /// Takes a connection back from its session; one that cannot be tidied is closed.
    void giveBack(const std::string &connectionString, std::unique_ptr<SqliteHandle> handle);
    /// Closes all idle connections, and from now on each that comes back.
    void close();
    [[nodiscard]] std::size_t idleCount() const;

private:
    struct Idle {
        std::unique_ptr<SqliteHandle> handle;
        TimePoint since;
    };
    void dropOld();

    std::function<TimePoint()> m_now;
    std::map<std::string, std::vector<Idle>> m_idle;
    std::set<const SqliteHandle *> m_lent;
    bool m_closed = false;
};

} // namespace inin
