#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace inin::site {

struct Blob {
    std::string bytes;
};
/// One value of a row; monostate is NULL.
using Cell = std::variant<std::monostate, std::int64_t, std::string, Blob>;
inline constexpr std::monostate kNull{};

struct CloseDatabase {
    void operator()(sqlite3 *database) const;
};
struct FinalizeStatement {
    void operator()(sqlite3_stmt *statement) const;
};
using StatementHandle = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;

/// The database file that a demo site gets. Failures are RuntimeErrors with the library's own words.
class SqliteWriter {
public:
    explicit SqliteWriter(const std::string &path);
    /// Runs the statements of a script.
    void run(const std::string &script);
    [[nodiscard]] StatementHandle prepare(const std::string &statement);
    [[nodiscard]] sqlite3 *handle() const { return m_database.get(); }

private:
    std::unique_ptr<sqlite3, CloseDatabase> m_database;
};

/// A prepared INSERT into some columns of a table.
class Insert {
public:
    Insert(SqliteWriter &database, std::string_view table, std::span<const std::string_view> columns);
    void row(std::span<const Cell> cells);
    void row(std::initializer_list<Cell> cells) { row(std::span<const Cell>{cells.begin(), cells.size()}); }

private:
    SqliteWriter &m_database;
    StatementHandle m_statement;
};

} // namespace inin::site
