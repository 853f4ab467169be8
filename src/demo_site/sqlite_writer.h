#pragma once

#include "demo_site/row_target.h"

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace inin::site {

struct CloseDatabase {
    void operator()(sqlite3 *database) const;
};
struct FinalizeStatement {
    void operator()(sqlite3_stmt *statement) const;
};
using StatementHandle = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;

/// The database file of a demo site. Failures raise RuntimeError with the library's own text.
class SqliteWriter : public RowTarget {
public:
    explicit SqliteWriter(const std::string &path);
    /// Runs the statements of a script.
    void run(const std::string &script);
    [[nodiscard]] StatementHandle prepare(const std::string &statement);
    [[nodiscard]] sqlite3 *handle() const { return m_database.get(); }
    RowSink &into(std::string_view table, std::span<const std::string_view> columns) override;

private:
    std::unique_ptr<sqlite3, CloseDatabase> m_database;
    std::vector<std::unique_ptr<RowSink>> m_sinks; ///< prepared statements, destroyed before the database
};

} // namespace inin::site
