#include "adapters/sqlite/sqlite_handle.h"

#include "adapters/sqlite/sqlite_error.h"
#include "adapters/sqlite/sqlite_functions.h"
#include "runtime/runtime_error.h"
#include "runtime/text.h"
#include "system/file_path.h"
#include "system/whole_file.h"

#include <sqlite3.h>

#include <algorithm>
#include <utility>

namespace inin::sqlite {

namespace {

/// Instructions of SQLite's virtual machine between two timeout checks, a few tens of microseconds.
constexpr int kProgressSteps = 4000;
constexpr int kBusyPauseMs = 5;
/// SQLite's bit for this optimization, which has no name in its public header.
constexpr int kBloomFilter = 0x00080000;
constexpr const char *kColumnsOfTable = "SELECT name, type FROM pragma_table_info(?)";

bool isDatabaseFile(const std::string &path, bool &isEmpty)
{
    constexpr std::string_view kHeader("SQLite format 3\0", 16);
    const std::string start = startOfFile(pathOf(path), kHeader.size());
    isEmpty = start.empty();
    return start == kHeader;
}

std::unique_ptr<SqliteStatement> prepareInternal(sqlite3 *db, const char *sql)
{
    sqlite3_stmt *statement = nullptr;
    if (sqlite3_prepare_v3(db, sql, -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr) != SQLITE_OK) return nullptr;
    return std::make_unique<SqliteStatement>(StatementHandle(statement));
}

} // namespace

void SqliteHandle::Close::operator()(sqlite3 *db) const
{
    // Unlike sqlite3_close, it defers the closing while an open record set still has a statement.
    sqlite3_close_v2(db);
}

SqliteHandle::SqliteHandle(std::string path, const std::string &displayPath, std::int32_t timeoutSeconds,
                           std::shared_ptr<Errors> errors, std::function<TimePoint()> now)
    : m_path(std::move(path)), m_errors(std::move(errors)), m_timeout(timeoutSeconds), m_now(std::move(now))
{
    openFile(displayPath);
    configure();
    startCommand();
    const int code = refreshSchema();
    if (code != SQLITE_OK) raise(*m_errors, providerError(m_db.get(), code));
    // The sorting of many letters writes their texts to no temporary file. A failure has no other effect.
    (void)sqlite3_exec(m_db.get(), "PRAGMA temp_store = MEMORY", nullptr, nullptr, nullptr);
}

SqliteHandle::~SqliteHandle() = default;

/// Refuses a missing, empty or foreign file itself: SQLite would take an empty file for a new database and report a
/// foreign one only at the first statement.
void SqliteHandle::openFile(const std::string &displayPath)
{
    const std::optional<FileIdentity> identity = fileIdentity(m_path);
    const auto refuse = [this](const std::string &message, int code) {
        raise(*m_errors, providerError(ado_error::unspecified, "HY000", shownMessage(code, message), code));
    };
    if (!identity) refuse("unable to open database file: " + displayPath, SQLITE_CANTOPEN);
    m_identity = *identity;
    sqlite3 *db = nullptr;
    const int code =
        sqlite3_open_v2(m_path.c_str(), &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, databaseFileCalls());
    m_db.reset(db);
    if (code != SQLITE_OK) refuse("unable to open database file: " + displayPath, code);
    bool isEmpty = false;
    const bool isDatabase = isDatabaseFile(m_path, isEmpty);
    if (isEmpty) refuse("file is empty or cannot be read: " + displayPath, SQLITE_NOTADB);
    if (!isDatabase) refuse("file is not a database: " + displayPath, SQLITE_NOTADB);
}

void SqliteHandle::configure()
{
    sqlite3 *db = m_db.get();
    sqlite3_extended_result_codes(db, 1);
    // Double quotes delimit names only, as on the server; by default SQLite reads an unknown name as a text.
    sqlite3_db_config(db, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(db, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
    sqlite3_db_config(db, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(db, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    // The bloom filters of automatic indexes hash a text by its length, so a join would miss texts that are equal under
    // the server's collation but differ in length.
    sqlite3_test_control(SQLITE_TESTCTRL_OPTIMIZATIONS, db, kBloomFilter);
    sqlite3_progress_handler(db, kProgressSteps, onProgress, this);
    sqlite3_busy_handler(db, onBusy, this);
    const int code = registerSqlFunctions(db);
    if (code != SQLITE_OK) raise(*m_errors, providerError(db, code));
}

/// Reloads the columns and drops the translated statements when SQLite's schema version has changed.
int SqliteHandle::refreshSchema()
{
    if (!m_schemaVersion) m_schemaVersion = prepareInternal(m_db.get(), "PRAGMA schema_version");
    if (!m_schemaVersion) return sqlite3_errcode(m_db.get());
    const int code = sqlite3_step(m_schemaVersion->get());
    const std::int64_t version = code == SQLITE_ROW ? sqlite3_column_int64(m_schemaVersion->get(), 0) : -1;
    m_schemaVersion->reset();
    if (code != SQLITE_ROW) return code;
    if (version == m_version) return SQLITE_OK;
    m_recent.clear();
    const int loaded = loadSchema();
    if (loaded == SQLITE_OK) m_version = version;
    return loaded;
}

/// Preparing a statement makes SQLite read all definitions, so a damaged one is found here.
int SqliteHandle::loadSchema()
{
    m_schema = SqlSchema([this](const std::string &table) { return readColumns(table); });
    return prepareInternal(m_db.get(), kColumnsOfTable) ? SQLITE_OK : sqlite3_errcode(m_db.get());
}

SqlSchema::Columns SqliteHandle::readColumns(const std::string &table)
{
    const auto found = prepareInternal(m_db.get(), kColumnsOfTable);
    if (!found) raise(*m_errors, providerError(m_db.get(), sqlite3_errcode(m_db.get())));
    sqlite3_bind_text(found->get(), 1, table.data(), static_cast<int>(table.size()), SQLITE_STATIC);
    const auto text = [&found](std::size_t index) {
        const Variant value = found->value(index);
        const std::string *name = value.getIf<std::string>();
        return name == nullptr ? std::string() : *name;
    };
    SqlSchema::Columns columns;
    int code = SQLITE_ROW;
    while ((code = sqlite3_step(found->get())) == SQLITE_ROW)
        columns.push_back({asciiLower(text(0)), kindOfDeclaredType(text(1))});
    // A view of a dropped table has no columns; the statement that reads the view reports why.
    if (code != SQLITE_DONE && code != SQLITE_ERROR) raise(*m_errors, providerError(m_db.get(), code));
    return columns;
}

/// True if the file, possibly its schema, was changed since the last call. Valid only after a step that read from it.
bool SqliteHandle::wasFileChanged()
{
    unsigned version = 0;
    sqlite3_file_control(m_db.get(), "main", SQLITE_FCNTL_DATA_VERSION, &version);
    return std::exchange(m_dataVersion, version) != version;
}

void SqliteHandle::runInternal(const char *sql)
{
    startCommand();
    const int code = sqlite3_exec(m_db.get(), sql, nullptr, nullptr, nullptr);
    if (code != SQLITE_OK) raise(*m_errors, providerError(m_db.get(), code));
}

/// In this mode SQLite keeps the lock of the first transaction after its end.
void SqliteHandle::lockExclusively()
{
    runInternal("PRAGMA locking_mode = EXCLUSIVE");
    runInternal("BEGIN EXCLUSIVE");
    runInternal("COMMIT");
    m_isExclusive = true;
}

/// IMMEDIATE, because two transactions that read first and request the write lock later would deadlock.
void SqliteHandle::begin()
{
    runInternal("BEGIN IMMEDIATE");
}

void SqliteHandle::commit()
{
    runInternal("COMMIT");
}

void SqliteHandle::rollback()
{
    runInternal("ROLLBACK");
    if (const int code = refreshSchema(); code != SQLITE_OK) raise(*m_errors, providerError(m_db.get(), code));
}

bool SqliteHandle::passesIntegrityCheck()
{
    startCommand();
    const auto check = prepareInternal(m_db.get(), "PRAGMA integrity_check(1)");
    const int code = check ? sqlite3_step(check->get()) : sqlite3_errcode(m_db.get());
    if ((code & 0xFF) == SQLITE_CORRUPT) return false;
    if (code != SQLITE_ROW) raise(*m_errors, providerError(m_db.get(), code));
    const Variant answer = check->value(0);
    const std::string *text = answer.getIf<std::string>();
    return text != nullptr && *text == "ok";
}

bool SqliteHandle::tidy()
{
    // An idle connection must not lock the file.
    if (m_isExclusive) return false;
    sqlite3 *db = m_db.get();
    for (sqlite3_stmt *running = sqlite3_next_stmt(db, nullptr); running != nullptr;
         running = sqlite3_next_stmt(db, running))
        if (sqlite3_stmt_busy(running) != 0) (void)sqlite3_reset(running); // returns an error already reported
    startCommand();
    if (sqlite3_get_autocommit(db) == 0 && sqlite3_exec(db, "ROLLBACK", nullptr, nullptr, nullptr) != SQLITE_OK)
        return false;
    m_isDeadlock = nullptr;
    m_timeout = kDefaultCommandTimeout;
    return true;
}

bool SqliteHandle::isAlive() const
{
    return fileIdentity(m_path) == m_identity;
}

bool SqliteHandle::isReading() const
{
    return sqlite3_txn_state(m_db.get(), "main") == SQLITE_TXN_READ;
}

bool SqliteHandle::isWriting() const
{
    return sqlite3_txn_state(m_db.get(), "main") == SQLITE_TXN_WRITE;
}

void SqliteHandle::startCommand()
{
    m_deadline = m_timeout == 0 ? TimePoint::max() : m_now() + std::chrono::seconds(m_timeout);
}

bool SqliteHandle::isTimeUp() const
{
    return m_now() >= m_deadline;
}

int SqliteHandle::onProgress(void *self)
{
    return static_cast<const SqliteHandle *>(self)->isTimeUp() ? 1 : 0;
}

int SqliteHandle::onBusy(void *self, int)
{
    const auto &handle = *static_cast<const SqliteHandle *>(self);
    if (handle.isTimeUp() || (handle.m_isDeadlock && handle.m_isDeadlock())) return 0;
    sqlite3_sleep(kBusyPauseMs);
    return 1;
}

} // namespace inin::sqlite
