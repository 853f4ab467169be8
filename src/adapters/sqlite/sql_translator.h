#pragma once

#include "adapters/database/sql_tokenizer.h"
#include "adapters/sqlite/sql_names.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace inin::sqlite {

/// The kinds of a SELECT's result columns in order. An item without a kind is a *, which may be several columns.
using ResultKinds = std::vector<std::optional<ColumnKind>>;

/// A translated statement, or the error in the statement when `problem` is not empty.
struct Translation {
    std::string text;
    std::string problem;
    ResultKinds results{}; ///< of the outermost SELECT, the first one of a UNION
};

/// Translates a SQL Server statement of the suite to SQLite: SELECT TOP n, CONVERT(VARCHAR, x, 111 or 112), LEFT(a, n),
/// ISNULL, GetDate(), 0x… values, + between texts, date literals for date columns, and comparisons, LIKE, ORDER BY,
/// GROUP BY, DISTINCT, MIN, MAX and CASE of texts under the server's Japanese collation. It works on tokens, so no
/// other rule changes a quoted text. Anything else is passed to SQLite unchanged. docs/embedded-database.md lists the
/// limits.
[[nodiscard]] Translation translateSql(std::string_view sqlServerText, const SqlSchema &schema);
[[nodiscard]] Translation translateSql(const std::vector<Token> &tokens, const SqlSchema &schema);

/// The lexical error of the tokens, such as an unterminated literal; empty when they are valid.
[[nodiscard]] std::string lexicalProblem(const std::vector<Token> &tokens);

/// True for a single SELECT (or WITH … SELECT), possibly with comments and a trailing semicolon.
[[nodiscard]] bool isSingleSelect(std::string_view sqlServerText);
[[nodiscard]] bool isSingleSelect(const std::vector<Token> &tokens);

/// True for a single statement that reads or changes rows or tables. False for batches, for transactions, which have
/// their own operations, and for ATTACH and PRAGMA, which could reach beyond the session's file.
[[nodiscard]] bool isSingleStatement(const std::vector<Token> &tokens);

} // namespace inin::sqlite
