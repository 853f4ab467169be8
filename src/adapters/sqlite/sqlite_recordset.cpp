#include "adapters/sqlite/sqlite_recordset.h"

namespace inin::sqlite {

void SqliteRecordset::openCursor(const std::string &sql, Connection &connection)
{
    m_lease = ownConnection<SqliteConnection>(connection).lease();
    bool hasRow = false;
    m_statement = m_lease->handle->openReading(sql, hasRow, *m_lease->errors);
    m_atEnd = !hasRow;
    m_statement->refreshFields();
}

/// Resets the statement, so that the connection can run it again.
void SqliteRecordset::closeCursor()
{
    if (isOpen()) m_statement->reset();
    m_statement.reset();
    m_atEnd = false;
}

/// After a failure there is no current row.
void SqliteRecordset::nextRow()
{
    m_atEnd = true;
    m_atEnd = !m_lease->handle->step(*m_statement, *m_lease->errors);
}

void SqliteRecordset::restartCursor()
{
    m_statement->reset();
    nextRow();
}

std::size_t SqliteRecordset::fieldCount() const
{
    requireOpen();
    return m_statement->fieldCount();
}

std::string SqliteRecordset::fieldName(std::size_t index) const
{
    requireField(index);
    return m_statement->fieldName(index);
}

/// The type of an expression, which has no declared type, is that of its value in the current row.
std::int32_t SqliteRecordset::fieldType(std::size_t index) const
{
    constexpr std::int32_t kInteger = 3, kDouble = 5, kText = 202, kBinary = 204;
    requireField(index);
    if (const std::int32_t declared = m_statement->declaredType(index); declared != 0) return declared;
    if (isEndOfFile()) return kText;
    const Variant value = Value(index);
    if (value.getIf<std::int32_t>() != nullptr) return kInteger;
    if (value.getIf<double>() != nullptr) return kDouble;
    return value.getIf<Binary>() != nullptr ? kBinary : kText;
}

} // namespace inin::sqlite
