#pragma once

#include "adapters/common/ado_error.h"
#include "adapters/sqlite/file_identity.h"
#include "adapters/sqlite/sql_schema.h"
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

struct SqlShape;
struct Token;

/// One physical connection: the open file, its table columns and its recent statements. It outlives a session; the pool
/// passes it from one session to the next.
/// Each operation that fails puts its entry into `errors` and throws a RuntimeError.
class SqliteHandle {
public:
    using Errors = std::vector<ProviderError>;
    using TimePoint = std::chrono::steady_clock::time_point;

    /// Opens an existing database file. Error messages name it `displayPath`. The timeout is measured with `now`.
    SqliteHandle(std::string path, const std::string &displayPath, std::int32_t timeoutSeconds, Errors &errors,
                 std::function<TimePoint()> now = std::chrono::steady_clock::now);
    SqliteHandle(const SqliteHandle &) = delete;
    SqliteHandle &operator=(const SqliteHandle &) = delete;
    ~SqliteHandle();

    /// Called while the file is locked; true when waiting is pointless, because a session of this thread has the lock.
    void setDeadlockCheck(std::function<bool()> isDeadlock) { m_isDeadlock = std::move(isDeadlock); }
    [[nodiscard]] bool isReading() const;
    [[nodiscard]] bool isWriting() const;
    /// 0 for no timeout.
    void setTimeout(std::int32_t seconds) { m_timeout = seconds; }

    /// Runs a SELECT up to its first row; refuses any other statement. Recent statements remain prepared.
    std::shared_ptr<SqliteStatement> openReading(const std::string &sql, bool &hasRow, Errors &errors);
    /// Moves to the next row; false at the end. Each step has the whole timeout.
    bool step(SqliteStatement &statement, Errors &errors);
    /// Runs one statement. Returns the number of changed rows, -1 for a statement that does not change rows.
    std::int32_t execute(const std::string &sql, Errors &errors);
    /// Locks the file against all other connections until this one closes, so it is not reused by a further session.
    void lockExclusively(Errors &errors);
    void begin(Errors &errors);
    void commit(Errors &errors);
    void rollback(Errors &errors);

    /// Checks the whole file; false when its content is inconsistent.
    [[nodiscard]] bool passesIntegrityCheck(Errors &errors);

    /// Ends the statements and the transaction of a session. False when the connection cannot be used again.
    bool tidy();
    /// False once the file was deleted, replaced or written to, even by this connection. SQLite itself checks only a
    /// counter in the header, which may be the same in a file that was copied over the old one.
    [[nodiscard]] bool isAlive() const;

private:
    struct Close {
        void operator()(sqlite3 *db) const;
    };

    void openFile(const std::string &displayPath, Errors &errors);
    void configure(Errors &errors);
    int refreshSchema();
    int loadSchema();
    [[nodiscard]] bool wasFileChanged();
    std::shared_ptr<SqliteStatement> prepareReading(const SqlShape &shape, Errors &errors);
    std::shared_ptr<SqliteStatement> prepare(const std::vector<Token> &tokens, Errors &errors);
    void runInternal(const char *sql, Errors &errors);
    void startCommand();
    [[nodiscard]] bool isTimeUp() const;
    static int onProgress(void *self);
    static int onBusy(void *self, int count);

    std::string m_path;
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

} // namespace inin
