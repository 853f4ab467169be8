#include "adapters/odbc/odbc_database.h"

#include "adapters/odbc/odbc_connection.h"

namespace inin::odbc {

namespace {

class SharingDatabase : public OdbcDatabase {
public:
    ~SharingDatabase() override { m_pool->close(); }

    std::unique_ptr<Connection> newConnection() override { return std::make_unique<OdbcConnection>(m_pool); }
    std::unique_ptr<Recordset> newRecordset() override { return std::make_unique<OdbcRecordset>(); }
    [[nodiscard]] std::int64_t logIns() const override { return m_pool->logIns(); }

private:
    /// Shared with the sessions, which may outlive the library and log off later.
    std::shared_ptr<OdbcPool> m_pool = std::make_shared<OdbcPool>();
};

} // namespace

std::unique_ptr<OdbcDatabase> makeOdbcDatabase()
{
    return std::make_unique<SharingDatabase>();
}

} // namespace inin::odbc
