#include "app/inin_site/server_maker.h"

#include "adapters/suite_text/code_page_932.h"
#include "app/inin_site/database_maker.h"
#include "app/inin_site/embedded.h"
#include "app/inin_site/schema.h"
#include "app/suite_database/suite_database.h"
#include "runtime/runtime_error.h"

#include <fmt/format.h>

namespace inin::site {

namespace {

bool isThere(Database &database, Connection &connection, const std::string &table)
try {
    const std::unique_ptr<Recordset> rows = database.newRecordset();
    rows->Open("SELECT 1 AS found FROM " + table + " WHERE 1 = 0", connection, adOpenForwardOnly, adLockReadOnly,
               adCmdText);
    rows->Close();
    return true;
} catch (const RuntimeError &error) {
    // Another fault than a missing table must not be taken for leave to write.
    if (error.number() != ado_error::noSuchTable) throw;
    return false;
}

void dropTables(Database &database, Connection &connection)
{
    for (const TableColumns &table : schemaTables())
        if (isThere(database, connection, table.name))
            connection.Execute("DROP TABLE " + table.name, adExecuteNoRecords);
}

void refuseForeignTables(Database &database, Connection &connection)
{
    for (const TableColumns &table : schemaTables()) {
        if (!isThere(database, connection, table.name)) continue;
        throw RuntimeError(ado_error::unspecified,
                           fmt::format("データベースにテーブル「{}」が既にあるので、何も書き込みませんでした。"
                                       "作り直すときは --force を付けてください。",
                                       table.name));
    }
}

enum class SchemaPart { tables, indexes };

void runSchema(Connection &connection, std::string_view schema, SchemaPart part)
{
    for (const std::string &statement : statementsOf(schema))
        if (statement.starts_with("CREATE INDEX") == (part == SchemaPart::indexes))
            connection.Execute(statement, adExecuteNoRecords);
}

/// All rows or none: a make that breaks off leaves empty tables.
void writeRows(Connection &connection, const ServerDialect &dialect, const SiteOrder &order)
{
    ServerTarget target(connection, dialect.binary);
    connection.BeginTrans();
    try {
        writeDemoRows(target, order);
        target.finish();
    } catch (const RuntimeError &) {
        connection.RollbackTrans();
        throw;
    }
    connection.CommitTrans();
}

} // namespace

ServerDialect sqlServerDialect()
{
    return {serverSchemaText(), {}};
}

void makeServerTables(Database &database, Connection &connection, const ServerDialect &dialect)
{
    dropTables(database, connection);
    runSchema(connection, dialect.schema, SchemaPart::tables);
}

void makeServerDatabase(Database &database, Connection &connection, const ServerDialect &dialect,
                        const SiteOrder &order, Overwrite overwrite)
{
    if (overwrite == Overwrite::onlyOwnFolder) refuseForeignTables(database, connection);
    makeServerTables(database, connection, dialect);
    writeRows(connection, dialect, order);
    runSchema(connection, dialect.schema, SchemaPart::indexes);
}

void makeServerDatabase(const std::string &connectionString, const SiteOrder &order, Overwrite overwrite)
{
    const std::unique_ptr<Database> database = makeSuiteDatabase([](const std::string &path) { return path; });
    const std::unique_ptr<Connection> connection = database->newConnection();
    try {
        connection->Open(connectionString, "", "", -1);
    } catch (const RuntimeError &error) {
        throw RuntimeError(error.number(), fmt::format("データベースに接続できません。（{}）", error.description()));
    }
    constexpr std::int32_t kBatchSeconds = 600;
    connection->setCommandTimeout(kBatchSeconds);
    makeServerDatabase(*database, *connection, sqlServerDialect(), order, overwrite);
}

std::string connectionFile(const std::string &connectionString)
{
    constexpr std::size_t kLongestConnection = 255;
    const std::string value = encodeCp932(connectionString);
    if (value.size() > kLongestConnection) {
        throw RuntimeError(
            error_number::invalidCall,
            fmt::format("接続文字列が{}バイトを超えているので、adodb.ini に書けません。", kLongestConnection));
    }
    return encodeCp932("[接続情報]\r\n接続情報=") + value + "\r\n";
}

} // namespace inin::site
