#include "demo_site/server_maker.h"

#include "adapters/database/sql_tokenizer.h"
#include "adapters/suite/suite_database.h"
#include "demo_site/database_maker.h"
#include "demo_site/embedded.h"
#include "runtime/runtime_error.h"
#include "suite_text/code_page_932.h"

#include <fmt/format.h>

namespace inin::site {

namespace {

/// The server's limit of rows in one statement.
constexpr std::size_t kMaxRows = 1000;
/// A longer statement is no faster.
constexpr std::size_t kMaxBytes = 200000;

std::string textLiteral(std::string_view text)
{
    std::string literal = "'";
    for (const char c : text) {
        if (c == '\'') literal += '\'';
        literal += c;
    }
    return literal + "'";
}

/// "2024-06-28 10:30:15" as "20240628 10:30:15": with hyphens some server languages would swap month and day.
std::string dateLiteral(std::string_view iso)
{
    std::string text;
    for (const char c : iso)
        if (c != '-') text += c;
    return textLiteral(text);
}

bool isThere(Database &database, Connection &connection, const std::string &table)
try {
    const std::unique_ptr<Recordset> rows = database.newRecordset();
    rows->Open("SELECT 1 AS found FROM " + table + " WHERE 1 = 0", connection, adOpenForwardOnly, adLockReadOnly,
               adCmdText);
    rows->Close();
    return true;
} catch (const RuntimeError &error) {
    // Only a missing table permits writing; pass any other error on.
    if (error.number() != ado_error::noSuchTable) throw;
    return false;
}

/// This table marks a database whose tables were made by `make`. Only these may be replaced by another run.
constexpr std::string_view kMarkTable = "ININ_SITE_DEMO";

std::vector<std::string> presentTables(Database &database, Connection &connection)
{
    std::vector<std::string> present;
    for (const TableColumns &table : schemaTables())
        if (isThere(database, connection, table.name)) present.push_back(table.name);
    return present;
}

void refuseTable(const std::string &table, std::string_view why)
{
    throw RuntimeError(
        ado_error::unspecified,
        fmt::format("データベースにテーブル「{}」が既にあるので、何も書き込みませんでした。{}", table, why));
}

void refusePresentTables(const std::vector<std::string> &present, bool isMarked, Overwrite overwrite)
{
    if (present.empty()) return;
    if (!isMarked)
        refuseTable(present.front(), "見本データではない行が失われるおそれがあるため、上書きはできません。"
                                     "空のデータベースを指定してください。");
    if (overwrite == Overwrite::onlyOwnFolder)
        refuseTable(present.front(), "前に作った見本データを作り直すときは --force を付けてください。");
}

enum class SchemaPart { tables, indexes };

void runSchema(Connection &connection, std::string_view schema, SchemaPart part)
{
    for (const std::string &statement : statementsOf(schema))
        if (statement.starts_with("CREATE INDEX") == (part == SchemaPart::indexes))
            connection.Execute(statement, adExecuteNoRecords);
}

void dropTables(Connection &connection, const std::vector<std::string> &tables)
{
    for (const std::string &table : tables) connection.Execute("DROP TABLE " + table, adExecuteNoRecords);
}

void writeRows(Connection &connection, const ServerDialect &dialect, const SiteOrder &order)
{
    ServerTarget target(connection, dialect.binary);
    writeDemoRows(target, order);
    target.finish();
}

/// Runs the work in one transaction, if the server can roll back table changes: an aborted run then changes nothing.
template <class Work> void inTransaction(Connection &connection, const Work &work)
{
    connection.BeginTrans();
    try {
        work();
    } catch (const RuntimeError &) {
        try {
            connection.RollbackTrans();
        } catch (const RuntimeError &) {
            // The connection is lost, which also ends the transaction. Report the first failure.
        }
        throw;
    }
    connection.CommitTrans();
}

} // namespace

class ServerTarget::Batch : public RowSink {
public:
    Batch(ServerTarget &target, std::string_view table, std::span<const std::string_view> columns)
        : m_target(target), m_start(fmt::format("INSERT INTO {} ({}) VALUES ", table, fmt::join(columns, ",")))
    {
        for (const std::string_view column : columns)
            m_isDate.push_back(target.m_dateColumns.contains(fmt::format("{}.{}", table, column)));
    }

