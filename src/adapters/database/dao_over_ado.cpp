#include "adapters/database/dao_over_ado.h"

#include "adapters/database/ado_error.h"
#include "adapters/database/dao_error.h"
#include "adapters/database/dao_sessions.h"
#include "adapters/database/sql_tokenizer.h"
#include "system/file_path.h"
#include "system/whole_file.h"

#include <algorithm>
#include <filesystem>
#include <optional>

namespace inin {

namespace {

/// In seconds: a locked database file is reported at once, without waiting for the timeout of a statement.
constexpr std::int32_t kOpenTimeout = 1;

/// True for a table name: a single word, or any text when a table is requested.
bool isTableName(const std::string &source, std::int32_t type)
{
    return type == dbOpenTable || source.find_first_of(" \t\r\n") == std::string::npos;
}

bool isPlainName(std::string_view name)
{
    return !name.empty() && std::ranges::all_of(name, [](char c) {
        return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' ||
               (static_cast<unsigned char>(c) & 0x80U) != 0;
    });
}

std::string selectFrom(const std::string &table)
{
    if (isPlainName(table)) return "SELECT * FROM " + table;
    const bool isQuoted = table.starts_with('[') && table.ends_with(']');
    const std::string name = isQuoted ? table.substr(1, table.size() - 2) : table;
    if (name.empty() || name.find_first_of("[]") != std::string::npos) throw daoError(dao_error::noSuchTable);
    return "SELECT * FROM [" + name + "]";
}

class AdoBackedRecordset : public DaoRecordset {
public:
    AdoBackedRecordset(std::shared_ptr<DaoSession> session, std::unique_ptr<Recordset> rows)
        : m_session(std::move(session)), m_rows(std::move(rows))
    {
    }
    bool isEndOfFile() const override
    {
        return withDaoErrors([&] { return rows().isEndOfFile(); });
    }
    void MoveNext() override
    {
        withDaoErrors([&] { rows().MoveNext(); });
    }
    std::size_t fieldCount() const override
    {
        return withDaoErrors([&] { return rows().fieldCount(); });
    }
    std::string fieldName(std::size_t index) const override
    {
        return withDaoErrors([&] { return rows().fieldName(index); });
    }
    Variant Field(std::string_view name) const override
    {
        return withDaoErrors([&] { return rows().Field(name); });
    }
    void Close() override
    {
        withDaoErrors([&] { rows().Close(); });
    }

private:
    [[nodiscard]] Recordset &rows() const
    {
        (void)m_session->use(); // throws when the database was closed
        return *m_rows;
    }
    std::shared_ptr<DaoSession> m_session;
    std::unique_ptr<Recordset> m_rows;
};

class AdoBackedDatabase : public DaoDatabase {
public:
    AdoBackedDatabase(std::shared_ptr<const DaoFileKind> kind, std::shared_ptr<DaoSessions> sessions,
                      std::shared_ptr<DaoSession> session)
        : m_kind(std::move(kind)), m_sessions(std::move(sessions)), m_session(std::move(session))
    {
    }
    ~AdoBackedDatabase() override
    {
        if (m_session->isOpen) m_sessions->close(*m_session);
    }

    std::unique_ptr<DaoRecordset> OpenRecordset(const std::string &source, std::int32_t type, std::int32_t,
                                                std::int32_t) override
    {
        Connection &connection = m_session->use();
        const bool isTable = isTableName(source, type);
        const std::string sql = isTable ? selectFrom(source) : source;
        std::unique_ptr<Recordset> rows = m_kind->provider->newRecordset();
        // Forward-only rows are streamed; all others are read at once, which frees the connection.
        rows->setCursorLocation(type == dbOpenForwardOnly ? adUseServer : adUseClient);
        try {
            rows->Open(sql, connection, adOpenForwardOnly, adLockReadOnly, adCmdText);
        } catch (const RuntimeError &error) {
            // Only the table name of this statement is the caller's, so only the name can be wrong.
            if (isTable && error.number() == ado_error::faultyStatement) throw daoError(dao_error::noSuchTable);
            throw asDaoError(error);
        }
        return std::make_unique<AdoBackedRecordset>(m_session, std::move(rows));
    }

