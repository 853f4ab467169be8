#include "adapters/database/sql_tokenizer.h"

#include "adapters/sqlite/sql_translator.h"
#include "adapters/sqlite/sqlite_functions.h"

#include <sqlite3.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

using namespace inin;
using namespace inin::sqlite;

namespace {

[[noreturn]] void fail(const char *what, std::string_view text)
{
    std::fprintf(stderr, "%s: %.*s\n", what, static_cast<int>(text.size()), text.data());
    std::abort();
}

/// Skips one blank or comment at `at`; false when there is none.
bool skipOneGap(std::string_view text, std::size_t &at)
{
    const std::string_view rest = text.substr(at);
    if (rest.empty()) return false;
    if (std::string_view(" \t\n\v\f\r").find(rest.front()) != std::string_view::npos) {
        ++at;
        return true;
    }
    if (rest.substr(0, 3) == "\u3000") {
        at += 3;
        return true;
    }
    if (rest.substr(0, 2) == "--") {
        const std::size_t line = rest.find('\n');
        at = line == std::string_view::npos ? text.size() : at + line;
        return true;
    }
    if (rest.substr(0, 2) != "/*") return false;
    std::size_t depth = 0;
    for (std::size_t i = 0; i + 1 < rest.size();) {
        const std::string_view pair = rest.substr(i, 2);
        if (pair == "/*") ++depth;
        if (pair == "*/") --depth;
        i += pair == "/*" || pair == "*/" ? 2 : 1;
        if (depth != 0) continue;
        at += i;
        return true;
    }
    return false;
}

/// The tokens cover the text byte for byte, except for blanks and comments between them.
void checkCover(std::string_view text, const std::vector<Token> &tokens)
{
    std::size_t at = 0;
    for (const Token &token : tokens) {
        if (token.text.empty()) fail("an empty token", text);
        const std::size_t start = static_cast<std::size_t>(token.text.data() - text.data());
        while (at < start && skipOneGap(text, at)) continue;
        if (at != start) fail("a token at a wrong position", text);
        at += token.text.size();
    }
    while (skipOneGap(text, at)) continue;
    if (at != text.size()) fail("a remainder that is neither blank nor comment", text);
}

/// The tokens, joined with their gaps, are read as the same tokens again.
void checkJoined(std::string_view text, const std::vector<Token> &tokens)
{
    std::string joined;
    for (const Token &token : tokens) joined.append(token.gap).append(token.text);
    const std::vector<Token> again = tokenizeSql(joined);
    if (again.size() != tokens.size()) fail("a different number of tokens when joined", text);
    for (std::size_t at = 0; at < tokens.size(); ++at)
        if (again[at].kind != tokens[at].kind || again[at].text != tokens[at].text)
            fail("a different token when joined", text);
}

struct CloseDatabase {
    void operator()(sqlite3 *db) const { sqlite3_close(db); }
};
using Handle = std::unique_ptr<sqlite3, CloseDatabase>;

/// A database in memory without the adapter's guards: it executes every statement.
Handle makeDatabase()
{
    sqlite3 *db = nullptr;
    if (sqlite3_open(":memory:", &db) != SQLITE_OK) std::abort();
    Handle handle(db);
    if (registerSqlFunctions(db) != SQLITE_OK) std::abort();
    const char *const tables = "CREATE TABLE T (nID INTEGER, cName TEXT, tDay DATETIME, bData BLOB);"
                               "INSERT INTO T VALUES (1, 'a', '2024-05-01', x'00'), (2, NULL, NULL, NULL)";
    if (sqlite3_exec(db, tables, nullptr, nullptr, nullptr) != SQLITE_OK) std::abort();
    constexpr int kLongestText = 100000, kSteps = 20000;
    sqlite3_limit(db, SQLITE_LIMIT_LENGTH, kLongestText);
    sqlite3_progress_handler(
        db, kSteps, [](void *) { return 1; }, nullptr);
    return handle;
}

struct FinishStatement {
    void operator()(sqlite3_stmt *statement) const { sqlite3_finalize(statement); }
};
using Statement = std::unique_ptr<sqlite3_stmt, FinishStatement>;

/// What a statement could change, read with statements that are prepared once: most inputs are shorter than these.
class State {
public:
    explicit State(sqlite3 *db) : m_db(db)
    {
        for (const char *sql : {"SELECT count(*) FROM T", "PRAGMA main.schema_version", "PRAGMA temp.schema_version",
                                "PRAGMA main.user_version", "SELECT count(*) FROM pragma_database_list"}) {
            sqlite3_stmt *statement = nullptr;
            if (sqlite3_prepare_v2(db, sql, -1, &statement, nullptr) != SQLITE_OK) fail("no statement", sql);
            m_statements.emplace_back(statement);
        }
    }

    [[nodiscard]] std::vector<std::int64_t> now() const
    {
        std::vector<std::int64_t> numbers{sqlite3_total_changes64(m_db), sqlite3_get_autocommit(m_db)};
        for (const Statement &statement : m_statements) {
            if (sqlite3_step(statement.get()) != SQLITE_ROW) fail("the state cannot be read", sqlite3_errmsg(m_db));
            numbers.push_back(sqlite3_column_int64(statement.get(), 0));
            (void)sqlite3_reset(statement.get());
            // Otherwise the steps of all its runs add up, until the limit of steps interrupts it.
            (void)sqlite3_stmt_status(statement.get(), SQLITE_STMTSTATUS_VM_STEP, 1);
        }
        return numbers;
    }

private:
    sqlite3 *m_db;
    std::vector<Statement> m_statements;
};

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

/// A statement that is classified as a single SELECT changes nothing, even without other guards.
void checkReadOnly(std::string_view text, const std::vector<Token> &tokens)
{
    const Translation translation = translateSql(tokens, schema());
    if (!translation.problem.empty() || !isSingleSelect(tokens)) return;
    static const Handle kDatabase = makeDatabase();
    static const State kState(kDatabase.get());
    static const std::vector<std::int64_t> kBefore = kState.now();
    (void)sqlite3_exec(kDatabase.get(), translation.text.c_str(), nullptr, nullptr,
                       nullptr); // the statement may be invalid
    if (kState.now() != kBefore) fail("a SELECT that writes", text);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::string text(data, data + size);
    const std::vector<Token> tokens = tokenizeSql(text);
    checkCover(text, tokens);
    checkJoined(text, tokens);
    checkReadOnly(text, tokens);
    return 0;
}
