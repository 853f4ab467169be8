#pragma once

#include "platform/database.h"
#include "runtime/variant.h"
#include "support/temp_folder.h"

#include <doctest/doctest.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

struct sqlite3;

namespace inin {

/// A temporary database file, created and read without the adapter.
class DatabaseFile {
public:
    /// `statements` create its tables and rows.
    explicit DatabaseFile(std::string_view statements = {});

    [[nodiscard]] const std::string &path() const { return m_path; }
    [[nodiscard]] std::string connectionString() const { return "Provider=SQLite;Data Source=" + m_path; }
    void run(std::string_view statements) const;
    /// The first column of the first row as text; "NULL" for NULL, "-" without rows.
    [[nodiscard]] std::string value(std::string_view select) const;
    /// The first step of SQLite's query plan for a statement in SQLite's syntax.
    [[nodiscard]] std::string plan(const std::string &select) const;

private:
    TempFolder m_folder;
    std::string m_path = m_folder / "test.db";
};

/// A second connection with an exclusive lock on the file during its lifetime.
class ExclusiveLock {
public:
    explicit ExclusiveLock(const DatabaseFile &file);

private:
    std::unique_ptr<sqlite3, std::function<void(sqlite3 *)>> m_db;
};

/// Replaces and counts SQLite's pauses at a lock during its lifetime: each pause calls `onPause` instead of sleeping.
class PauseCounter {
public:
    explicit PauseCounter(std::function<void()> onPause = [] {});
    PauseCounter(const PauseCounter &) = delete;
    PauseCounter &operator=(const PauseCounter &) = delete;
    ~PauseCounter();
    [[nodiscard]] static int pauses();
};

/// A value in the notation of the tests: NULL, 12, 2.5, a text as it is, <2024-05-01 10:30:00> for a date, 0x… for bytes.
[[nodiscard]] std::string shown(const Variant &value);

/// An open session of the adapter.
class Session {
public:
    explicit Session(const DatabaseFile &file);

    [[nodiscard]] Connection &connection() { return *m_connection; }
    [[nodiscard]] Database &database() { return *m_database; }
    [[nodiscard]] std::unique_ptr<Recordset> open(const std::string &sql);
    /// The named fields of each row, joined as "a|b".
    [[nodiscard]] std::vector<std::string> rows(const std::string &sql, const std::vector<std::string> &fields);
    /// The first field of the first row.
    [[nodiscard]] std::string value(const std::string &sql);
    [[nodiscard]] std::vector<std::string> firstColumn(const std::string &sql);
    std::int32_t execute(const std::string &sql) { return m_connection->Execute(sql, adExecuteNoRecords); }

private:
    std::unique_ptr<Database> m_database;
    std::unique_ptr<Connection> m_connection;
};

/// The error of an operation; 0 and empty for success.
struct Raised {
    std::int32_t number = 0;
    std::string description;
};
[[nodiscard]] Raised raisedBy(const std::function<void()> &operation);

/// The adapter with each path resolved to `file`.
[[nodiscard]] std::unique_ptr<Database> makeSqliteDatabaseAt(const std::string &file);

/// The adapter with paths used unchanged.
[[nodiscard]] std::unique_ptr<Database> plainDatabase();

} // namespace inin

/// Prints the rows of a failed comparison.
template <> struct doctest::StringMaker<std::vector<std::string>> {
    static String convert(const std::vector<std::string> &texts)
    {
        std::string all;
        for (const std::string &text : texts) all += "\n    \"" + text + "\"";
        return all.c_str();
    }
};
