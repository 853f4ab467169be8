#include "adapters/sqlite/sql_schema.h"

#include "runtime/text.h"

namespace inin {

namespace {

struct TypeWord {
    std::string_view word;
    ColumnKind kind;
};
/// Searched in this order, anywhere in the declared type.
constexpr TypeWord kTypeWords[] = {
    {"date", ColumnKind::date},     {"timestamp", ColumnKind::date}, {"char", ColumnKind::text},
    {"text", ColumnKind::text},     {"clob", ColumnKind::text},      {"blob", ColumnKind::binary},
    {"binary", ColumnKind::binary}, {"image", ColumnKind::binary},
};

} // namespace

ColumnKind kindOfDeclaredType(std::string_view declared)
{
    if (declared.empty()) return ColumnKind::unknown;
    const std::string lower = asciiLower(declared);
    for (const TypeWord &type : kTypeWords)
        if (lower.find(type.word) != std::string::npos) return type.kind;
    return ColumnKind::number;
}

void SqlSchema::add(std::string_view table, std::string_view column, std::string_view declaredType)
{
    m_tables[asciiLower(table)].push_back({asciiLower(column), kindOfDeclaredType(declaredType)});
}

const SqlSchema::Columns *SqlSchema::columnsOf(std::string_view table) const
{
    const auto found = m_tables.find(asciiLower(table));
    return found == m_tables.end() ? nullptr : &found->second;
}

ColumnKind kindIn(const SqlSchema::Columns &columns, std::string_view lowerName)
{
    for (const SqlSchema::Column &column : columns)
        if (column.lowerName == lowerName) return column.kind;
    return ColumnKind::unknown;
}

} // namespace inin
