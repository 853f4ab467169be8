#include "adapters/sqlite/sqlite_pool.h"

#include <algorithm>

namespace inin {

void SqlitePool::lend(SqliteHandle &handle)
{
    m_lent.insert(&handle);
    // All sessions run on one thread: while this one waits, no other can end its transaction or release its read lock.
    // A session with the write lock blocks all others, a reading session only the commit of a writer.
    handle.setDeadlockCheck([this, &handle] {
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
