#pragma once

#include "adapters/database/idle_pool.h"
#include "adapters/odbc/odbc_session.h"
#include "platform/database.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace inin::odbc {

/// State that all sessions of one library object share.
struct OdbcShared {
    IdlePool<OdbcSession> pool;
    std::shared_ptr<OdbcEnvironment> environment; ///< created at the first log-in
    std::vector<std::string> drivers;             ///< the drivers that a connection string may name
    std::int64_t logIns = 0;                      ///< number of physical log-ins, for the benchmark

    /// Creates a new physical connection.
    [[nodiscard]] std::unique_ptr<OdbcSession> logIn(const OdbcString &target, std::vector<ProviderError> &errors);
    void loadDrivers();
};

/// The database side of an open session. A record set shares it, and finds no connection in it once the session is
/// closed.
struct OdbcLease {
    std::unique_ptr<OdbcSession> session;
    std::shared_ptr<std::vector<ProviderError>> errors;
};

class OdbcConnection : public Connection {
public:
    explicit OdbcConnection(std::shared_ptr<OdbcShared> shared) : m_shared(std::move(shared)) {}
    ~OdbcConnection() override;

    /// Remains open after the connection was lost, as in ADO: the next operation fails; Close and Open recover.
    [[nodiscard]] std::int32_t State() const override { return m_lease ? adStateOpen : adStateClosed; }
    void Open(const std::string &connectionString, const std::string &user, const std::string &password,
              std::int32_t options) override;
    void Close() override;
    [[nodiscard]] std::string DefaultDatabase() const override;
    [[nodiscard]] std::int32_t CommandTimeout() const override { return m_timeout; }
    void setCommandTimeout(std::int32_t seconds) override;
    std::int32_t Execute(const std::string &sql, std::int32_t) override { return session().execute(sql); }
    void BeginTrans() override { session().begin(); }
    void CommitTrans() override { session().commit(); }
    void RollbackTrans() override { session().rollback(); }
    [[nodiscard]] std::vector<ProviderError> &Errors() override { return *m_errors; }

    /// Error 3704 when the session is closed.
    [[nodiscard]] std::shared_ptr<OdbcLease> lease() const;

private:
    [[nodiscard]] OdbcSession &session() const { return *lease()->session; }
    void giveBack();

    std::shared_ptr<OdbcShared> m_shared;
    std::shared_ptr<std::vector<ProviderError>> m_errors = std::make_shared<std::vector<ProviderError>>();
    std::shared_ptr<OdbcLease> m_lease;
    std::string m_poolKey;
    std::int32_t m_timeout = kDefaultCommandTimeout;
};

} // namespace inin::odbc
