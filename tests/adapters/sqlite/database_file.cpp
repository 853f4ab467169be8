#include "adapters/sqlite/database_file.h"

#include "adapters/sqlite/sqlite_database.h"
#include "runtime/date.h"
#include "runtime/runtime_error.h"

#include <sqlite3.h>

#include <cstdio>
#include <stdexcept>
#include <utility>

namespace inin {

namespace {

using Handle = std::unique_ptr<sqlite3, std::function<void(sqlite3 *)>>;

Handle openRaw(const std::string &path)
{
    sqlite3 *db = nullptr;
    if (sqlite3_open(path.c_str(), &db) != SQLITE_OK) throw std::logic_error("cannot open " + path);
    return {db, [](sqlite3 *open) { sqlite3_close(open); }};
}

void runRaw(sqlite3 *db, std::string_view statements)
{
    if (sqlite3_exec(db, std::string(statements).c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
        throw std::logic_error(sqlite3_errmsg(db));
}

std::string columnOfFirstRow(sqlite3 *db, std::string_view select, int column)
{
    sqlite3_stmt *prepared = nullptr;
    if (sqlite3_prepare_v2(db, select.data(), static_cast<int>(select.size()), &prepared, nullptr) != SQLITE_OK)
        throw std::logic_error(sqlite3_errmsg(db));
    const std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt *)> statement(prepared, sqlite3_finalize);
    if (sqlite3_step(prepared) != SQLITE_ROW) return "-";
    const unsigned char *text = sqlite3_column_text(prepared, column);
    return text == nullptr ? "NULL" : std::string(text, text + sqlite3_column_bytes(prepared, column));
}

std::string dateShown(Date date)
{
    const DateParts p = partsOf(date);
    char text[40];
    std::snprintf(text, sizeof text, "<%04d-%02d-%02d %02d:%02d:%02d>", p.year, p.month, p.day, p.hour, p.minute,
                  p.second);
    return text;
}

std::string bytesShown(const Binary &bytes)
{
    std::string text = "0x";
    char digits[4];
    for (const std::byte byte : bytes) {
        std::snprintf(digits, sizeof digits, "%02X", std::to_integer<unsigned>(byte));
        text += digits;
    }
    return text;
}

std::string doubleShown(double value)
{
    char text[40];
    std::snprintf(text, sizeof text, "%.15g", value);
    return text;
}

} // namespace

DatabaseFile::DatabaseFile(std::string_view statements)
{
    run("PRAGMA user_version = 1");
    if (!statements.empty()) run(statements);
}

void DatabaseFile::run(std::string_view statements) const
{
    const Handle db = openRaw(m_path);
    runRaw(db.get(), "PRAGMA synchronous = OFF"); // the file need not survive a crash
    runRaw(db.get(), statements);
}

std::string DatabaseFile::value(std::string_view select) const
{
    return columnOfFirstRow(openRaw(m_path).get(), select, 0);
}

std::string DatabaseFile::plan(const std::string &select) const
{
    constexpr int kDetail = 3;
    return columnOfFirstRow(openRaw(m_path).get(), "EXPLAIN QUERY PLAN " + select, kDetail);
}

ExclusiveLock::ExclusiveLock(const DatabaseFile &file) : m_db(openRaw(file.path()))
{
    runRaw(m_db.get(), "BEGIN EXCLUSIVE");
}

namespace {

/// The default VFS, and a copy of it whose pauses are counted.
sqlite3_vfs *theDefaultVfs = nullptr;
sqlite3_vfs theCountingVfs = {};
int thePauses = 0;
std::function<void()> theOnPause;

int countedPause(sqlite3_vfs *, int microseconds)
{
    ++thePauses;
    theOnPause();
    return microseconds;
}

} // namespace

PauseCounter::PauseCounter(std::function<void()> onPause)
{
    theDefaultVfs = sqlite3_vfs_find(nullptr);
    theCountingVfs = *theDefaultVfs;
    theCountingVfs.zName = "counting";
    theCountingVfs.pNext = nullptr;
    theCountingVfs.xSleep = countedPause;
    thePauses = 0;
    theOnPause = std::move(onPause);
    REQUIRE(sqlite3_vfs_register(&theCountingVfs, 1) == SQLITE_OK);
}

PauseCounter::~PauseCounter()
{
    sqlite3_vfs_unregister(&theCountingVfs);
    sqlite3_vfs_register(theDefaultVfs, 1);
    theOnPause = nullptr;
}

int PauseCounter::pauses()
{
    return thePauses;
}

std::string shown(const Variant &value)
{
    if (value.isNull()) return "NULL";
    if (const auto *number = value.getIf<std::int32_t>()) return std::to_string(*number);
    if (const auto *number = value.getIf<double>()) return doubleShown(*number);
    if (const auto *text = value.getIf<std::string>()) return *text;
    if (const auto *date = value.getIf<Date>()) return dateShown(*date);
    if (const auto *bytes = value.getIf<Binary>()) return bytesShown(*bytes);
    return "?";
}

Session::Session(const DatabaseFile &file) : m_database(plainDatabase()), m_connection(m_database->newConnection())
{
    m_connection->Open(file.connectionString(), "", "", -1);
}

std::unique_ptr<Recordset> Session::open(const std::string &sql)
{
    auto rows = m_database->newRecordset();
    rows->Open(sql, *m_connection, adOpenForwardOnly, adLockReadOnly, adCmdText);
    return rows;
}

std::vector<std::string> Session::rows(const std::string &sql, const std::vector<std::string> &fields)
{
    std::vector<std::string> texts;
    const auto rows = open(sql);
    for (; !rows->isEndOfFile(); rows->MoveNext()) {
        std::string &text = texts.emplace_back();
        for (const std::string &field : fields) text += (text.empty() ? "" : "|") + shown(rows->Field(field));
    }
    return texts;
}

std::string Session::value(const std::string &sql)
{
    const auto rows = open(sql);
    return rows->isEndOfFile() ? "-" : shown(rows->Value(0));
}

std::vector<std::string> Session::firstColumn(const std::string &sql)
{
    std::vector<std::string> texts;
    for (const auto rows = open(sql); !rows->isEndOfFile(); rows->MoveNext()) texts.push_back(shown(rows->Value(0)));
    return texts;
}

Raised raisedBy(const std::function<void()> &operation)
try {
    operation();
    return {};
} catch (const RuntimeError &error) {
    return {error.number(), error.description()};
}

std::unique_ptr<Database> makeSqliteDatabaseAt(const std::string &file)
{
    return makeSqliteDatabase([file](const std::string &) { return file; });
}

std::unique_ptr<Database> plainDatabase()
{
    return makeSqliteDatabase([](const std::string &path) { return path; });
}

} // namespace inin
