#include "adapters/sqlite/sqlite_handle.h"

#include "adapters/database/sql_tokenizer.h"
#include "adapters/sqlite/sql_shape.h"
#include "adapters/sqlite/sql_translator.h"
#include "adapters/sqlite/sqlite_error.h"

#include <sqlite3.h>

#include <algorithm>
#include <limits>
#include <utility>

// Translates, prepares and runs statements.

namespace inin::sqlite {

namespace {

constexpr std::size_t kRecentStatements = 48;

} // namespace

std::shared_ptr<SqliteCursor> SqliteHandle::openReading(const std::string &sql)
{
    const SqlShape shape = shapeOf(tokenizeSql(sql));
    const auto open = [&] {
        const std::shared_ptr<SqliteStatement> statement = prepareReading(shape);
        for (std::size_t at = 0; at < shape.numbers.size(); ++at)
            sqlite3_bind_int64(statement->get(), static_cast<int>(at) + 1, shape.numbers[at]);
        const bool hasRow = step(*statement);
        return std::make_shared<SqliteCursor>(*this, statement, hasRow);
    };
    std::shared_ptr<SqliteCursor> cursor = open();
    if (!wasFileChanged()) return cursor;
    const std::int64_t version = m_version;
    if (const int code = refreshSchema(); code != SQLITE_OK) raise(*m_errors, providerError(m_db.get(), code));
    if (version == m_version) return cursor;
    cursor.reset();
    return open(); // the first translation used columns that have changed
}

void SqliteHandle::restart(const std::shared_ptr<SqliteCursor> &cursor, const std::string &)
{
    cursor->close();
    cursor->next();
}

std::shared_ptr<SqliteStatement> SqliteHandle::prepareReading(const SqlShape &shape)
{
    const auto found = std::find_if(m_recent.begin(), m_recent.end(),
                                    [&shape](const auto &entry) { return entry.first == shape.key; });
    if (found != m_recent.end()) {
        std::rotate(m_recent.begin(), found, found + 1);
        // A statement that another record set is reading cannot be run again.
        if (m_recent.front().second.use_count() == 1) return m_recent.front().second;
        m_recent.erase(m_recent.begin());
    }
    const auto refuse = [this](std::string message, int code) {
        raise(*m_errors, providerError(ado_error::faultyStatement, "42000", std::move(message), code));
    };
    if (!isSingleSelect(shape.tokens)) {
        const std::string problem = lexicalProblem(shape.tokens);
        refuse(problem.empty() ? "a read-only record set runs one SELECT and nothing else" : problem, SQLITE_ERROR);
    }
    std::shared_ptr<SqliteStatement> statement = prepare(shape.tokens);
    // No known statement reaches this point and writes. SQLite decides, in case a later version adds one.
    if (sqlite3_stmt_readonly(statement->get()) == 0)
        refuse("a read-only record set cannot change the database", SQLITE_READONLY);
    if (m_recent.size() == kRecentStatements) m_recent.pop_back();
    m_recent.emplace(m_recent.begin(), shape.key, statement);
    return statement;
}

std::shared_ptr<SqliteStatement> SqliteHandle::prepare(const std::vector<Token> &tokens)
{
    startCommand();
    Translation translation = translateSql(tokens, m_schema);
    if (!translation.problem.empty())
        raise(*m_errors, providerError(ado_error::faultyStatement, "22007", translation.problem, SQLITE_ERROR));
    const std::string &text = translation.text;
    sqlite3_stmt *prepared = nullptr;
    const char *tail = nullptr;
    const int code = sqlite3_prepare_v3(m_db.get(), text.data(), static_cast<int>(text.size()), 0, &prepared, &tail);
    if (code != SQLITE_OK) raise(*m_errors, providerError(m_db.get(), code));
    auto statement = std::make_shared<SqliteStatement>(StatementHandle(prepared), std::move(translation.results));
    const std::string_view rest(tail, static_cast<std::size_t>(text.data() + text.size() - tail));
    if (prepared == nullptr || rest.find_first_not_of(" \t\r\n\v\f;") != std::string_view::npos)
        raise(*m_errors, providerError(ado_error::faultyStatement, "42000", "one statement at a time", SQLITE_ERROR));
    return statement;
}

bool SqliteHandle::step(SqliteStatement &statement)
{
    startCommand();
    const int code = sqlite3_step(statement.get());
    if (code == SQLITE_ROW) return true;
    if (code == SQLITE_DONE) return false;
    const ProviderError error = providerError(m_db.get(), code);
    statement.reset();
    raise(*m_errors, error);
}

std::int32_t SqliteHandle::execute(const std::string &sql)
{
    const std::vector<Token> tokens = tokenizeSql(sql);
    if (tokens.empty()) return -1; // the server accepts blank text
    const std::string problem = lexicalProblem(tokens);
    if (!problem.empty() || !isSingleStatement(tokens))
        raise(*m_errors,
              providerError(ado_error::faultyStatement, "42000",
                            problem.empty() ? "only one statement that reads or changes data can be run" : problem,
                            SQLITE_ERROR));
    startCommand();
    if (const int code = refreshSchema(); code != SQLITE_OK) raise(*m_errors, providerError(m_db.get(), code));
    const std::shared_ptr<SqliteStatement> statement = prepare(tokens);
    const bool changesRows = sqlite3_stmt_readonly(statement->get()) == 0 && !tokens[0].isWord("create") &&
                             !tokens[0].isWord("drop") && !tokens[0].isWord("alter");
    while (step(*statement)) {
    }
    if (changesRows) {
        const sqlite3_int64 rows = sqlite3_changes64(m_db.get());
        return static_cast<std::int32_t>(std::min<sqlite3_int64>(rows, std::numeric_limits<std::int32_t>::max()));
    }
    statement->reset();
    if (const int code = refreshSchema(); code != SQLITE_OK) raise(*m_errors, providerError(m_db.get(), code));
    return -1;
}

} // namespace inin::sqlite
