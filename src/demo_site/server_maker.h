#pragma once

#include "demo_site/people.h"
#include "demo_site/row_target.h"
#include "demo_site/site_maker.h"
#include "platform/database.h"

#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace inin::site {

/// The server's syntax for a binary value.
struct BinaryLiteral {
    std::string_view start = "0x";
    std::string_view end;
};

/// Fills the tables of a server's database in batches of many rows per statement; finish() writes the rest. Texts and
/// dates are written independent of the server's language setting.
class ServerTarget : public RowTarget {
public:
    explicit ServerTarget(Connection &connection, BinaryLiteral binary = {});
    ~ServerTarget() override;
    RowSink &into(std::string_view table, std::span<const std::string_view> columns) override;
    void finish();

private:
    class Batch;
    Connection &m_connection;
    BinaryLiteral m_binary;
    std::set<std::string> m_dateColumns; ///< "table.column"
    std::vector<std::unique_ptr<Batch>> m_batches;
};

/// Differences between servers; the defaults are SQL Server's.
struct ServerDialect {
    std::string_view schema; ///< the script that creates tables and indexes
    BinaryLiteral binary;
};
[[nodiscard]] ServerDialect sqlServerDialect();

/// Creates the demo's tables, their rows and a marker table in the database of a connection string. If one of the
/// tables exists, nothing is written, unless `anyFolder` is set and the database contains the marker table: then the
/// old tables are replaced. All of this is one transaction, including the tables if the server can roll them back.
/// Failures raise RuntimeError.
void makeServerDatabase(const std::string &connectionString, const SiteOrder &order, Overwrite overwrite);
void makeServerDatabase(Database &database, Connection &connection, const ServerDialect &dialect,
                        const SiteOrder &order, Overwrite overwrite);

/// Creates only the tables, without rows, indexes and marker, in a scratch database. Existing tables of the same names
/// are dropped, with or without a marker.
void makeServerTables(Database &database, Connection &connection, const ServerDialect &dialect);

/// Splits a script into statements and removes its comments.
[[nodiscard]] std::vector<std::string> statementsOf(std::string_view script);

/// The bytes of "adodb.ini" for a connection string. Error 5 if it is longer than the suite can read.
[[nodiscard]] std::string connectionFile(const std::string &connectionString);

} // namespace inin::site
