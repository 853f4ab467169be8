#include "adapters/sqlite/sqlite_connection.h"

#include "adapters/database/connection_string.h"
#include "adapters/sqlite/sqlite_error.h"
#include "runtime/runtime_error.h"
#include "runtime/text.h"

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

SqliteConnection::~SqliteConnection()
{
    if (m_lease) giveBack();
}

void SqliteConnection::Open(const std::string &connectionString, const std::string &, const std::string &, std::int32_t)
{
    if (m_lease) raiseOpen();
    std::unique_ptr<SqliteHandle> handle = m_pool->take(connectionString);
    if (!handle) handle = openFile(connectionString);
    handle->setTimeout(m_timeout);
    m_pool->lend(*handle);
    m_lease = std::make_shared<SqliteLease>(SqliteLease{std::move(handle), m_errors});
    if (m_connectionString == connectionString && !m_database.empty()) return;
    m_connectionString = connectionString;
    m_database = databaseName(readConnectionString(connectionString).value("data source").value_or(""));
}

/// The error messages do not contain the connection string, because it may contain a password.
std::unique_ptr<SqliteHandle> SqliteConnection::openFile(const std::string &connectionString)
{
    const auto refuse = [this](const std::string &why) {
        raise(*m_errors, providerError(ado_error::unspecified, "IM002", why));
    };
    const ConnectionString parts = readConnectionString(connectionString);
    const std::string provider = parts.value("provider").value_or("");
    if (provider.empty()) refuse("the connection string names no Provider");
    if (!parts.isForSqlite()) refuse("this database is opened by Provider=SQLite, not by " + provider);
    if (!parts.problem.empty()) refuse(parts.problem);
    const std::string source = parts.value("data source").value_or("");
    if (source.empty()) refuse("the connection string names no Data Source");
    auto handle = std::make_unique<SqliteHandle>(m_resolvePath(source), source, m_timeout, *m_errors, m_pool->clock());
    if (equalsIgnoringAsciiCase(parts.value("mode").value_or(""), "Share Exclusive"))
        handle->lockExclusively(*m_errors);
    return handle;
}

void SqliteConnection::Close()
{
    if (!m_lease) raiseClosed();
    giveBack();
}

void SqliteConnection::giveBack()
{
    m_pool->giveBack(m_connectionString, std::move(m_lease->handle));
    m_lease.reset();
}

void SqliteConnection::setCommandTimeout(std::int32_t seconds)
{
    if (seconds < 0) throw RuntimeError(ado_error::badArgument, "the command timeout is negative");
    m_timeout = seconds;
    if (m_lease) m_lease->handle->setTimeout(seconds);
}

std::int32_t SqliteConnection::Execute(const std::string &sql, std::int32_t)
{
    return handle().execute(sql, *m_errors);
}

std::shared_ptr<SqliteLease> SqliteConnection::lease() const
{
    if (!m_lease) raiseClosed();
    return m_lease;
}

} // namespace inin::sqlite
