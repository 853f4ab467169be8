#include "adapters/odbc/odbc_cursor.h"

#include "adapters/odbc/mdb_driver.h"
#include "adapters/odbc/odbc_api.h"
#include "adapters/odbc/odbc_session.h"
#include "runtime/runtime_error.h"
#include "runtime/text.h"
#include "runtime/utf8.h"

#include <algorithm>
#include <array>

namespace inin::odbc {

namespace {

/// Memory of one block, and the number of rows above which a larger block is no faster.
constexpr std::size_t kBlockBytes = 1U << 20U;
constexpr std::size_t kMaxRows = 512;
constexpr std::size_t kPieceBytes = 32768;
/// Initial value of the fetched-row count. A driver that never writes the count fetches single rows.
constexpr std::uintptr_t kUntold = UINTPTR_MAX;

static_assert(sizeof(SQLLEN) == sizeof(std::intptr_t) && sizeof(SQLULEN) == sizeof(std::uintptr_t));

SQLLEN *lengthsOf(std::vector<std::intptr_t> &lengths)
{
    return static_cast<SQLLEN *>(static_cast<void *>(lengths.data()));
}

/// Bytes of a buffer that the terminating NUL occupies.
std::size_t endMark(const OdbcColumn &column)
{
    return column.cType == SQL_C_WCHAR ? sizeof(SQLWCHAR) : column.cType == SQL_C_CHAR ? 1 : 0;
}

/// Bytes in a full piece. A driver that stops one unit early, because a surrogate pair would not fit, puts its NUL
/// there.
std::size_t pieceLength(const OdbcColumn &column, const std::byte *piece, std::size_t room)
{
    if (column.cType != SQL_C_WCHAR) return room;
    const bool endsEarly = piece[room - 1] == std::byte{0} && piece[room - 2] == std::byte{0};
    return endsEarly ? room - sizeof(SQLWCHAR) : room;
}

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

RowBlock::RowBlock(const OdbcHandle &statement, const std::vector<OdbcColumn> &columns)
    : m_statement(statement), m_columns(columns)
{
    const auto firstLong = std::ranges::find_if(columns, &OdbcColumn::isLong);
    m_firstLong = static_cast<std::size_t>(firstLong - columns.begin());
    if (firstLong == columns.end()) {
        std::size_t rowBytes = 0;
        for (const OdbcColumn &column : columns) rowBytes += column.width + sizeof(SQLLEN);
        m_capacity = std::clamp<std::size_t>(kBlockBytes / std::max<std::size_t>(rowBytes, 1), 1, kMaxRows);
    }
    SQLHSTMT handle = m_statement.get();
    if (!SQL_SUCCEEDED(SQLSetStmtAttrW(handle, SQL_ATTR_ROW_ARRAY_SIZE, asPointer(m_capacity), 0))) m_capacity = 1;
    m_status.resize(m_capacity);
    SQLSetStmtAttrW(handle, SQL_ATTR_ROWS_FETCHED_PTR, &m_fetched, 0);
    SQLSetStmtAttrW(handle, SQL_ATTR_ROW_STATUS_PTR, m_status.data(), 0);
    m_bound.resize(m_firstLong);
    for (std::size_t column = 0; column < m_firstLong; ++column) bind(column);
    m_pieces.resize(columns.size() - m_firstLong);
}

void RowBlock::bind(std::size_t column)
{
    const OdbcColumn &own = m_columns[column];
    Bound &bound = m_bound[column];
    bound.cells.resize(own.width * m_capacity);
    bound.lengths.resize(m_capacity);
    SQLBindCol(m_statement.get(), static_cast<SQLUSMALLINT>(column + 1), own.cType, bound.cells.data(),
               static_cast<SQLLEN>(own.width), lengthsOf(bound.lengths));
}

RowBlock::Outcome RowBlock::fetch()
{
    m_count = 0;
    m_fetched = kUntold;
    std::ranges::fill(m_status, static_cast<std::uint16_t>(SQL_ROW_NOROW));
    const SQLRETURN result = SQLFetch(m_statement.get());
    if (result == SQL_NO_DATA) return endOfRows();
    if (result != SQL_SUCCESS) m_failure = m_statement.records();
    if (SQL_SUCCEEDED(result) && m_fetched == kUntold) {
        m_fetched = 1;
        m_status[0] = SQL_ROW_SUCCESS;
    }
    const std::size_t reported = SQL_SUCCEEDED(result) ? std::min<std::size_t>(m_fetched, m_capacity) : m_capacity;
    const auto isGood = [](std::uint16_t status) {
        return status == SQL_ROW_SUCCESS || status == SQL_ROW_SUCCESS_WITH_INFO;
    };
    while (m_count < reported && isGood(m_status[m_count])) ++m_count;
    const bool isWhole =
        SQL_SUCCEEDED(result) && m_count == reported && !(result != SQL_SUCCESS && isFailureRecord(m_failure));
    if (!isWhole || (m_count > 0 && !readPieces())) return Outcome::failed;
    return Outcome::rows;
}

/// A failure after the last row must not pass for the end of rows: rows would be missing silently.
RowBlock::Outcome RowBlock::endOfRows()
{
    if (SQLMoreResults(m_statement.get()) != SQL_ERROR) return Outcome::end;
    m_failure = m_statement.records();
    const bool isUnknownCall =
        !m_failure.empty() && (m_failure[0].sqlState == "IM001" || m_failure[0].sqlState == "HYC00");
    return isUnknownCall ? Outcome::end : Outcome::failed;
}

bool RowBlock::readPieces()
{
    for (std::size_t index = 0; index < m_pieces.size(); ++index) {
        if (readPiece(m_firstLong + index, m_pieces[index])) continue;
        m_failure = m_statement.records();
        m_count = 0;
        return false;
    }
    return true;
}

/// A piece may end within a character or a surrogate pair, so join the bytes before decoding.
bool RowBlock::readPiece(std::size_t column, Variant &value)
{
    const OdbcColumn &own = m_columns[column];
    std::vector<std::byte> whole;
    std::array<std::byte, kPieceBytes> piece{};
    const std::size_t room = piece.size() - endMark(own);
    while (true) {
        SQLLEN length = 0;
        const SQLRETURN result = SQLGetData(m_statement.get(), static_cast<SQLUSMALLINT>(column + 1), own.cType,
                                            piece.data(), static_cast<SQLLEN>(piece.size()), &length);
        if (result == SQL_NO_DATA) break;
        if (!SQL_SUCCEEDED(result)) return false;
        if (length == SQL_NULL_DATA) {
            value = Null{};
            return true;
        }
        const bool hasMore = length == SQL_NO_TOTAL || static_cast<std::size_t>(length) > room;
        const std::size_t count = hasMore ? pieceLength(own, piece.data(), room) : static_cast<std::size_t>(length);
        whole.insert(whole.end(), piece.begin(), piece.begin() + static_cast<std::ptrdiff_t>(count));
        if (!hasMore) break;
    }
    value = valueOf(own, whole.data(), whole.size());
    return true;
}

Variant RowBlock::value(std::size_t row, std::size_t column) const
{
    if (column >= m_firstLong) return m_pieces[column - m_firstLong];
    const OdbcColumn &own = m_columns[column];
    const Bound &bound = m_bound[column];
    const std::intptr_t length = bound.lengths[row];
    if (length == SQL_NULL_DATA) return Null{};
    const bool isSized = own.form == ColumnForm::text || own.form == ColumnForm::bytes || own.cType == SQL_C_CHAR;
    if (isSized && (length < 0 || static_cast<std::size_t>(length) > own.width - endMark(own)))
        throw RuntimeError(ado_error::unspecified,
                           "the column " + own.name + " holds more than the driver said that it can hold");
    return valueOf(own, bound.cells.data() + row * own.width, static_cast<std::size_t>(length));
}

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
