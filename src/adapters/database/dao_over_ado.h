#pragma once

#include "platform/dao.h"
#include "platform/database.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
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

enum class DaoAccess { readWrite, readOnly };

/// A kind of local database file and the provider that reads it.
struct DaoFileKind {
    std::shared_ptr<Database> provider;
    /// Converts a path of the suite to one of the operating system.
    std::function<std::string(const std::string &name)> resolvePath;
    /// True when a file that begins with these bytes is of this kind.
    std::function<bool(std::string_view start)> isOfThisKind;
    std::function<std::string(const std::string &path, DaoWorkspace::Sharing sharing)> connectionString;
    DaoAccess access = DaoAccess::readWrite;
};

/// Implements DAO over a provider's ADO connections. It adds what ADO lacks: one transaction for all databases of a
/// workspace, table names as sources, and DAO's error numbers. Transactions do not nest. A statement that violates a
/// constraint fails even without dbFailOnError.
[[nodiscard]] std::unique_ptr<DaoEngine> makeDaoOverAdo(DaoFileKind kind);

} // namespace inin
