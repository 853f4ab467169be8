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

/// One physical connection: the open file, its table columns and its recent statements. Lives longer than a
/// session; the pool hands it from one to the next.
/// Every operation that fails leaves its entry in `errors` and raises a RuntimeError.
class SqliteHandle {
public:
    using Errors = std::vector<ProviderError>;

    /// Opens an existing database file; `shown` stands for it in an error's words.
    SqliteHandle(std::string path, const std::string &shown, std::int32_t timeoutSeconds, Errors &errors);
    SqliteHandle(const SqliteHandle &) = delete;
    SqliteHandle &operator=(const SqliteHandle &) = delete;
    ~SqliteHandle();

    /// Asked when the file is locked: true when waiting is of no use, as another session of this thread holds it.
    void setHopelessLock(std::function<bool()> isHopeless) { m_isHopeless = std::move(isHopeless); }
    [[nodiscard]] bool isReading() const;
    [[nodiscard]] bool isWriting() const;
    /// 0 waits for ever.
    void setTimeout(std::int32_t seconds) { m_timeout = seconds; }

    /// Runs a SELECT up to its first row; refuses everything else. Recent statements are kept prepared.
    std::shared_ptr<SqliteStatement> openReading(const std::string &sql, bool &hasRow, Errors &errors);
    /// On to the next row; false at the end. Each step has the whole timeout.
    bool step(SqliteStatement &statement, Errors &errors);
    /// Runs one statement; the number of rows that it changed, -1 where it is none that changes rows.
    std::int32_t execute(const std::string &sql, Errors &errors);
    /// Keeps every other connection out of the file for as long as this one lives. It then serves one session only.
    void claim(Errors &errors);
    void begin(Errors &errors);
    void commit(Errors &errors);
    void rollback(Errors &errors);

    /// Checks the whole file; false when its content contradicts itself.
    [[nodiscard]] bool isSound(Errors &errors);

    /// Ends what a session left: runs and a transaction. False when the connection is of no use any more.
    bool tidy();
    /// False once the file was deleted, replaced or written to, by this connection as well. SQLite looks at a counter in
    /// the header only, which a file that was copied over the old one may have too.
    [[nodiscard]] bool isAlive() const;

private:
    struct Close {
        void operator()(sqlite3 *db) const;
    };
    using Clock = std::chrono::steady_clock;

    void openFile(const std::string &shown, Errors &errors);
    void configure(Errors &errors);
    int refreshSchema();
    int loadSchema();
    [[nodiscard]] bool wasFileChanged();
    std::shared_ptr<SqliteStatement> prepareReading(const SqlShape &shape, Errors &errors);
    std::shared_ptr<SqliteStatement> prepare(const std::vector<Token> &tokens, Errors &errors);
    void runOwn(const char *sql, Errors &errors);
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
    std::vector<std::pair<std::string, std::shared_ptr<SqliteStatement>>> m_recent; ///< by shape, the latest first
    std::function<bool()> m_isHopeless;
    std::int32_t m_timeout;
    Clock::time_point m_deadline;
    bool m_isClaimed = false;
};

} // namespace inin
