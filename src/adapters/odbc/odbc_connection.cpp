#include "adapters/odbc/odbc_connection.h"

#include "adapters/database/ado_error.h"
#include "adapters/odbc/driver_choice.h"
#include "adapters/odbc/jet_dao.h"
#include "adapters/odbc/odbc_string.h"
#include "runtime/runtime_error.h"

namespace inin::odbc {

void OdbcShared::loadDrivers()
{
    if (environment) return;
    environment = std::make_shared<OdbcEnvironment>();
    drivers = environment->drivers();
    if (std::string own = jetDriver(); isPath(own))
        drivers.push_back(std::move(own)); // its package does not register it
}

std::unique_ptr<OdbcSession> OdbcShared::logIn(const OdbcString &target, std::vector<ProviderError> &errors)
{
    auto session = std::make_unique<OdbcSession>(environment, target, errors);
    ++logIns;
    return session;
}

OdbcConnection::~OdbcConnection()
{
    if (m_lease) giveBack();
}

/// The text of a refusal never contains the connection string, which may contain a password.
void OdbcConnection::Open(const std::string &connectionString, const std::string &user, const std::string &password,
                          std::int32_t)
{
    if (m_lease) raiseOpen();
    const std::string poolKey = connectionString + '\0' + user + '\0' + password;
    std::unique_ptr<OdbcSession> session = m_shared->pool.take(poolKey);
    if (!session) {
        m_shared->loadDrivers();
        const OdbcString target = odbcStringFor(connectionString, m_shared->drivers, {user, password});
        if (!target.problem.empty()) raise(*m_errors, ownError(ado_error::unspecified, "IM002", target.problem));
        session = m_shared->logIn(target, *m_errors);
    }
    session->setErrors(m_errors);
    session->setTimeout(m_timeout);
    m_poolKey = poolKey;
    m_lease = std::make_shared<OdbcLease>(OdbcLease{std::move(session), m_errors});
}

void OdbcConnection::Close()
{
    if (!m_lease) raiseClosed();
    giveBack();
}

void OdbcConnection::giveBack()
{
    m_shared->pool.giveBack(m_poolKey, std::move(m_lease->session));
    m_lease.reset();
}

std::string OdbcConnection::DefaultDatabase() const
{
    return m_lease ? m_lease->session->defaultDatabase() : std::string();
}

void OdbcConnection::setCommandTimeout(std::int32_t seconds)
{
    if (seconds < 0) throw RuntimeError(ado_error::badArgument, "the command timeout is negative");
    m_timeout = seconds;
    if (m_lease) m_lease->session->setTimeout(seconds);
}

std::shared_ptr<OdbcLease> OdbcConnection::lease() const
{
    if (!m_lease) raiseClosed();
    return m_lease;
}

} // namespace inin::odbc
