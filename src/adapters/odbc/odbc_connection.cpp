#include "adapters/odbc/odbc_connection.h"

#include "adapters/odbc/driver_choice.h"
#include "adapters/odbc/jet_dao.h"

namespace inin::odbc {

const std::vector<std::string> &OdbcPool::drivers()
{
    if (m_environment) return m_drivers;
    m_environment = std::make_shared<OdbcEnvironment>();
    m_drivers = m_environment->drivers();
    if (std::string own = jetDriver(); isPath(own))
        m_drivers.push_back(std::move(own)); // its package does not register it
    return m_drivers;
}

std::unique_ptr<OdbcSession> OdbcPool::logIn(const OdbcString &target,
                                             const std::shared_ptr<OdbcSession::Errors> &errors)
{
    auto session = std::make_unique<OdbcSession>(m_environment, target, *errors);
    ++m_logIns;
    return session;
}

/// The text of a refusal never contains the connection string, which may contain a password.
void OdbcConnection::Open(const std::string &connectionString, const std::string &user, const std::string &password,
                          std::int32_t)
{
    if (isOpen()) raiseOpen();
    const std::string key = connectionString + '\0' + user + '\0' + password;
    std::unique_ptr<OdbcSession> session = pool().take(key);
    if (!session) {
        const OdbcString target = odbcStringFor(connectionString, pool().drivers(), {user, password});
        if (!target.problem.empty()) raise(*errors(), ownError(ado_error::unspecified, "IM002", target.problem));
        session = pool().logIn(target, errors());
    }
    use(std::move(session), key);
}

std::string OdbcConnection::DefaultDatabase() const
{
    return isOpen() ? lease()->physical->defaultDatabase() : std::string();
}

} // namespace inin::odbc
