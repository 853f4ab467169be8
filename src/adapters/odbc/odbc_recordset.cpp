#include "adapters/odbc/odbc_recordset.h"

#include "adapters/database/ado_error.h"
#include "runtime/runtime_error.h"

namespace inin::odbc {

void OdbcRecordset::setCursorLocation(std::int32_t location)
{
    if (isOpen()) raiseOpen();
    m_client = location == adUseClient;
}

void OdbcRecordset::Open(const std::string &sql, Connection &connection, std::int32_t, std::int32_t, std::int32_t)
{
    if (isOpen()) raiseOpen();
    release();
    auto *session = dynamic_cast<OdbcConnection *>(&connection);
    if (session == nullptr) throw RuntimeError(ado_error::badArgument, "the connection is another provider's");
    m_lease = session->lease();
    m_sql = sql;
    m_cursor = m_lease->session->openReading(sql);
    if (!m_client) return;
    try {
        readAll();
    } catch (...) {
        release();
        throw;
    }
}

void OdbcRecordset::Close()
{
    (void)cursor(); // raises when closed
    release();
}

void OdbcRecordset::release()
{
    if (isOpen()) m_cursor->close();
    m_cursor.reset();
    m_rows.clear();
    m_row = 0;
}

OdbcCursor &OdbcRecordset::cursor() const
{
    if (!isOpen()) raiseClosed();
    return *m_cursor;
}

const OdbcColumn &OdbcRecordset::column(std::size_t index) const
{
    if (index >= fieldCount()) throw RuntimeError(error_number::noSuchField);
    return m_cursor->columns()[index];
}

void OdbcRecordset::readAll()
{
    const std::size_t count = m_cursor->columns().size();
    for (; !m_cursor->atEnd(); m_cursor->next()) {
        std::vector<Variant> &row = m_rows.emplace_back();
        row.reserve(count);
        for (std::size_t index = 0; index < count; ++index) row.push_back(m_cursor->value(index));
    }
}

bool OdbcRecordset::isEndOfFile() const
{
    const OdbcCursor &rows = cursor();
    return m_client ? m_row >= m_rows.size() : rows.atEnd();
}

void OdbcRecordset::MoveNext()
{
    if (isEndOfFile()) throw RuntimeError(error_number::noCurrentRecord);
    if (m_client)
        ++m_row;
    else
        m_cursor->next();
}

/// With a server-side cursor the statement runs again.
void OdbcRecordset::MoveFirst()
{
    OdbcCursor &rows = cursor();
    m_row = 0;
    if (m_client) return;
    rows.close();
    m_cursor = m_lease->session->openReading(m_sql);
}

void OdbcRecordset::MoveLast()
{
    (void)cursor(); // raises when closed
    if (!m_client) throw RuntimeError(ado_error::notInThisContext, "a forward-only record set has no way to its end");
    m_row = m_rows.empty() ? 0 : m_rows.size() - 1;
}

/// A driver's count is unreliable; count the rows that were read.
std::int32_t OdbcRecordset::RecordCount() const
{
    (void)cursor(); // raises when closed
    return m_client ? static_cast<std::int32_t>(m_rows.size()) : -1;
}

std::size_t OdbcRecordset::fieldIndex(std::string_view name) const
{
    const std::size_t index = cursor().fieldIndex(name);
    if (index >= fieldCount()) throw RuntimeError(error_number::noSuchField);
    return index;
}

Variant OdbcRecordset::Value(std::size_t index) const
{
    if (isEndOfFile()) throw RuntimeError(error_number::noCurrentRecord);
    if (index >= fieldCount()) throw RuntimeError(error_number::noSuchField);
    return m_client ? m_rows[m_row][index] : m_cursor->value(index);
}

} // namespace inin::odbc
