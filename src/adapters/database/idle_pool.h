#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <new>
#include <string>
#include <vector>

namespace inin {

/// Idle physical connections by connection string, each kept for a minute after its last session. The pool has no
/// thread: each use of it closes the expired connections. A `Handle` has isAlive(), true while it is usable, and
/// tidy(), which ends what a session left open and returns false when the connection cannot be used again.
template <class Handle> class IdlePool {
public:
    using TimePoint = std::chrono::steady_clock::time_point;
    static constexpr std::chrono::minutes kIdleTime{1};
    /// A unit of work opens one session, rarely two; more connections than this come from a short burst.
    static constexpr std::size_t kMaxIdle = 4;

    explicit IdlePool(std::function<TimePoint()> now = std::chrono::steady_clock::now) : m_now(std::move(now)) {}

    [[nodiscard]] const std::function<TimePoint()> &clock() const { return m_now; }

    /// An idle connection that is still usable, nullptr for none.
    std::unique_ptr<Handle> take(const std::string &connectionString)
    {
        dropOld();
        const auto found = m_idle.find(connectionString);
        while (found != m_idle.end() && !found->second.empty()) {
            std::unique_ptr<Handle> handle = std::move(found->second.back().handle);
            found->second.pop_back();
            if (handle->isAlive()) return handle;
        }
        return nullptr;
    }

    /// Returns a connection to the pool, or closes it when it cannot be used again or there is no memory to keep it.
    void giveBack(const std::string &connectionString, std::unique_ptr<Handle> handle)
    try {
        dropOld();
        if (m_closed || !handle->tidy()) return;
        std::vector<Idle> &idle = m_idle[connectionString];
        if (idle.size() < kMaxIdle) idle.push_back({std::move(handle), m_now()});
    } catch (const std::bad_alloc &) {
        // `handle` closes it; destructors of sessions call this
    }

    /// Closes all idle connections, and later each one that is returned.
    void close()
    {
        m_closed = true;
        m_idle.clear();
    }

    [[nodiscard]] std::size_t idleCount() const
    {
        std::size_t count = 0;
        for (const auto &[connectionString, idle] : m_idle) count += idle.size();
        return count;
    }

private:
    struct Idle {
        std::unique_ptr<Handle> handle;
        TimePoint since;
    };

    void dropOld()
    {
        const TimePoint now = m_now();
        for (auto &[connectionString, idle] : m_idle)
            std::erase_if(idle, [now](const Idle &entry) { return now - entry.since >= kIdleTime; });
    }

    std::function<TimePoint()> m_now;
    std::map<std::string, std::vector<Idle>> m_idle;
    bool m_closed = false;
};

} // namespace inin