    void Execute(const std::string &sql, std::optional<std::int32_t>) override
    {
        Connection &connection = m_session->use();
        if (m_kind->access == DaoAccess::readOnly) throw daoError(dao_error::readOnly);
        const std::vector<Token> tokens = tokenizeSql(sql);
        if (!tokens.empty() && tokens[0].isWord("select")) throw daoError(dao_error::selectNotExecuted);
        withDaoErrors([&] { (void)connection.Execute(sql, adExecuteNoRecords); }); // DAO returns no row count
    }

    void Close() override { m_sessions->close(*m_session); }

private:
    std::shared_ptr<const DaoFileKind> m_kind;
    std::shared_ptr<DaoSessions> m_sessions;
    std::shared_ptr<DaoSession> m_session;
};

class AdoBackedWorkspace : public DaoWorkspace {
public:
    AdoBackedWorkspace(std::shared_ptr<const DaoFileKind> kind, std::string user, std::string password)
        : m_kind(std::move(kind)), m_user(std::move(user)), m_password(std::move(password)),
          m_sessions(std::make_shared<DaoSessions>(m_kind->access == DaoAccess::readOnly
                                                       ? DaoSessions::Transactions::none
                                                       : DaoSessions::Transactions::real))
    {
    }
    ~AdoBackedWorkspace() override
    {
        try {
            m_sessions->closeAll();
        } catch (const RuntimeError &) {
            // Already closed, or failed where no caller is left to report to.
        }
    }

    std::unique_ptr<DaoDatabase> OpenDatabase(const std::string &name, Sharing sharing) override
    {
        m_sessions->checkOpen();
        const std::string path = m_kind->resolvePath(name);
        checkFile(path);
        auto session = std::make_shared<DaoSession>();
        session->connection = connect(m_kind->connectionString(path, sharing));
        m_sessions->add(session);
        return std::make_unique<AdoBackedDatabase>(m_kind, m_sessions, session);
    }
    void BeginTrans() override { m_sessions->begin(); }
    void CommitTrans() override { m_sessions->commit(); }
    void Rollback() override { m_sessions->rollback(); }
    void Close() override { m_sessions->closeAll(); }

private:
    void checkFile(const std::string &name) const
    {
        const std::filesystem::path path = pathOf(name);
        std::error_code error;
        if (!std::filesystem::is_regular_file(path, error)) throw daoError(dao_error::fileNotFound);
        constexpr std::size_t kStart = 64;
        if (!m_kind->isOfThisKind(startOfFile(path, kStart))) throw daoError(dao_error::unknownFormat);
    }

    std::unique_ptr<Connection> connect(const std::string &connectionString) const
    try {
        std::unique_ptr<Connection> connection = m_kind->provider->newConnection();
        connection->setCommandTimeout(kOpenTimeout);
        connection->Open(connectionString, m_user, m_password, -1);
        connection->setCommandTimeout(kDefaultCommandTimeout);
        return connection;
    } catch (const RuntimeError &error) {
        const bool isInUse = error.number() == ado_error::timedOut;
        throw RuntimeError(isInUse ? dao_error::fileInUse : dao_error::connectFailed, error.description());
    }

    std::shared_ptr<const DaoFileKind> m_kind;
    std::string m_user;
    std::string m_password;
    std::shared_ptr<DaoSessions> m_sessions;
};

class AdoBackedEngine : public DaoEngine {
public:
    explicit AdoBackedEngine(DaoFileKind kind) : m_kind(std::make_shared<const DaoFileKind>(std::move(kind))) {}
    std::unique_ptr<DaoWorkspace> CreateWorkspace(const std::string &, const std::string &user,
                                                  const std::string &password, std::int32_t) override
    {
        return std::make_unique<AdoBackedWorkspace>(m_kind, user, password);
    }

private:
    std::shared_ptr<const DaoFileKind> m_kind;
};

} // namespace

std::unique_ptr<DaoEngine> makeDaoOverAdo(DaoFileKind kind)
{
    return std::make_unique<AdoBackedEngine>(std::move(kind));
}

} // namespace inin
