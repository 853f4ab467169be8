#pragma once

#include "platform/database.h"

#include <memory>
#include <vector>

namespace inin {

/// A database of a workspace. While a transaction runs, the connection of a closed database stays open, so that its
/// changes are committed or rolled back with the others.
struct DaoSession {
    std::unique_ptr<Connection> connection;
    bool isOpen = true;
    bool isInTransaction = false;

    /// The connection of an open database; error 3420 for a closed one.
    [[nodiscard]] Connection &use() const;
};

/// The databases of one workspace and their common transaction. The databases share it and may outlive the workspace.
class DaoSessions {
public:
    enum class Transactions { real, none };
    /// `none` is for read-only databases: transactions do not use their connections.
    explicit DaoSessions(Transactions transactions) : m_transactions(transactions) {}
    DaoSessions(const DaoSessions &) = delete;
    DaoSessions &operator=(const DaoSessions &) = delete;
    ~DaoSessions();

    /// Adds a database, which joins a running transaction.
    void add(const std::shared_ptr<DaoSession> &session);
    void close(DaoSession &session);
    void begin();
    void commit();
    void rollback();
    /// Rolls back and closes all databases; error 3420 when already closed.
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
