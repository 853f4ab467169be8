#include "adapters/sqlite/sqlite_connection.h"

#include "adapters/database/connection_string.h"
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
    m_database = databaseName(readConnectionString(connectionString).value("data source").value_or(""));
}

/// The error messages do not contain the connection string, because it may contain a password.
std::unique_ptr<SqliteHandle> SqliteConnection::openFile(const std::string &connectionString)
{
    const auto refuse = [this](const std::string &why) {
        raise(*errors(), providerError(ado_error::unspecified, "IM002", why));
    };
    const ConnectionString parts = readConnectionString(connectionString);
    const std::string provider = parts.value("provider").value_or("");
    if (provider.empty()) refuse("the connection string names no Provider");
    if (!parts.isForSqlite()) refuse("this database is opened by Provider=SQLite, not by " + provider);
    if (!parts.problem.empty()) refuse(parts.problem);
    const std::string source = parts.value("data source").value_or("");
    if (source.empty()) refuse("the connection string names no Data Source");
    auto handle =
        std::make_unique<SqliteHandle>(m_resolvePath(source), source, CommandTimeout(), errors(), pool().clock());
    if (equalsIgnoringAsciiCase(parts.value("mode").value_or(""), "Share Exclusive")) handle->lockExclusively();
    return handle;
}

} // namespace inin::sqlite
