#include "adapters/odbc/odbc_recordset.h"

namespace inin::odbc {

void OdbcRecordset::openCursor(const std::string &sql, Connection &connection)
{
    m_lease = ownConnection<OdbcConnection>(connection).lease();
    m_sql = sql;
    m_cursor = m_lease->session->openReading(sql);
}

void OdbcRecordset::closeCursor()
{
    if (isOpen()) m_cursor->close();
    m_cursor.reset();
}

void OdbcRecordset::restartCursor()
{
    m_cursor->close();
    m_cursor = m_lease->session->openReading(m_sql);
}

std::size_t OdbcRecordset::fieldCount() const
{
    requireOpen();
    return m_cursor->columns().size();
}

const OdbcColumn &OdbcRecordset::column(std::size_t index) const
{
    requireField(index);
    return m_cursor->columns()[index];
}

} // namespace inin::odbc
