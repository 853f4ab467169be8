#include "scenarios/short_timeout_database.h"

#include "adapters/database/forwarding_database.h"

namespace inin {

namespace {

class ShortTimeoutConnection : public ForwardingConnection {
public:
    explicit ShortTimeoutConnection(std::unique_ptr<Connection> patient) : ForwardingConnection(std::move(patient))
    {
        inner().setCommandTimeout(1);
    }
    [[nodiscard]] std::int32_t CommandTimeout() const override { return m_timeout; }
    void setCommandTimeout(std::int32_t seconds) override { m_timeout = seconds; }

private:
    std::int32_t m_timeout = 0;
};

} // namespace

std::unique_ptr<Connection> ShortTimeoutDatabase::newConnection()
{
    return std::make_unique<ShortTimeoutConnection>(m_inner->newConnection());
}

std::unique_ptr<Recordset> ShortTimeoutDatabase::newRecordset()
{
    return std::make_unique<ForwardingRecordset>(m_inner->newRecordset());
}

} // namespace inin
