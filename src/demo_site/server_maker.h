#pragma once

#include "demo_site/people.h"
#include "demo_site/server_target.h"
#include "demo_site/site_maker.h"

#include <string>
#include <string_view>

namespace inin::site {

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

/// The bytes of "adodb.ini" for a connection string. Error 5 if it is longer than the suite can read.
[[nodiscard]] std::string connectionFile(const std::string &connectionString);

} // namespace inin::site
