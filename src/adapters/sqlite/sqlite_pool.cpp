#include "adapters/sqlite/sqlite_pool.h"

#include <algorithm>

namespace inin {

namespace {

constexpr std::chrono::minutes kIdleTime{1};
/// A unit of work opens one session, seldom two; what comes back beyond that was a burst.
constexpr std::size_t kMostIdle = 4;

} // namespace

std::unique_ptr<SqliteHandle> SqlitePool::take(const std::string &connectionString)
{
    dropOld();
    const auto found = m_idle.find(connectionString);
    while (found != m_idle.end() && !found->second.empty()) {
        std::unique_ptr<SqliteHandle> handle = std::move(found->second.back().handle);
        found->second.pop_back();
        if (handle->isAlive()) return handle;
    }
    return nullptr;
}

void SqlitePool::lend(SqliteHandle &handle)
{
    m_lent.insert(&handle);
    // All sessions live on one thread: while this one waits, none of the others can end what it has begun. Another's
    // writing shuts out all, another's reading only the commit of one that has written.
    handle.setHopelessLock([this, &handle] {
        return std::any_of(m_lent.begin(), m_lent.end(), [&handle](const SqliteHandle *other) {
            return other != &handle && (other->isWriting() || (handle.isWriting() && other->isReading()));
        });
    });
}

void SqlitePool::giveBack(const std::string &connectionString, std::unique_ptr<SqliteHandle> handle)
{
    m_lent.erase(handle.get());
    dropOld();
    if (m_closed || !handle->tidy()) return;
    std::vector<Idle> &idle = m_idle[connectionString];
    if (idle.size() < kMostIdle) idle.push_back({std::move(handle), m_now()});
}

void SqlitePool::close()
{
    m_closed = true;
    m_idle.clear();
}

std::size_t SqlitePool::idleCount() const
{
    std::size_t count = 0;
    for (const auto &[connectionString, idle] : m_idle) count += idle.size();
    return count;
}

void SqlitePool::dropOld()
{
    const TimePoint now = m_now();
    for (auto &[connectionString, idle] : m_idle)
        std::erase_if(idle, [now](const Idle &entry) { return now - entry.since >= kIdleTime; });
}

} // namespace inin
