#include "scenarios/impatient_database.h"

#include "adapters/database/forwarding_database.h"

namespace inin {

namespace {

class ImpatientConnection : public ForwardingConnection {
public:
    explicit ImpatientConnection(std::unique_ptr<Connection> patient) : ForwardingConnection(std::move(patient))
    {
        inner().setCommandTimeout(1);
    }
    [[nodiscard]] std::int32_t CommandTimeout() const override { return m_timeout; }
    void setCommandTimeout(std::int32_t seconds) override { m_timeout = seconds; }

private:
    std::int32_t m_timeout = 0;
};

} // namespace

std::unique_ptr<Connection> ImpatientDatabase::newConnection()
{
    return std::make_unique<ImpatientConnection>(m_inner->newConnection());
}

std::unique_ptr<Recordset> ImpatientDatabase::newRecordset()
{
    return std::make_unique<ForwardingRecordset>(m_inner->newRecordset());
}

} // namespace inin
