#pragma once

#include "adapters/common/sql_tokenizer.h"
#include "adapters/sqlite/sql_schema.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace inin {

/// A word of the grammar, never the name of a table, column or function where it stands alone.
[[nodiscard]] bool isSqlKeyword(const Token &token);

/// UNION, EXCEPT or INTERSECT.
[[nodiscard]] bool isSetOperator(const Token &token);

/// The name that a word, a [name] or a "name" spells; empty for other tokens.
[[nodiscard]] std::string nameOf(const Token &token);

/// The name as SQLite reads it.
[[nodiscard]] std::string spelledName(const Token &token);

/// The tables of one statement, read from FROM, JOIN, UPDATE and INTO, by their aliases or, without one, their names. A
/// column is looked for in the tables of its own brackets first, then outwards, then in all others.
class StatementTables {
public:
    StatementTables(const std::vector<Token> &tokens, const SqlSchema &schema);
    /// The kind of a column that the statement names at token `at`. `qualifier` may be empty; one that is not a table's,
    /// as a sub-select's name is, counts as empty.
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
    // A scope is a pair of brackets or one SELECT of a UNION, by its number; 0 is the statement itself.
    std::vector<std::size_t> m_scopeOf;    ///< of each token
    std::vector<std::size_t> m_parents{0}; ///< of each scope
};

} // namespace inin
