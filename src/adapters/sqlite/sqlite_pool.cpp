#include "adapters/sqlite/sqlite_pool.h"

#include <algorithm>

namespace inin {

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

bool SqlitePool::isWriting() const
{
    return std::any_of(m_lent.begin(), m_lent.end(), [](const SqliteHandle *handle) { return handle->isWriting(); });
}

void SqlitePool::giveBack(const std::string &connectionString, std::unique_ptr<SqliteHandle> handle)
{
    m_lent.erase(handle.get());
    m_idle.giveBack(connectionString, std::move(handle));
}

} // namespace inin
