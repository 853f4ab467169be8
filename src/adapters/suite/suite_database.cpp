#include "adapters/suite/suite_database.h"

#include "adapters/database/ado_error.h"
#include "adapters/database/connection_string.h"
#include "adapters/database/forwarding_database.h"
#include "adapters/odbc/odbc_database.h"
#include "adapters/sqlite/sqlite_database.h"
#include "runtime/runtime_error.h"

namespace inin {

namespace {

struct Providers {
    std::unique_ptr<Database> sqlite;
    std::unique_ptr<Database> odbc;

    [[nodiscard]] Database &of(const std::string &connectionString) const
    {
        return readConnectionString(connectionString).isForSqlite() ? *sqlite : *odbc;
    }
};

/// Opens a connection of the adapter that the connection string selects; reopening may select another one.
class DispatchingConnection : public Connection {
public:
    explicit DispatchingConnection(std::shared_ptr<Providers> providers) : m_providers(std::move(providers)) {}

    [[nodiscard]] std::int32_t State() const override { return m_inner ? m_inner->State() : adStateClosed; }
    void Open(const std::string &connectionString, const std::string &user, const std::string &password,
              std::int32_t options) override
    {
        if (State() != adStateClosed) raiseOpen();
        m_provider = &m_providers->of(connectionString);
        m_inner = m_provider->newConnection();
        m_inner->setCommandTimeout(m_timeout);
        m_inner->Open(connectionString, user, password, options);
    }
    void Close() override { opened().Close(); }
    [[nodiscard]] std::string DefaultDatabase() const override
    {
        return m_inner ? m_inner->DefaultDatabase() : std::string();
    }
    [[nodiscard]] std::int32_t CommandTimeout() const override { return m_timeout; }
    void setCommandTimeout(std::int32_t seconds) override
    {
        if (seconds < 0) throw RuntimeError(ado_error::badArgument, "the command timeout is negative");
        m_timeout = seconds;
        if (m_inner) m_inner->setCommandTimeout(seconds);
    }
    std::int32_t Execute(const std::string &sql, std::int32_t options) override
    {
        return opened().Execute(sql, options);
    }
    void BeginTrans() override { opened().BeginTrans(); }
    void CommitTrans() override { opened().CommitTrans(); }
    void RollbackTrans() override { opened().RollbackTrans(); }
    [[nodiscard]] std::vector<ProviderError> &Errors() override { return m_inner ? m_inner->Errors() : m_errors; }

    /// The adapter's own connection; error 3704 if there is none.
    [[nodiscard]] Connection &opened() const
    {
        if (!m_inner) raiseClosed();
        return *m_inner;
    }
    [[nodiscard]] Database &provider() const
    {
        if (!m_inner) raiseClosed();
        return *m_provider;
    }

private:
    std::shared_ptr<Providers> m_providers;
    Database *m_provider = nullptr;
    std::unique_ptr<Connection> m_inner;
    std::vector<ProviderError> m_errors; ///< before the first opening
    std::int32_t m_timeout = kDefaultCommandTimeout;
};

/// Opens a record set of the same adapter as its connection.
class DispatchingRecordset : public ForwardingRecordset {
public:
    void setCursorLocation(std::int32_t location) override
    {
        if (State() != adStateClosed) raiseOpen();
        m_location = location;
    }
    void Open(const std::string &sql, Connection &connection, std::int32_t cursorType, std::int32_t lockType,
              std::int32_t options) override
    {
        if (State() != adStateClosed) raiseOpen();
        auto *choosing = dynamic_cast<DispatchingConnection *>(&connection);
        if (choosing == nullptr) throw RuntimeError(ado_error::badArgument, "the connection is another provider's");
        forwardTo(choosing->provider().newRecordset());
        ForwardingRecordset::setCursorLocation(m_location);
        ForwardingRecordset::Open(sql, choosing->opened(), cursorType, lockType, options);
    }

private:
    std::int32_t m_location = adUseServer;
};

class DispatchingDatabase : public Database {
public:
    explicit DispatchingDatabase(std::shared_ptr<Providers> providers) : m_providers(std::move(providers)) {}
    std::unique_ptr<Connection> newConnection() override
    {
        return std::make_unique<DispatchingConnection>(m_providers);
    }
    std::unique_ptr<Recordset> newRecordset() override { return std::make_unique<DispatchingRecordset>(); }
    [[nodiscard]] bool isWriterBusy() const override { return m_providers->sqlite->isWriterBusy(); }

private:
    std::shared_ptr<Providers> m_providers;
};

} // namespace

std::unique_ptr<Database> makeSuiteDatabase(std::function<std::string(const std::string &)> resolvePath)
{
    auto providers = std::make_shared<Providers>(
        Providers{sqlite::makeSqliteDatabase(std::move(resolvePath)), odbc::makeOdbcDatabase()});
    return std::make_unique<DispatchingDatabase>(std::move(providers));
}

} // namespace inin
