#include "app/inin_site/schema.h"

#include "app/inin_site/embedded.h"
#include "app/inin_site/sqlite_writer.h"

#include <sqlite3.h>

namespace inin::site {

namespace {

std::vector<std::string> firstColumn(SqliteWriter &database, const std::string &sql)
{
    std::vector<std::string> texts;
    const StatementHandle statement = database.prepare(sql);
    while (sqlite3_step(statement.get()) == SQLITE_ROW) {
        const unsigned char *text = sqlite3_column_text(statement.get(), 0);
        texts.emplace_back(text, text + sqlite3_column_bytes(statement.get(), 0));
    }
    return texts;
}

} // namespace

std::vector<TableColumns> schemaTables()
{
    SqliteWriter database(":memory:");
    database.run(std::string(schemaText()));
    std::vector<TableColumns> tables;
    for (const std::string &name :
         firstColumn(database, "SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY rowid")) {
        tables.push_back({name, firstColumn(database, "SELECT name FROM pragma_table_info('" + name + "')")});
    }
    return tables;
}

} // namespace inin::site
