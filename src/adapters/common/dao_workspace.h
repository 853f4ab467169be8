#pragma once

#include "platform/dao.h"
#include "platform/database.h"

#include <memory>
#include <vector>

namespace inin {

/// A database of a workspace. Its connection stays open behind a closed database while a transaction runs, so that what
/// was written is part of the transaction's end.
struct DaoSession {
    std::unique_ptr<Connection> connection;
    bool isOpen = true;
    bool isInTransaction = false;

    /// The connection of an open database; error 3420 for a closed one.
    [[nodiscard]] Connection &use() const;
};

/// The databases of one workspace and their common transaction. It is shared with the databases, which may outlive the
/// workspace object.
class DaoSessions {
public:
    enum class Transactions { real, none };
    /// With `none` the databases write nothing, and nothing is asked of their connections.
    explicit DaoSessions(Transactions transactions) : m_transactions(transactions) {}
    DaoSessions(const DaoSessions &) = delete;
    DaoSessions &operator=(const DaoSessions &) = delete;
    ~DaoSessions();

    /// Takes a new database in; it joins a running transaction.
    void add(const std::shared_ptr<DaoSession> &session);
    void close(DaoSession &session);
    void begin();
    void commit();
    void rollback();
    /// Rolls back and closes everything; error 3420 when it was closed already.
    void closeAll();
    /// Error 3420 after closeAll.
    void checkOpen() const;

private:
    void beginOn(DaoSession &session) const;
    void dropClosed();

    Transactions m_transactions;
    std::vector<std::shared_ptr<DaoSession>> m_sessions;
    bool m_isInTransaction = false;
    bool m_isOpen = true;
};

} // namespace inin
