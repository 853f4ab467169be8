#include "adapters/sqlite/sqlite_recordset.h"

#include "adapters/sqlite/sqlite_error.h"
#include "runtime/runtime_error.h"

namespace inin {

SqliteRecordset::~SqliteRecordset()
{
    release();
}

void SqliteRecordset::setCursorLocation(std::int32_t location)
{
    if (isOpen()) raiseOpen();
    m_client = location == adUseClient;
}

void SqliteRecordset::Open(const std::string &sql, Connection &connection, std::int32_t, std::int32_t, std::int32_t)
{
    if (isOpen()) raiseOpen();
    release();
    auto *session = dynamic_cast<SqliteConnection *>(&connection);
    if (session == nullptr) throw RuntimeError(ado_error::badArgument, "the connection is another provider's");
    m_lease = session->lease();
    bool hasRow = false;
    m_statement = m_lease->handle->openReading(sql, hasRow, *m_lease->errors);
    m_atEnd = !hasRow;
    try {
        m_statement->refreshFields();
        if (m_client) readAll();
    } catch (...) {
        release();
        throw;
    }
}

void SqliteRecordset::Close()
{
    (void)statement(); // raises when closed
    release();
}

/// Resets the statement, so that the connection can run it again.
void SqliteRecordset::release()
{
    if (isOpen()) m_statement->reset();
    m_statement.reset();
    m_rows.clear();
    m_row = 0;
    m_atEnd = false;
}

SqliteStatement &SqliteRecordset::statement() const
{
    if (!isOpen()) raiseClosed();
    return *m_statement;
}

/// After a failure there is no current row.
void SqliteRecordset::step()
{
    m_atEnd = true;
    m_atEnd = !m_lease->handle->step(*m_statement, *m_lease->errors);
}

void SqliteRecordset::readAll()
{
    const std::size_t count = m_statement->fieldCount();
    for (; !m_atEnd; step()) {
        std::vector<Variant> &row = m_rows.emplace_back();
        row.reserve(count);
        for (std::size_t index = 0; index < count; ++index) row.push_back(m_statement->value(index));
    }
    m_statement->reset();
}

bool SqliteRecordset::isEndOfFile() const
{
    (void)statement(); // raises when closed
    return m_client ? m_row >= m_rows.size() : m_atEnd;
}

void SqliteRecordset::MoveNext()
{
    if (isEndOfFile()) throw RuntimeError(error_number::noCurrentRecord);
    if (m_client)
        ++m_row;
    else
        step();
}

/// A server-side cursor runs the statement again.
void SqliteRecordset::MoveFirst()
{
    SqliteStatement &rows = statement();
    m_row = 0;
    if (m_client) return;
    rows.reset();
    step();
}

void SqliteRecordset::MoveLast()
{
    (void)statement(); // raises when closed
    if (!m_client) throw RuntimeError(ado_error::notInThisContext, "a forward-only record set has no way to its end");
    m_row = m_rows.empty() ? 0 : m_rows.size() - 1;
}

std::int32_t SqliteRecordset::RecordCount() const
{
    (void)statement(); // raises when closed
    return m_client ? static_cast<std::int32_t>(m_rows.size()) : -1;
}

std::string SqliteRecordset::fieldName(std::size_t index) const
{
    if (index >= statement().fieldCount()) throw RuntimeError(error_number::noSuchField);
    return m_statement->fieldName(index);
}

/// The type of an expression, which has no declared type, is that of its value in the current row.
std::int32_t SqliteRecordset::fieldType(std::size_t index) const
{
    constexpr std::int32_t kInteger = 3, kDouble = 5, kText = 202, kBinary = 204;
    if (index >= statement().fieldCount()) throw RuntimeError(error_number::noSuchField);
    if (const std::int32_t declared = m_statement->declaredType(index); declared != 0) return declared;
    if (isEndOfFile()) return kText;
    const Variant value = Value(index);
    if (value.getIf<std::int32_t>() != nullptr) return kInteger;
    if (value.getIf<double>() != nullptr) return kDouble;
    return value.getIf<Binary>() != nullptr ? kBinary : kText;
}

std::size_t SqliteRecordset::fieldIndex(std::string_view name) const
{
    const std::size_t index = statement().fieldIndex(name);
    if (index >= m_statement->fieldCount()) throw RuntimeError(error_number::noSuchField);
    return index;
}

Variant SqliteRecordset::Value(std::size_t index) const
{
    if (isEndOfFile()) throw RuntimeError(error_number::noCurrentRecord);
    if (index >= m_statement->fieldCount()) throw RuntimeError(error_number::noSuchField);
    return m_client ? m_rows[m_row][index] : m_statement->value(index);
}

} // namespace inin
