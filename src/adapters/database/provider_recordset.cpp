#include "adapters/database/provider_recordset.h"

namespace inin {

void ProviderRecordset::setCursorLocation(std::int32_t location)
{
    if (isOpen()) raiseOpen();
    m_client = location == adUseClient;
}

void ProviderRecordset::Open(const std::string &sql, Connection &connection, std::int32_t, std::int32_t, std::int32_t)
{
    if (isOpen()) raiseOpen();
    release();
    try {
        openCursor(sql, connection);
        if (m_client) readAll();
    } catch (...) {
        release();
        throw;
    }
}

void ProviderRecordset::Close()
{
    requireOpen();
    release();
}

void ProviderRecordset::release()
{
    closeCursor();
    m_rows.clear();
    m_row = 0;
}

void ProviderRecordset::requireOpen() const
{
    if (!isOpen()) raiseClosed();
}

void ProviderRecordset::requireField(std::size_t index) const
{
    if (index >= fieldCount()) throw RuntimeError(error_number::noSuchField);
}

void ProviderRecordset::readAll()
{
    const std::size_t count = fieldCount();
    for (; !isCursorAtEnd(); nextRow()) {
        std::vector<Variant> &row = m_rows.emplace_back();
        row.reserve(count);
        for (std::size_t index = 0; index < count; ++index) row.push_back(cursorValue(index));
    }
    endReading();
}

bool ProviderRecordset::isEndOfFile() const
{
    requireOpen();
    return m_client ? m_row >= m_rows.size() : isCursorAtEnd();
}

void ProviderRecordset::MoveNext()
{
    if (isEndOfFile()) throw RuntimeError(error_number::noCurrentRecord);
    if (m_client)
        ++m_row;
    else
        nextRow();
}

void ProviderRecordset::MoveFirst()
{
    requireOpen();
    m_row = 0;
    if (!m_client) restartCursor();
}

void ProviderRecordset::MoveLast()
{
    requireOpen();
    if (!m_client) throw RuntimeError(ado_error::notInThisContext, "a forward-only record set has no way to its end");
    m_row = m_rows.empty() ? 0 : m_rows.size() - 1;
}

std::int32_t ProviderRecordset::RecordCount() const
{
    requireOpen();
    return m_client ? static_cast<std::int32_t>(m_rows.size()) : -1;
}

std::size_t ProviderRecordset::fieldIndex(std::string_view name) const
{
    requireOpen();
    const std::size_t index = cursorFieldIndex(name);
    requireField(index);
    return index;
}

Variant ProviderRecordset::Value(std::size_t index) const
{
    if (isEndOfFile()) throw RuntimeError(error_number::noCurrentRecord);
    requireField(index);
    return m_client ? m_rows[m_row][index] : cursorValue(index);
}

} // namespace inin
