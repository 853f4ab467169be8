#pragma once

#include "adapters/database/ado_error.h"
#include "adapters/sqlite/sql_names.h"
#include "adapters/sqlite/sqlite_file.h"
#include "adapters/sqlite/sqlite_statement.h"
#include "platform/database.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

struct sqlite3;

namespace inin {
struct Token;
}

namespace inin::sqlite {

struct SqlShape;
class SqliteCursor;

/// One physical connection: the open file, the columns of its tables and its recent statements. It outlives a session; the pool
/// passes it from one session to the next. Each operation that fails puts its entry into the error list of the session
/// and throws a RuntimeError.
class SqliteHandle {
public:
    using Errors = std::vector<ProviderError>;
    using TimePoint = std::chrono::steady_clock::time_point;

    /// Opens an existing database file. Error messages name it `displayPath`. The timeout is measured with `now`.
    SqliteHandle(std::string path, const std::string &displayPath, std::int32_t timeoutSeconds,
                 std::shared_ptr<Errors> errors, std::function<TimePoint()> now = std::chrono::steady_clock::now);
    SqliteHandle(const SqliteHandle &) = delete;
    SqliteHandle &operator=(const SqliteHandle &) = delete;
    ~SqliteHandle();

    /// Called while the file is locked; true when waiting is pointless, because a session of this thread has the lock.
    void setDeadlockCheck(std::function<bool()> isDeadlock) { m_isDeadlock = std::move(isDeadlock); }
    [[nodiscard]] bool isReading() const;
    [[nodiscard]] bool isWriting() const;
    /// The error list of the session that uses the connection.
    void setErrors(std::shared_ptr<Errors> errors) { m_errors = std::move(errors); }
    /// 0 for no timeout.
    void setTimeout(std::int32_t seconds) { m_timeout = seconds; }

    /// Runs a SELECT up to its first row; refuses any other statement. Recent statements remain prepared.
    [[nodiscard]] std::shared_ptr<SqliteCursor> openReading(const std::string &sql);
    void restart(const std::shared_ptr<SqliteCursor> &cursor, const std::string &sql);
    /// Moves to the next row; false at the end. Each step has the whole timeout.
    bool step(SqliteStatement &statement);
    /// Runs one statement. Returns the number of changed rows, -1 for a statement that does not change rows.
    std::int32_t execute(const std::string &sql);
    /// Locks the file against all other connections until this one closes, so it is not reused by a further session.
    void lockExclusively();
    void begin();
    void commit();
    void rollback();

    /// Checks the whole file; false when its content is inconsistent.
    [[nodiscard]] bool passesIntegrityCheck();

    /// Ends the statements and the transaction of a session. False when the connection cannot be used again.
    bool tidy();
    /// False once the file was deleted, replaced or written to, even by this connection. SQLite itself checks only a
    /// counter in the header, which may be the same in a file that was copied over the old one.
    [[nodiscard]] bool isAlive() const;

private:
    struct Close {
        void operator()(sqlite3 *db) const;
    };

    void openFile(const std::string &displayPath);
    void configure();
    int refreshSchema();
    int loadSchema();
    [[nodiscard]] SqlSchema::Columns readColumns(const std::string &table);
    [[nodiscard]] bool wasFileChanged();
    std::shared_ptr<SqliteStatement> prepareReading(const SqlShape &shape);
    std::shared_ptr<SqliteStatement> prepare(const std::vector<Token> &tokens);
    void runInternal(const char *sql);
    void startCommand();
    [[nodiscard]] bool isTimeUp() const;
    static int onProgress(void *self);
    static int onBusy(void *self, int count);

    std::string m_path;
    std::shared_ptr<Errors> m_errors;
    FileIdentity m_identity;
    std::unique_ptr<sqlite3, Close> m_db;
    std::unique_ptr<SqliteStatement> m_schemaVersion;
    SqlSchema m_schema;
    std::int64_t m_version = -1;
    unsigned m_dataVersion = 0;
    std::vector<std::pair<std::string, std::shared_ptr<SqliteStatement>>> m_recent; ///< by shape key, latest first
    std::function<bool()> m_isDeadlock;
    std::int32_t m_timeout;
    std::function<TimePoint()> m_now;
    TimePoint m_deadline;
    bool m_isExclusive = false;
};

/// The rows of a running SELECT, forward only. Destroying it resets the statement even after the end of the session:
/// otherwise the next run of the statement could not bind its numbers.
class SqliteCursor {
public:
    SqliteCursor(SqliteHandle &handle, std::shared_ptr<SqliteStatement> statement, bool hasRow)
        : m_handle(handle), m_statement(std::move(statement)), m_atEnd(!hasRow)
    {
        m_statement->refreshFields();
    }
    SqliteCursor(const SqliteCursor &) = delete;
    SqliteCursor &operator=(const SqliteCursor &) = delete;
    ~SqliteCursor() { close(); }

    [[nodiscard]] bool atEnd() const { return m_atEnd; }
    /// After a failure there is no current row.
    void next()
    {
        m_atEnd = true;
        m_atEnd = !m_handle.step(*m_statement);
    }
    void close() { m_statement->reset(); }
    [[nodiscard]] std::size_t fieldCount() const { return m_statement->fieldCount(); }
    [[nodiscard]] std::string fieldName(std::size_t index) const { return m_statement->fieldName(index); }
    [[nodiscard]] std::int32_t declaredType(std::size_t index) const { return m_statement->declaredType(index); }
    [[nodiscard]] std::size_t fieldIndex(std::string_view name) const { return m_statement->fieldIndex(name); }
    [[nodiscard]] Variant value(std::size_t index) const { return m_statement->value(index); }

private:
    SqliteHandle &m_handle;
    std::shared_ptr<SqliteStatement> m_statement;
    bool m_atEnd;
};

} // namespace inin::sqlite
