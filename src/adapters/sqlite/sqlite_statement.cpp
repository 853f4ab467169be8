#include "adapters/sqlite/sqlite_statement.h"

#include "adapters/sqlite/sql_date_text.h"
#include "runtime/text.h"
#include "runtime/utf8.h"

#include <sqlite3.h>

#include <algorithm>
#include <limits>
#include <optional>
#include <utility>

namespace inin::sqlite {

namespace {

/// ADO's type codes.
constexpr std::int32_t kSmallInt = 2, kInteger = 3, kDouble = 5, kDateTime = 135, kText = 202, kBinary = 204;

std::int32_t typeOf(ColumnKind kind, std::string_view declared)
{
    switch (kind) {
    case ColumnKind::date:
        return kDateTime;
    case ColumnKind::text:
        return kText;
    case ColumnKind::binary:
        return kBinary;
    case ColumnKind::unknown:
        return 0;
    case ColumnKind::number:
        break;
    }
    const std::string lower = asciiLower(declared);
    if (lower.find("smallint") != std::string::npos || lower.find("tinyint") != std::string::npos) return kSmallInt;
    return lower.find("int") != std::string::npos ? kInteger : kDouble;
}

Variant wholeNumber(sqlite3_int64 value)
{
    if (value >= std::numeric_limits<std::int32_t>::min() && value <= std::numeric_limits<std::int32_t>::max())
        return static_cast<std::int32_t>(value);
    return static_cast<double>(value);
}

std::string_view columnText(sqlite3_stmt *statement, int column)
{
    const auto *text = static_cast<const char *>(static_cast<const void *>(sqlite3_column_text(statement, column)));
    if (text == nullptr) return {};
    return {text, static_cast<std::size_t>(sqlite3_column_bytes(statement, column))};
}

Variant textValue(std::string_view text, ColumnKind kind)
{
    if (kind == ColumnKind::date)
        if (const std::optional<Date> date = dateFromColumn(text)) return *date;
    return validUtf8(text);
}

Variant bytesValue(sqlite3_stmt *statement, int column)
{
    const auto *bytes = static_cast<const std::byte *>(sqlite3_column_blob(statement, column));
    const int count = sqlite3_column_bytes(statement, column);
    return bytes == nullptr ? Binary() : Binary(bytes, bytes + count);
}

} // namespace

void FinalizeStatement::operator()(sqlite3_stmt *statement) const
{
    sqlite3_finalize(statement);
}

SqliteStatement::SqliteStatement(StatementHandle statement, ResultKinds results)
    : m_statement(std::move(statement)), m_results(std::move(results))
{
    readFields();
}

void SqliteStatement::reset()
{
    // Returns the error of the previous run, which was already reported.
    (void)sqlite3_reset(get());
}

void SqliteStatement::refreshFields()
{
    if (sqlite3_stmt_status(get(), SQLITE_STMTSTATUS_REPREPARE, 0) != m_preparations) readFields();
}

void SqliteStatement::readFields()
{
    m_fields.clear();
    m_indexes.clear();
    m_preparations = sqlite3_stmt_status(get(), SQLITE_STMTSTATUS_REPREPARE, 0);
    const int count = sqlite3_column_count(get());
    for (int column = 0; column < count; ++column) {
        const char *name = sqlite3_column_name(get(), column);
        const char *declared = sqlite3_column_decltype(get(), column);
        const std::string_view type = declared == nullptr ? "" : declared;
        // The kind of any other expression follows from its value.
        const bool isDate =
            type.empty() && isDateExpression(static_cast<std::size_t>(column), static_cast<std::size_t>(count));
        const ColumnKind kind = isDate ? ColumnKind::date : kindOfDeclaredType(type);
        m_fields.push_back({name == nullptr ? "" : name, kind, typeOf(kind, type)});
    }
}

/// Items before the first * are counted from the first column, those after the last * from the last column.
bool SqliteStatement::isDateExpression(std::size_t column, std::size_t count) const
{
    const auto isStar = [](const std::optional<ColumnKind> &kind) { return !kind; };
    const auto firstStar = std::find_if(m_results.begin(), m_results.end(), isStar);
    if (firstStar == m_results.end() && m_results.size() != count) return false;
    const auto head = static_cast<std::size_t>(firstStar - m_results.begin());
    if (column < head) return m_results[column] == ColumnKind::date;
    const auto tail =
        static_cast<std::size_t>(std::find_if(m_results.rbegin(), m_results.rend(), isStar) - m_results.rbegin());
    const std::size_t fromEnd = count - column;
    return fromEnd <= tail && m_results[m_results.size() - fromEnd] == ColumnKind::date;
}

std::size_t SqliteStatement::fieldIndex(std::string_view name) const
{
    if (const auto found = m_indexes.find(name); found != m_indexes.end()) return found->second;
    std::size_t index = 0;
    while (index < m_fields.size() && !equalsIgnoringAsciiCase(m_fields[index].name, name)) ++index;
    if (index < m_fields.size()) m_indexes.emplace(name, index);
    return index;
}

Variant SqliteStatement::value(std::size_t index) const
{
    const int column = static_cast<int>(index);
    switch (sqlite3_column_type(get(), column)) {
    case SQLITE_INTEGER:
        return wholeNumber(sqlite3_column_int64(get(), column));
    case SQLITE_FLOAT:
        return sqlite3_column_double(get(), column);
    case SQLITE_TEXT:
        return textValue(columnText(get(), column), m_fields[index].kind);
    case SQLITE_BLOB:
        return bytesValue(get(), column);
    default:
        return Null{};
    }
}

} // namespace inin::sqlite
