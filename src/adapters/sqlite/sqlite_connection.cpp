#include "adapters/sqlite/sqlite_connection.h"

#include "adapters/sqlite/connection_string.h"
#include "adapters/sqlite/sqlite_error.h"
#include "runtime/runtime_error.h"
#include "runtime/text.h"

#include <algorithm>

namespace inin::sqlite {

namespace {

/// The file name without folder and extension: "C:\data\demo.db" is the database demo.
std::string databaseName(const std::string &dataSource)
{
    const std::size_t folder = dataSource.find_last_of("/\\");
    const std::string file = folder == std::string::npos ? dataSource : dataSource.substr(folder + 1);
    const std::size_t dot = file.rfind('.');
    return dot == std::string::npos || dot == 0 ? file : file.substr(0, dot);
}

} // namespace

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
    IdlePool::giveBack(connectionString, std::move(handle));
}

void SqliteConnection::Open(const std::string &connectionString, const std::string &, const std::string &, std::int32_t)
{
    if (isOpen()) raiseOpen();
    std::unique_ptr<SqliteHandle> handle = pool().take(connectionString);
    if (!handle) handle = openFile(connectionString);
    pool().lend(*handle);
    use(std::move(handle), connectionString);
    if (m_connectionString == connectionString && !m_database.empty()) return;
    m_connectionString = connectionString;
    m_database = databaseName(ConnectionString(connectionString).value("Data Source"));
}

/// The error messages do not contain the connection string, because it may contain a password.
std::unique_ptr<SqliteHandle> SqliteConnection::openFile(const std::string &connectionString)
{
    const ConnectionString parts(connectionString);
    const std::string provider = parts.value("Provider");
    if (!equalsIgnoringAsciiCase(provider, "SQLite"))
        raise(*errors(),
              providerError(ado_error::unspecified, "IM002",
                            provider.empty() ? "the connection string names no Provider"
                                             : "this database is opened by Provider=SQLite, not by " + provider));
    const std::string source = parts.value("Data Source");
    if (source.empty())
        raise(*errors(), providerError(ado_error::unspecified, "IM002", "the connection string names no Data Source"));
    auto handle =
        std::make_unique<SqliteHandle>(m_resolvePath(source), source, CommandTimeout(), errors(), pool().clock());
    if (equalsIgnoringAsciiCase(parts.value("Mode"), "Share Exclusive")) handle->lockExclusively();
    return handle;
}

} // namespace inin::sqlite
