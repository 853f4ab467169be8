#pragma once

#include "adapters/database/sql_tokenizer.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace inin::sqlite {

/// The kinds of columns and expressions that the translation and the reading of values distinguish.
enum class ColumnKind : std::uint8_t { unknown, number, text, date, binary };

/// The kind of a declared type: date and time types are dates, CHAR and TEXT types texts, BLOB, BINARY and IMAGE
/// binary, a missing type unknown, all others numbers.
[[nodiscard]] ColumnKind kindOfDeclaredType(std::string_view declared);

/// The columns of a database's tables, by which the translation recognizes a date literal. Names ignore ASCII case.
class SqlSchema {
public:
    struct Column {
        std::string lowerName;
        ColumnKind kind = ColumnKind::unknown;
    };
    using Columns = std::vector<Column>;
    /// Returns no columns for an unknown table.
    using ReadColumns = std::function<Columns(const std::string &table)>;

    SqlSchema() = default;
    /// Reads the columns of a table when they are first requested.
    explicit SqlSchema(ReadColumns read) : m_read(std::move(read)) {}

    void add(std::string_view table, std::string_view column, std::string_view declaredType);
    /// nullptr for an unknown table.
    [[nodiscard]] const Columns *columnsOf(std::string_view table) const;

private:
    ReadColumns m_read;
    mutable std::unordered_map<std::string, Columns> m_tables;
};

/// The kind of a column; unknown when there is no column of that name.
[[nodiscard]] ColumnKind kindIn(const SqlSchema::Columns &columns, std::string_view lowerName);

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

} // namespace inin::sqlite
