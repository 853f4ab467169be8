#include "demo_site/database_maker.h"

#include "adapters/sqlite/sqlite_file.h"
#include "demo_site/demo_tables.h"
#include "demo_site/embedded.h"
#include "platform/database.h"
#include "runtime/runtime_error.h"
#include "system/file_path.h"
#include "system/whole_file.h"

#include <fmt/format.h>
#include <sqlite3.h>

namespace inin::site {

namespace {

struct SchemaParts {
    std::string tables;
    std::string indexes;
};

/// Create the indexes after the data: that is faster.
SchemaParts splitSchema(std::string_view schema)
{
    SchemaParts parts;
    while (!schema.empty()) {
        const std::size_t end = schema.find(';');
        const std::string_view statement = schema.substr(0, end == schema.npos ? end : end + 1);
        const bool isIndex = statement.find("CREATE INDEX") != statement.npos;
        (isIndex ? parts.indexes : parts.tables).append(statement);
        schema.remove_prefix(statement.size());
    }
    return parts;
}

[[noreturn]] void fail(sqlite3 *database)
{
    throw RuntimeError(ado_error::unspecified,
                       fmt::format("データベースを作成できません。（{}）", sqlite3_errmsg(database)));
}

int sizeOf(const std::string &text)
{
    return static_cast<int>(text.size());
}

/// Binds text without copying it: the row's cells outlive the step.
struct Binder {
    sqlite3_stmt *statement;
    int position;
    int operator()(std::monostate) const { return sqlite3_bind_null(statement, position); }
    int operator()(std::int64_t number) const { return sqlite3_bind_int64(statement, position, number); }
    int operator()(const std::string &text) const
    {
        return sqlite3_bind_text(statement, position, text.data(), sizeOf(text), nullptr);
    }
    int operator()(const Blob &blob) const
    {
        return sqlite3_bind_blob(statement, position, blob.bytes.data(), sizeOf(blob.bytes), nullptr);
    }
};

class PreparedSink : public RowSink {
public:
    PreparedSink(sqlite3 *database, StatementHandle statement) : m_database(database), m_statement(std::move(statement))
    {
    }
    void row(std::span<const Cell> cells) override
    {
        int position = 0;
        for (const Cell &cell : cells)
            if (std::visit(Binder{m_statement.get(), ++position}, cell) != SQLITE_OK) fail(m_database);
        if (sqlite3_step(m_statement.get()) != SQLITE_DONE) fail(m_database);
        sqlite3_reset(m_statement.get());
    }

private:
    sqlite3 *m_database;
    StatementHandle m_statement;
};

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

void writeDemoRows(RowTarget &target, const SiteOrder &order)
{
    writeFixedTables(target, order);
    writeCompanies(target, order);
    writeStaff(target, order);
    writeConsultations(target, order);
    writePatients(target, order);
    writeVisits(target, order);
}

void makeDatabase(const std::string &path, const SiteOrder &order)
{
    const SchemaParts schema = splitSchema(schemaText());
    createForOwner(path); // a journal inherits the permissions of its database
    SqliteWriter database(path);
    // No journal: the file is new and gets its final name only when it is complete.
    database.run("PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF; BEGIN;");
    database.run(schema.tables);
    writeDemoRows(database, order);
    database.run(schema.indexes + "COMMIT;");
}

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

void SqliteWriter::Close::operator()(sqlite3 *database) const
{
    sqlite3_close(database);
}

void FinalizeStatement::operator()(sqlite3_stmt *statement) const
{
    sqlite3_finalize(statement);
}

SqliteWriter::SqliteWriter(const std::string &path)
{
    sqlite3 *database = nullptr;
    const char *const calls = sqlite::databaseFileCalls();
    // The Windows calls need the prefix for a deep path; elsewhere use the path unchanged, including backslashes.
    const std::string file = calls == nullptr ? path : systemPath(path);
    const int result = sqlite3_open_v2(file.c_str(), &database, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, calls);
    m_database.reset(database);
    if (result != SQLITE_OK) fail(database);
}

void SqliteWriter::run(const std::string &script)
{
    if (sqlite3_exec(m_database.get(), script.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) fail(m_database.get());
}

StatementHandle SqliteWriter::prepare(const std::string &statement)
{
    sqlite3_stmt *prepared = nullptr;
    if (sqlite3_prepare_v2(m_database.get(), statement.c_str(), -1, &prepared, nullptr) != SQLITE_OK)
        fail(m_database.get());
    return StatementHandle{prepared};
}

RowSink &SqliteWriter::into(std::string_view table, std::span<const std::string_view> columns)
{
    std::string marks;
    for (std::size_t i = 0; i < columns.size(); ++i) marks += i == 0 ? "?" : ",?";
    m_sinks.push_back(std::make_unique<PreparedSink>(
        m_database.get(),
        prepare(fmt::format("INSERT INTO {} ({}) VALUES ({})", table, fmt::join(columns, ","), marks))));
    return *m_sinks.back();
}

} // namespace inin::site
