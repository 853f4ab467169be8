#pragma once

#include "adapters/common/sql_tokenizer.h"
#include "adapters/sqlite/sql_schema.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace inin {

/// A word of the grammar, never the name of a table, column or function where it stands alone.
[[nodiscard]] bool isSqlKeyword(const Token &token);

/// The name that a word, a [name] or a "name" spells; empty for other tokens.
[[nodiscard]] std::string nameOf(const Token &token);

/// The tables of one statement under their names and aliases. Sub-selects are not told apart: a name is looked for in
/// every table that the statement mentions, the first that has the column answers.
class StatementTables {
public:
    StatementTables(const std::vector<Token> &tokens, const SqlSchema &schema);
    /// `qualifier` may be empty, or a sub-select's name, which counts as none.
    [[nodiscard]] ColumnKind kindOf(std::string_view qualifier, std::string_view column) const;

private:
    void addTable(std::string lowerName, const SqlSchema::Columns *columns);

    std::vector<std::pair<std::string, const SqlSchema::Columns *>> m_tables;
};

} // namespace inin
