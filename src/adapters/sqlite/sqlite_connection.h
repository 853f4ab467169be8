#pragma once

#include "adapters/sqlite/sqlite_handle.h"
#include "adapters/sqlite/sqlite_pool.h"
#include "platform/database.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace inin {

using ResolvePath = std::function<std::string(const std::string &)>;

/// The connection of an open session, shared with its record sets. `handle` is empty once the session is closed.
struct SqliteLease {
    std::unique_ptr<SqliteHandle> handle;
    std::shared_ptr<std::vector<ProviderError>> errors;
};

class SqliteConnection : public Connection {
public:
    SqliteConnection(std::shared_ptr<SqlitePool> pool, ResolvePath resolvePath)
        : m_pool(std::move(pool)), m_resolvePath(std::move(resolvePath))
    {
    }
    ~SqliteConnection() override;

    [[nodiscard]] std::int32_t State() const override { return m_lease ? adStateOpen : adStateClosed; }
    void Open(const std::string &connectionString, const std::string &user, const std::string &password,
              std::int32_t options) override;
    void Close() override;
    [[nodiscard]] std::string DefaultDatabase() const override { return m_lease ? m_database : std::string(); }
    [[nodiscard]] std::int32_t CommandTimeout() const override { return m_timeout; }
    void setCommandTimeout(std::int32_t seconds) override;
    std::int32_t Execute(const std::string &sql, std::int32_t options) override;
    void BeginTrans() override { handle().begin(*m_errors); }
    void CommitTrans() override { handle().commit(*m_errors); }
    void RollbackTrans() override { handle().rollback(*m_errors); }
    [[nodiscard]] std::vector<ProviderError> &Errors() override { return *m_errors; }

    /// The lease of an open session; error 3704 when it is closed.
    [[nodiscard]] std::shared_ptr<SqliteLease> lease() const;

private:
    [[nodiscard]] SqliteHandle &handle() const { return *lease()->handle; }
    [[nodiscard]] std::unique_ptr<SqliteHandle> openFile(const std::string &connectionString);
    void giveBack();

    std::shared_ptr<SqlitePool> m_pool;
    ResolvePath m_resolvePath;
    std::shared_ptr<std::vector<ProviderError>> m_errors = std::make_shared<std::vector<ProviderError>>();
    std::shared_ptr<SqliteLease> m_lease;
    std::string m_connectionString;
    std::string m_database;
    std::int32_t m_timeout = kDefaultCommandTimeout;
};

} // namespace inin
