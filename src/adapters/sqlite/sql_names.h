#pragma once

#include "adapters/common/sql_tokenizer.h"
#include "adapters/sqlite/sql_schema.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace inin {

/// A reserved word, which is never a name unless it is quoted or follows a dot.
[[nodiscard]] bool isSqlKeyword(const Token &token);

/// UNION, EXCEPT or INTERSECT.
[[nodiscard]] bool isSetOperator(const Token &token);

/// The name of a word, [name] or "name" token, without its quotes; empty for other tokens.
[[nodiscard]] std::string nameOf(const Token &token);

/// The name in SQLite's syntax.
[[nodiscard]] std::string spelledName(const Token &token);

/// The tables of one statement, from FROM, JOIN, UPDATE and INTO, by alias or else by name. A column is searched in the
/// tables of its own scope first, then of the enclosing scopes, then of all others.
class StatementTables {
public:
    StatementTables(const std::vector<Token> &tokens, const SqlSchema &schema);
    /// The kind of the column at token `at`. `qualifier` may be empty, and is ignored unless it names a table.
    [[nodiscard]] ColumnKind kindOf(std::string_view qualifier, std::string_view column, std::size_t at) const;

private:
    struct Table {
        std::string lowerName;
        const SqlSchema::Columns *columns;
        std::size_t scope;
    };
    std::size_t addScope(std::size_t parent);
    std::size_t addTable(const std::vector<Token> &tokens, std::size_t at, const SqlSchema &schema);
    template <class Fits> [[nodiscard]] const Table *find(std::size_t at, Fits &&fits) const;

    std::vector<Table> m_tables;
    // A scope is the content of a pair of brackets or one SELECT of a UNION; scope 0 is the statement itself.
    std::vector<std::size_t> m_scopeOf;    ///< indexed by token
    std::vector<std::size_t> m_parents{0}; ///< indexed by scope
};

} // namespace inin
