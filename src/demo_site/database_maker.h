#pragma once

#include "demo_site/people.h"
#include "demo_site/row_target.h"

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace inin::site {

/// Writes the whole database to a new file. Failures raise RuntimeError.
void makeDatabase(const std::string &path, const SiteOrder &order);

/// Writes all rows of the demo, table by table; the same order gives the same rows.
void writeDemoRows(RowTarget &target, const SiteOrder &order);

struct SchemaColumn {
    std::string name;
    std::string type; ///< as declared
};
struct TableColumns {
    std::string name;
    std::vector<SchemaColumn> columns;
};
/// The tables and columns that the program uses, in the order of the schema.
[[nodiscard]] std::vector<TableColumns> schemaTables();

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
    RowSink &into(std::string_view table, std::span<const std::string_view> columns) override;

private:
    struct Close {
        void operator()(sqlite3 *database) const;
    };
    std::unique_ptr<sqlite3, Close> m_database;
    std::vector<std::unique_ptr<RowSink>> m_sinks; ///< prepared statements, destroyed before the database
};

} // namespace inin::site
