#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace inin {

/// What a column or an expression holds, as far as the translation and the reading of values care.
enum class ColumnKind : std::uint8_t { unknown, number, text, date, binary };

/// From a declared type: DATETIME and the like are dates, the CHAR and TEXT kinds texts, BLOB, BINARY and IMAGE bytes,
/// no type unknown, all others numbers.
[[nodiscard]] ColumnKind kindOfDeclaredType(std::string_view declared);

/// The columns of a database's tables, so that a quoted text can be told from a quoted date. Names count whatever
/// their ASCII case.
class SqlSchema {
public:
    struct Column {
        std::string lowerName;
        ColumnKind kind = ColumnKind::unknown;
    };
    using Columns = std::vector<Column>;

    void add(std::string_view table, std::string_view column, std::string_view declaredType);
    /// nullptr for a table that is not there.
    [[nodiscard]] const Columns *columnsOf(std::string_view table) const;

private:
    std::unordered_map<std::string, Columns> m_tables;
};

/// The kind of a column by name, unknown when the table has none of that name.
[[nodiscard]] ColumnKind kindIn(const SqlSchema::Columns &columns, std::string_view lowerName);

} // namespace inin
