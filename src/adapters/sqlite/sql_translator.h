#pragma once

#include "adapters/common/sql_tokenizer.h"
#include "adapters/sqlite/sql_schema.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace inin {

/// The kinds of a SELECT's result columns in order. An item without a kind is a *, any number of columns.
using ResultKinds = std::vector<std::optional<ColumnKind>>;

/// A translated statement, or what is wrong with the text when `problem` is not empty.
struct Translation {
    std::string text;
    std::string problem;
    ResultKinds results{}; ///< of the outermost SELECT, the first one of a UNION
};

/// Turns a SQL Server text of the suite into SQLite's: SELECT TOP n, CONVERT(VARCHAR, x, 111 or 112), LEFT(a, n),
/// ISNULL, GetDate(), 0x… values, + between texts, a literal that is wholly a date against a date column, and
/// comparisons, LIKE, ORDER BY, GROUP BY, DISTINCT, MIN, MAX and CASE on texts as the server's Japanese collation has
/// them. Works on tokens: a quoted text is never touched except by its own rule. What it does not know passes through,
/// for SQLite to judge. docs/embedded-database.md lists what is not covered.
[[nodiscard]] Translation translateSql(std::string_view sqlServerText, const SqlSchema &schema);
[[nodiscard]] Translation translateSql(const std::vector<Token> &tokens, const SqlSchema &schema);

/// Why no statement can be made of the tokens (a literal without its end, ...); empty when they are sound.
[[nodiscard]] std::string lexicalProblem(const std::vector<Token> &tokens);

/// True when the text is one SELECT (or WITH … SELECT) and nothing else, besides comments and a semicolon at its end.
[[nodiscard]] bool isSingleSelect(std::string_view sqlServerText);
[[nodiscard]] bool isSingleSelect(const std::vector<Token> &tokens);

/// True when the text is one statement that reads or changes rows or tables. Batches, transactions, ATTACH and PRAGMA
/// are none: the port has its own operations, and a session keeps to its one file.
[[nodiscard]] bool isSingleStatement(const std::vector<Token> &tokens);

} // namespace inin
