#pragma once

#include "demo_site/people.h"
#include "demo_site/server_target.h"
#include "demo_site/site_maker.h"

#include <string>
#include <string_view>

namespace inin::site {

/// What differs between servers; a SQL Server unless said otherwise.
struct ServerDialect {
    std::string_view schema; ///< the script of tables and indexes
    BinaryLiteral binary;
};
[[nodiscard]] ServerDialect sqlServerDialect();

/// Makes the demo's tables with their rows, and a table that marks them as the demo's, in the database that a connection
/// string opens. Where one of the tables exists already nothing is written. Only with `anyFolder` and in a database with
/// the mark are the old ones replaced. All of it is one transaction, also the tables where the server can take those
/// back. Failures are RuntimeErrors.
void makeServerDatabase(const std::string &connectionString, const SiteOrder &order, Overwrite overwrite);
void makeServerDatabase(Database &database, Connection &connection, const ServerDialect &dialect,
                        const SiteOrder &order, Overwrite overwrite);

/// The tables alone, without rows, indexes and mark, in a scratch database: old ones of the same names are dropped, marked
/// or not.
void makeServerTables(Database &database, Connection &connection, const ServerDialect &dialect);

/// "adodb.ini" with a connection string, as bytes. Error 5 for a string of more bytes than the suite reads.
[[nodiscard]] std::string connectionFile(const std::string &connectionString);

} // namespace inin::site
