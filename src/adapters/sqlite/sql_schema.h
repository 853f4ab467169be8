#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace inin {

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

    void add(std::string_view table, std::string_view column, std::string_view declaredType);
    /// nullptr for an unknown table.
    [[nodiscard]] const Columns *columnsOf(std::string_view table) const;

private:
    std::unordered_map<std::string, Columns> m_tables;
};

/// The kind of a column; unknown when there is no column of that name.
[[nodiscard]] ColumnKind kindIn(const SqlSchema::Columns &columns, std::string_view lowerName);

} // namespace inin
