#include "server/site_copy.h"

#include "demo_site/database_maker.h"

#include <fmt/format.h>
#include <sqlite3.h>

#include <algorithm>
#include <string>
#include <vector>

namespace inin::test {

namespace {

std::string bytesOf(sqlite3_stmt *statement, int column)
{
    const auto *bytes = static_cast<const char *>(sqlite3_column_blob(statement, column));
    const auto count = static_cast<std::size_t>(sqlite3_column_bytes(statement, column));
    return bytes == nullptr ? std::string() : std::string(bytes, count);
}

site::Cell cellOf(sqlite3_stmt *statement, int column)
{
    switch (sqlite3_column_type(statement, column)) {
    case SQLITE_NULL:
        return site::kNull;
    case SQLITE_INTEGER:
        return static_cast<std::int64_t>(sqlite3_column_int64(statement, column));
    case SQLITE_BLOB:
        return site::Blob{bytesOf(statement, column)};
    default:
        return bytesOf(statement, column);
    }
}

/// The table's columns that exist in the embedded database.
std::vector<std::string> columnsIn(site::SqliteWriter &embedded, const site::TableColumns &table)
{
    std::vector<std::string> columns;
    const auto names = embedded.prepare("SELECT name FROM pragma_table_info('" + table.name + "')");
    while (sqlite3_step(names.get()) == SQLITE_ROW) {
        const std::string name = bytesOf(names.get(), 0);
        for (const site::SchemaColumn &column : table.columns)
            if (column.name == name) columns.push_back(name);
    }
    return columns;
}

bool hasName(const std::vector<std::string> &names, const std::string &name)
{
    return std::ranges::find(names, name) != names.end();
}

void copyTable(site::SqliteWriter &embedded, const std::string &table, const std::vector<std::string> &columns,
               site::ServerTarget &target)
{
    site::RowSink &sink = target.into(table, std::vector<std::string_view>(columns.begin(), columns.end()));
    const auto rows = embedded.prepare(fmt::format("SELECT {} FROM {} ORDER BY rowid", fmt::join(columns, ","), table));
    std::vector<site::Cell> row(columns.size());
    while (sqlite3_step(rows.get()) == SQLITE_ROW) {
        for (std::size_t at = 0; at < row.size(); ++at) row[at] = cellOf(rows.get(), static_cast<int>(at));
        sink.row(row);
    }
}

} // namespace

void copyDatabase(const std::filesystem::path &embedded, Database &database, Connection &server,
                  const site::ServerDialect &dialect)
{
    site::makeServerTables(database, server, dialect);
    site::SqliteWriter source(embedded.string());
    site::ServerTarget target(server, dialect.binary);
    for (const site::TableColumns &table : site::schemaTables()) {
        const std::vector<std::string> columns = columnsIn(source, table);
        if (columns.empty()) {
            server.Execute("DROP TABLE " + table.name, adExecuteNoRecords);
            continue;
        }
        for (const site::SchemaColumn &column : table.columns)
            if (!hasName(columns, column.name))
                server.Execute("ALTER TABLE " + table.name + " DROP COLUMN " + column.name, adExecuteNoRecords);
        copyTable(source, table.name, columns, target);
    }
    target.finish();
}

} // namespace inin::test
