// Foreign texts as literals of SQL Server statements: SQLite must accept the translation and see the same value.

#include "adapters/sqlite/sql_translator.h"
#include "adapters/sqlite/sqlite_functions.h"
#include "common/binary_literal.h"
#include "fuzz/fuzz_input.h"

#include <sqlite3.h>

#include <memory>
#include <string>

using namespace inin;
using namespace inin::sqlite;
using inin::fuzz::require;

namespace {

struct CloseDatabase {
    void operator()(sqlite3 *db) const { sqlite3_close(db); }
};
struct FinishStatement {
    void operator()(sqlite3_stmt *statement) const { sqlite3_finalize(statement); }
};
using Statement = std::unique_ptr<sqlite3_stmt, FinishStatement>;

sqlite3 *database()
{
    static const std::unique_ptr<sqlite3, CloseDatabase> kDatabase = [] {
        sqlite3 *db = nullptr;
        require(sqlite3_open(":memory:", &db) == SQLITE_OK, "a database in memory can be opened");
        std::unique_ptr<sqlite3, CloseDatabase> handle(db);
        require(registerSqlFunctions(db) == SQLITE_OK, "the functions of the adapter can be registered");
        const char *const table = "CREATE TABLE T (nID INTEGER, cName TEXT, tDay DATETIME, bData BLOB)";
        require(sqlite3_exec(db, table, nullptr, nullptr, nullptr) == SQLITE_OK, "the table can be created");
        return handle;
    }();
    return kDatabase.get();
}

const SqlSchema &schema()
{
    static const SqlSchema kSchema = [] {
        SqlSchema made;
        made.add("T", "nID", "INTEGER");
        made.add("T", "cName", "TEXT");
        made.add("T", "tDay", "DATETIME");
        made.add("T", "bData", "BLOB");
        return made;
    }();
    return kSchema;
}

/// Null when SQLite refuses the translation.
Statement prepared(const std::string &sql)
{
    const Translation translation = translateSql(sql, schema());
    if (!translation.problem.empty()) return nullptr;
    sqlite3_stmt *statement = nullptr;
    const auto size = static_cast<int>(translation.text.size());
    (void)sqlite3_prepare_v2(database(), translation.text.data(), size, &statement, nullptr);
    return Statement(statement);
}

std::string quoted(std::string_view text)
{
    std::string literal = "'";
    for (const char c : text) literal += c == '\'' ? "''" : std::string(1, c);
    return literal + "'";
}

/// The one value that a literal selects.
std::string selected(const std::string &literal)
{
    const Statement statement = prepared("SELECT " + literal);
    require(statement != nullptr && sqlite3_column_count(statement.get()) == 1, "a literal is one column");
    require(sqlite3_step(statement.get()) == SQLITE_ROW, "a literal can be selected");
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement.get(), 0));
    const void *bytes = sqlite3_column_blob(statement.get(), 0);
    return bytes == nullptr ? std::string() : std::string(static_cast<const char *>(bytes), size);
}

bool hasNul(std::string_view text)
{
    return text.find('\0') != std::string_view::npos;
}

void checkText(std::string_view input)
{
    if (hasNul(input)) return; // SQLite ends a statement there
    require(selected(quoted(input)) == input, "a text literal keeps its text");
    require(selected("N" + quoted(input)) == input, "a national text literal keeps its text");
}

void checkBinary(std::string_view input)
{
    std::string literal = "0x";
    appendHex(literal, input);
    require(selected(literal) == input, "a binary literal keeps its bytes");
}

/// A text is accepted wherever the suite's statements contain one, with columns of all kinds.
void checkPlaces(std::string_view input)
{
    if (hasNul(input)) return;
    const std::string literal = quoted(input);
    const std::string statements[] = {
        "SELECT * FROM T WHERE cName = " + literal + " AND tDay >= " + literal,
        "SELECT TOP 1 nID FROM T WHERE tDay BETWEEN " + literal + " AND " + literal + " ORDER BY cName",
        "SELECT LEFT(" + literal + ", 2), ISNULL(tDay, " + literal + ") FROM T WHERE cName LIKE " + literal,
        "INSERT INTO T (nID, cName, tDay) VALUES (1, " + literal + ", " + literal + ")",
        "UPDATE T SET cName = cName + " + literal + ", tDay = " + literal + " WHERE cName IN (" + literal + ", 'a')",
    };
    for (const std::string &sql : statements) {
        // A date column refuses a text that is not a date.
        if (!translateSql(sql, schema()).problem.empty()) continue;
        require(prepared(sql) != nullptr, "a translated statement can be prepared");
    }
}

/// Anything else in place of a value is accepted or refused.
void checkRawValue(std::string_view input)
{
    const std::string text(input);
    (void)prepared("SELECT nID, " + text + " FROM T WHERE cName = " + text + " ORDER BY " + text);
    (void)prepared(text);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    return fuzz::runChoice({checkText, checkBinary, checkPlaces, checkRawValue}, data, size);
}