    void row(std::span<const Cell> cells) override
    {
        m_rows += m_rows.empty() ? "(" : ",(";
        for (std::size_t at = 0; at < cells.size(); ++at) {
            if (at > 0) m_rows += ',';
            m_rows += literal(cells[at], m_isDate[at]);
        }
        m_rows += ')';
        if (++m_count == kMaxRows || m_rows.size() > kMaxBytes) flush();
    }

    void flush()
    {
        if (m_count == 0) return;
        m_target.m_connection.Execute(m_start + m_rows, adExecuteNoRecords);
        m_rows.clear();
        m_count = 0;
    }

private:
    [[nodiscard]] std::string literal(const Cell &cell, bool isDate) const
    {
        if (const auto *number = std::get_if<std::int64_t>(&cell)) return std::to_string(*number);
        if (const auto *text = std::get_if<std::string>(&cell))
            return isDate ? dateLiteral(*text) : "N" + textLiteral(*text);
        if (const auto *blob = std::get_if<Blob>(&cell)) {
            std::string digits(m_target.m_binary.start);
            for (const char byte : blob->bytes) digits += fmt::format("{:02X}", static_cast<unsigned char>(byte));
            return digits.append(m_target.m_binary.end);
        }
        return "NULL";
    }

    ServerTarget &m_target;
    std::string m_start;
    std::vector<bool> m_isDate;
    std::string m_rows;
    std::size_t m_count = 0;
};

ServerTarget::ServerTarget(Connection &connection, BinaryLiteral binary) : m_connection(connection), m_binary(binary)
{
    for (const TableColumns &table : schemaTables())
        for (const SchemaColumn &column : table.columns)
            if (column.type == "DATETIME") m_dateColumns.insert(table.name + "." + column.name);
}

ServerTarget::~ServerTarget() = default;

RowSink &ServerTarget::into(std::string_view table, std::span<const std::string_view> columns)
{
    m_batches.push_back(std::make_unique<Batch>(*this, table, columns));
    return *m_batches.back();
}

void ServerTarget::finish()
{
    for (const auto &batch : m_batches) batch->flush();
}

std::vector<std::string> statementsOf(std::string_view script)
{
    std::vector<std::string> statements(1);
    for (const Token &token : tokenizeSql(script)) {
        if (token.isSymbol(";")) {
            if (!statements.back().empty()) statements.emplace_back();
            continue;
        }
        if (!statements.back().empty()) statements.back() += token.gap;
        statements.back() += token.text;
    }
    if (statements.back().empty()) statements.pop_back();
    return statements;
}

ServerDialect sqlServerDialect()
{
    return {serverSchemaText(), {}};
}

void makeServerTables(Database &database, Connection &connection, const ServerDialect &dialect)
{
    dropTables(connection, presentTables(database, connection));
    runSchema(connection, dialect.schema, SchemaPart::tables);
}

void makeServerDatabase(Database &database, Connection &connection, const ServerDialect &dialect,
                        const SiteOrder &order, Overwrite overwrite)
{
    // Query before the transaction begins: some servers end it at a statement that names a missing table.
    std::vector<std::string> present = presentTables(database, connection);
    const std::string mark(kMarkTable);
    const bool isMarked = isThere(database, connection, mark);
    refusePresentTables(present, isMarked, overwrite);
    if (isMarked) present.push_back(mark);
    inTransaction(connection, [&] {
        dropTables(connection, present);
        connection.Execute("CREATE TABLE " + mark + " (nPatients INTEGER NOT NULL)", adExecuteNoRecords);
        connection.Execute(fmt::format("INSERT INTO {} VALUES ({})", mark, order.patients), adExecuteNoRecords);
        runSchema(connection, dialect.schema, SchemaPart::tables);
        writeRows(connection, dialect, order);
        runSchema(connection, dialect.schema, SchemaPart::indexes);
    });
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
