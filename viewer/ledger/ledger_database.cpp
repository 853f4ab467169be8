#include "viewer/ledger/ledger_database.h"

#include "system/file_path.h"
#include "system/whole_file.h"

#include <sqlite3.h>

#include <filesystem>
#include <system_error>

namespace inin::viewer {

namespace {

/// On Windows the calls without the path limit of 260 characters, elsewhere the default ones.
const char *fileCalls()
{
    constexpr const char *kUnlimited = "win32-longpath";
    return sqlite3_vfs_find(kUnlimited) == nullptr ? nullptr : kUnlimited;
}

/// A file without any write permission is read-only for every user, as in the suite's file system.
bool isWriteProtected(const std::string &path)
{
    using std::filesystem::perms;
    std::error_code fault;
    const std::filesystem::file_status status = std::filesystem::status(longPathOf(path), fault);
    constexpr perms kWrite = perms::owner_write | perms::group_write | perms::others_write;
    return std::filesystem::exists(status) && (status.permissions() & kWrite) == perms::none;
}

constexpr int primaryCode(int code)
{
    return code & 0xFF;
}

void succeed(int code)
{
    if (code != SQLITE_OK) throw LedgerError(primaryCode(code));
}

} // namespace

void LedgerDatabase::Close::operator()(sqlite3 *database) const
{
    sqlite3_close_v2(database);
}

LedgerDatabase::LedgerDatabase(const std::string &path, std::chrono::milliseconds patience) : m_patience(patience)
{
    createForOwner(path);
    sqlite3 *database = nullptr;
    const int access = isWriteProtected(path) ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
    const int code = sqlite3_open_v2(path.c_str(), &database, access | SQLITE_OPEN_NOMUTEX, fileCalls());
    m_database.reset(database);
    succeed(code);
    sqlite3_busy_handler(database, waitForLock, this);
    sqlite3_db_config(database, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(database, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    execute("PRAGMA foreign_keys = ON");
    execute("PRAGMA secure_delete = ON");
    execute("PRAGMA temp_store = MEMORY"); // no personal data in temporary files
}

LedgerDatabase::~LedgerDatabase() = default;

bool LedgerDatabase::isReadOnly() const
{
    return sqlite3_db_readonly(m_database.get(), "main") == 1;
}

void LedgerDatabase::execute(const char *sql)
{
    succeed(sqlite3_exec(m_database.get(), sql, nullptr, nullptr, nullptr));
}

/// Short waits of varying length: with SQLite's own, which grow to a tenth of a second, a program that writes without a
/// pause keeps the others out.
int LedgerDatabase::waitForLock(void *database, int tries)
{
    auto &self = *static_cast<LedgerDatabase *>(database);
    const auto now = std::chrono::steady_clock::now();
    if (tries == 0) self.m_waitingSince = now;
    if (now - self.m_waitingSince >= self.m_patience) return 0;
    constexpr int kLengths = 7;
    sqlite3_sleep(1 + tries % kLengths);
    return 1;
}

std::int64_t LedgerDatabase::lastRowId() const
{
    return sqlite3_last_insert_rowid(m_database.get());
}

int LedgerDatabase::changes() const
{
    return sqlite3_changes(m_database.get());
}

bool LedgerDatabase::isSound()
{
    LedgerStatement check(*this, "PRAGMA quick_check(1)");
    return check.step() && check.text(0) == "ok";
}

void LedgerStatement::Finalize::operator()(sqlite3_stmt *statement) const
{
    sqlite3_finalize(statement);
}

LedgerStatement::LedgerStatement(const LedgerDatabase &database, const char *sql)
{
    sqlite3_stmt *statement = nullptr;
    succeed(sqlite3_prepare_v2(database.m_database.get(), sql, -1, &statement, nullptr));
    m_statement.reset(statement);
}

bool LedgerStatement::step()
{
    const int code = sqlite3_step(m_statement.get());
    if (code != SQLITE_ROW && code != SQLITE_DONE) throw LedgerError(primaryCode(code));
    return code == SQLITE_ROW;
}

void LedgerStatement::run()
{
    while (step()) {
    }
}

void LedgerStatement::reset()
{
    (void)sqlite3_reset(m_statement.get()); // returns the error of the last step, which was thrown
}

bool LedgerStatement::isNull(int column) const
{
    return sqlite3_column_type(m_statement.get(), column) == SQLITE_NULL;
}

std::int64_t LedgerStatement::integer(int column) const
{
    return sqlite3_column_int64(m_statement.get(), column);
}

std::string_view LedgerStatement::text(int column) const
{
    const auto *const bytes = static_cast<const char *>(sqlite3_column_blob(m_statement.get(), column));
    const int size = sqlite3_column_bytes(m_statement.get(), column);
    return bytes == nullptr ? std::string_view() : std::string_view(bytes, static_cast<std::size_t>(size));
}

void LedgerStatement::bindNext(std::int64_t value)
{
    succeed(sqlite3_bind_int64(m_statement.get(), ++m_bound, value));
}

void LedgerStatement::bindNext(std::string_view text)
{
    // A null pointer would be NULL.
    const char *const begin = text.empty() ? "" : text.data();
    succeed(sqlite3_bind_text64(m_statement.get(), ++m_bound, begin, text.size(), SQLITE_STATIC, SQLITE_UTF8));
}

void LedgerStatement::bindNext(const Blob &blob)
{
    const char *const begin = blob.bytes.empty() ? "" : blob.bytes.data();
    succeed(sqlite3_bind_blob64(m_statement.get(), ++m_bound, begin, blob.bytes.size(), SQLITE_STATIC));
}

LedgerTransaction::LedgerTransaction(LedgerDatabase &database, Kind kind) : m_database(database)
{
    // A writer takes its lock at once: one that read first could find itself unable to write.
    m_database.execute(kind == Kind::writing ? "BEGIN IMMEDIATE" : "BEGIN");
}

LedgerTransaction::~LedgerTransaction()
{
    try {
        if (m_isOpen) m_database.execute("ROLLBACK");
    } catch (const LedgerError &) {
        // After some errors SQLite has rolled back already.
        return;
    }
}

void LedgerTransaction::commit()
{
    m_database.execute("COMMIT");
    m_isOpen = false;
}

} // namespace inin::viewer
