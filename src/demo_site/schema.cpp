#include "demo_site/schema.h"

#include "demo_site/embedded.h"
#include "demo_site/sqlite_writer.h"

#include <sqlite3.h>

namespace inin::site {

namespace {

std::string columnText(const StatementHandle &statement, int column)
{
    const unsigned char *text = sqlite3_column_text(statement.get(), column);
    return {text, text + sqlite3_column_bytes(statement.get(), column)};
}

std::vector<SchemaColumn> columnsOf(SqliteWriter &database, const std::string &table)
{
    std::vector<SchemaColumn> columns;
    const StatementHandle statement = database.prepare("SELECT name, type FROM pragma_table_info('" + table + "')");
    while (sqlite3_step(statement.get()) == SQLITE_ROW)
        columns.push_back({columnText(statement, 0), columnText(statement, 1)});
    return columns;
}

} // namespace

std::vector<TableColumns> schemaTables()
{
    SqliteWriter database(":memory:");
    database.run(std::string(schemaText()));
    const StatementHandle names =
        database.prepare("SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY rowid");
    std::vector<TableColumns> tables;
    while (sqlite3_step(names.get()) == SQLITE_ROW) {
        const std::string name = columnText(names, 0);
        tables.push_back({name, columnsOf(database, name)});
    }
    return tables;
}

} // namespace inin::site
