#include "adapters/database/dao_sessions.h"

#include "adapters/database/dao_error.h"
#include "platform/dao.h"
#include "runtime/runtime_error.h"

#include <algorithm>
#include <optional>

namespace inin {

Connection &DaoSession::use() const
{
    if (!isOpen) throw daoError(dao_error::objectInvalid);
    return *connection;
}

DaoSessions::~DaoSessions()
{
    if (!m_isOpen) return;
    try {
        closeAll();
    } catch (const RuntimeError &) {
        // No caller is left to report to; the connections close with their objects.
    }
}

void DaoSessions::checkOpen() const
{
    if (!m_isOpen) throw daoError(dao_error::objectInvalid);
}

void DaoSessions::add(const std::shared_ptr<DaoSession> &session)
{
    if (m_isInTransaction) beginOn(*session);
    m_sessions.push_back(session);
}

void DaoSessions::close(DaoSession &session)
{
    (void)session.use(); // throws when closed
    session.isOpen = false;
    dropClosed();
}

void DaoSessions::begin()
{
    checkOpen();
    if (m_isInTransaction) throw daoError(dao_error::tooManyTransactions);
    m_isInTransaction = true;
    try {
        for (const auto &session : m_sessions) beginOn(*session);
    } catch (const RuntimeError &) {
        rollback();
        throw;
    }
}

void DaoSessions::beginOn(DaoSession &session) const
{
    if (m_transactions == Transactions::none) return;
    withDaoErrors([&] { session.connection->BeginTrans(); });
    session.isInTransaction = true;
}

/// When a database fails, the transaction keeps running on it and on the remaining ones, for the caller to roll back.
void DaoSessions::commit()
{
    checkOpen();
    if (!m_isInTransaction) throw daoError(dao_error::noTransaction);
    for (const auto &session : m_sessions) {
        if (!session->isInTransaction) continue;
        withDaoErrors([&] { session->connection->CommitTrans(); });
        session->isInTransaction = false;
    }
    m_isInTransaction = false;
    dropClosed();
}

/// Rolls back all databases even when one of them fails, and then throws the first failure.
void DaoSessions::rollback()
{
    checkOpen();
    if (!m_isInTransaction) throw daoError(dao_error::noTransaction);
    std::optional<RuntimeError> failure;
    for (const auto &session : m_sessions) {
        if (!session->isInTransaction) continue;
        session->isInTransaction = false;
        try {
            session->connection->RollbackTrans();
        } catch (const RuntimeError &error) {
            if (!failure) failure = asDaoError(error);
        }
    }
    m_isInTransaction = false;
    dropClosed();
    if (failure) throw *failure;
}

void DaoSessions::closeAll()
{
    checkOpen();
    std::optional<RuntimeError> failure;
    try {
        if (m_isInTransaction) rollback();
    } catch (const RuntimeError &error) {
        failure = error;
    }
    m_isOpen = false;
    for (const auto &session : m_sessions) session->isOpen = false;
    dropClosed();
    if (failure) throw *failure;
}

/// Closes the connections that neither an open database nor a transaction uses.
void DaoSessions::dropClosed()
{
    std::erase_if(m_sessions, [](const auto &session) {
        if (session->isOpen || session->isInTransaction) return false;
        session->connection.reset();
        return true;
    });
}

} // namespace inin
