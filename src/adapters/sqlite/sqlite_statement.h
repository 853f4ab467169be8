#pragma once

#include "adapters/sqlite/sql_translator.h"
#include "runtime/variant.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

struct sqlite3_stmt;

namespace inin::sqlite {

struct FinalizeStatement {
    void operator()(sqlite3_stmt *statement) const;
};
using StatementHandle = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;

/// A prepared SELECT with the names and kinds of its columns.
class SqliteStatement {
public:
    /// `results` are the kinds of the columns that the translation knows.
    explicit SqliteStatement(StatementHandle statement, ResultKinds results = {});

    [[nodiscard]] sqlite3_stmt *get() const { return m_statement.get(); }
    /// Ends the present run.
    void reset();
    /// Reads names and kinds again if SQLite has prepared the statement again after a schema change.
    void refreshFields();

    [[nodiscard]] std::size_t fieldCount() const { return m_fields.size(); }
    [[nodiscard]] const std::string &fieldName(std::size_t index) const { return m_fields[index].name; }
    /// ADO's code of the declared type; 0 for an expression other than a date.
    [[nodiscard]] std::int32_t declaredType(std::size_t index) const { return m_fields[index].type; }
    /// fieldCount() for an unknown name. Called for each value of each row, so the results are cached by name.
    [[nodiscard]] std::size_t fieldIndex(std::string_view name) const;
    /// The value in the current row.
    [[nodiscard]] Variant value(std::size_t index) const;

private:
    struct Field {
        std::string name;
        ColumnKind kind = ColumnKind::unknown;
        std::int32_t type = 0;
    };
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>{}(text); }
    };
    void readFields();
    [[nodiscard]] bool isDateExpression(std::size_t column, std::size_t count) const;

    StatementHandle m_statement;
    ResultKinds m_results;
    std::vector<Field> m_fields;
    mutable std::unordered_map<std::string, std::size_t, Hash, std::equal_to<>> m_indexes;
    int m_preparations = 0;
};

} // namespace inin::sqlite
