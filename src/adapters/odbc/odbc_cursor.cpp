#include "adapters/odbc/odbc_cursor.h"

#include "adapters/odbc/mdb_driver.h"
#include "adapters/odbc/odbc_api.h"
#include "adapters/odbc/odbc_session.h"
#include "runtime/text.h"
#include "runtime/utf8.h"

#include <algorithm>
#include <array>

namespace inin::odbc {

namespace {

std::string typeName(SQLHSTMT statement, SQLUSMALLINT column)
{
    std::array<SQLWCHAR, 128> name{};
    SQLSMALLINT bytes = 0;
    const SQLRETURN result = SQLColAttributeW(statement, column, SQL_DESC_TYPE_NAME, name.data(),
                                              static_cast<SQLSMALLINT>(sizeof name), &bytes, nullptr);
    if (!SQL_SUCCEEDED(result)) return {};
    const std::size_t count =
        std::min<std::size_t>(static_cast<std::size_t>(bytes) / sizeof(SQLWCHAR), name.size() - 1);
    return utf8FromUtf16(units(name.data(), count));
}

} // namespace

OdbcCursor::OdbcCursor(OdbcSession &session, std::unique_ptr<OdbcHandle> statement)
    : m_session(session), m_statement(std::move(statement))
{
    describe();
    m_block = std::make_unique<RowBlock>(*m_statement, m_columns);
    fetch();
    arrive();
}

void OdbcCursor::describe()
{
    SQLSMALLINT count = 0;
    if (!SQL_SUCCEEDED(SQLNumResultCols(m_statement->get(), &count))) m_session.fail(m_statement->records());
    for (SQLSMALLINT index = 1; index <= count; ++index) {
        const auto column = static_cast<SQLUSMALLINT>(index);
        std::array<SQLWCHAR, 512> name{};
        SQLSMALLINT length = 0;
        SQLSMALLINT type = 0;
        SQLULEN size = 0;
        SQLSMALLINT digits = 0;
        const SQLRETURN result =
            SQLDescribeColW(m_statement->get(), column, name.data(), static_cast<SQLSMALLINT>(name.size()), &length,
                            &type, &size, &digits, nullptr);
        if (!SQL_SUCCEEDED(result)) m_session.fail(m_statement->records());
        const std::size_t shown = std::min<std::size_t>(static_cast<std::size_t>(length), name.size() - 1);
        const bool mayBeMoney = (type == SQL_DECIMAL || type == SQL_NUMERIC) && digits == 4;
        OdbcColumn described = describeColumn(utf8FromUtf16(units(name.data(), shown)), type, size, digits,
                                              mayBeMoney ? typeName(m_statement->get(), column) : std::string());
        m_columns.push_back(m_session.isMdb() ? mdbColumn(std::move(described)) : std::move(described));
    }
}

/// Fetches the next block. It may contain good rows before a failure.
void OdbcCursor::fetch()
{
    m_row = 0;
    const RowBlock::Outcome outcome = m_block->fetch();
    m_hasFailed = outcome == RowBlock::Outcome::failed;
    if (m_hasFailed) m_failure = m_block->failure();
    m_atEnd = outcome == RowBlock::Outcome::end;
}

/// Raises a pending failure when the cursor reaches its row.
void OdbcCursor::arrive()
{
    const std::size_t count = m_isKept ? m_kept.size() : m_block->count();
    if (m_atEnd || m_row < count) return;
    m_atEnd = true;
    if (!m_hasFailed) return;
    m_hasFailed = false;
    m_session.fail(m_failure);
}

void OdbcCursor::next()
{
    ++m_row;
    if (!m_isKept && m_row >= m_block->count() && !m_hasFailed) fetch();
    arrive();
}

Variant OdbcCursor::value(std::size_t column) const
{
    return m_isKept ? m_kept[m_row][column] : m_block->value(m_row, column);
}

std::size_t OdbcCursor::fieldIndex(std::string_view name) const
{
    if (const auto found = m_indexes.find(name); found != m_indexes.end()) return found->second;
    std::size_t index = 0;
    while (index < m_columns.size() && !equalsIgnoringAsciiCase(m_columns[index].name, name)) ++index;
    if (index < m_columns.size()) m_indexes.emplace(name, index);
    return index;
}

std::vector<Variant> OdbcCursor::currentRow() const
{
    std::vector<Variant> row;
    row.reserve(m_columns.size());
    for (std::size_t column = 0; column < m_columns.size(); ++column) row.push_back(m_block->value(m_row, column));
    return row;
}

void OdbcCursor::keepRest()
{
    if (m_isKept || !m_statement) return;
    while (!m_atEnd) {
        for (; m_row < m_block->count(); ++m_row) m_kept.push_back(currentRow());
        if (m_hasFailed) break;
        fetch();
    }
    m_isKept = true;
    m_row = 0;
    m_atEnd = m_kept.empty() && !m_hasFailed;
    m_block.reset();
    m_statement.reset();
}

void OdbcCursor::close()
{
    m_atEnd = true;
    m_kept.clear();
    m_block.reset();
    m_statement.reset();
}

} // namespace inin::odbc
