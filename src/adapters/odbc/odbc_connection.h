#pragma once

#include "adapters/database/idle_pool.h"
#include "adapters/database/pooled_session.h"
#include "adapters/odbc/odbc_session.h"

#include <memory>
#include <string>
#include <vector>

namespace inin::odbc {

/// The idle connections of one library object and what its sessions share.
class OdbcPool : public IdlePool<OdbcSession> {
public:
    /// Creates a new physical connection.
    [[nodiscard]] std::unique_ptr<OdbcSession> logIn(const OdbcString &target,
                                                     const std::shared_ptr<OdbcSession::Errors> &errors);
    /// The drivers that a connection string may name.
    [[nodiscard]] const std::vector<std::string> &drivers();
    /// The number of physical log-ins, for the benchmark.
    [[nodiscard]] std::int64_t logIns() const { return m_logIns; }

private:
    std::shared_ptr<OdbcEnvironment> m_environment; ///< created at the first log-in
    std::vector<std::string> m_drivers;
    std::int64_t m_logIns = 0;
};

class OdbcConnection : public PooledConnection<OdbcSession, OdbcPool> {
public:
    using PooledConnection::PooledConnection;
    void Open(const std::string &connectionString, const std::string &user, const std::string &password,
              std::int32_t options) override;
    [[nodiscard]] std::string DefaultDatabase() const override;
};

using OdbcRecordset = PooledRecordset<OdbcSession, OdbcCursor, OdbcConnection>;

} // namespace inin::odbc
