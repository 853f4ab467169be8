#pragma once

#include "adapters/odbc/column.h"
#include "adapters/odbc/diagnostics.h"
#include "adapters/odbc/odbc_handle.h"
#include "runtime/variant.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace inin::odbc {

/// Fetches the rows of a statement in blocks. Columns before the first long one are bound to row arrays. With a long
/// column rows are fetched singly, and its value and those after it are fetched once each, in order and in pieces,
/// because a driver returns them only once.
class RowBlock {
public:
    enum class Outcome : std::uint8_t { rows, end, failed };

    /// Binds the columns; `statement` must outlive the block.
    RowBlock(const OdbcHandle &statement, const std::vector<OdbcColumn> &columns);

    /// Fetches the next block. With `failed` the rows before the failure can still be read; `failure` has the reason.
    Outcome fetch();
    /// The number of readable rows.
    [[nodiscard]] std::size_t count() const { return m_count; }
    [[nodiscard]] const std::vector<DiagnosticRecord> &failure() const { return m_failure; }
    [[nodiscard]] Variant value(std::size_t row, std::size_t column) const;

private:
    struct Bound {
        std::vector<std::byte> cells;
        std::vector<std::intptr_t> lengths; ///< bytes of a value, or ODBC's negative indicator for NULL
    };
    void bind(std::size_t column);
    Outcome endOfRows();
    bool readPieces();
    bool readPiece(std::size_t column, Variant &value);

    const OdbcHandle &m_statement;
    const std::vector<OdbcColumn> &m_columns;
    std::size_t m_firstLong = 0; ///< the number of columns if none is long
    std::size_t m_capacity = 1;
    std::vector<Bound> m_bound;
    std::vector<Variant> m_pieces; ///< values of the current row from the first long column on
    std::uintptr_t m_fetched = 0;
    std::vector<std::uint16_t> m_status;
    std::size_t m_count = 0;
    std::vector<DiagnosticRecord> m_failure;
};

class OdbcSession;

/// The rows of one SELECT, forward only. They stream from the server until another statement needs the connection; then
/// the remaining rows are read into memory, because a server has one open result per connection.
class OdbcCursor {
public:
    /// Takes an executed statement and reads its first rows.
    OdbcCursor(OdbcSession &session, std::unique_ptr<OdbcHandle> statement);

    [[nodiscard]] bool atEnd() const { return m_atEnd; }
    /// Moves to the next row. After a failure there is no current row.
    void next();
    [[nodiscard]] Variant value(std::size_t column) const;

    [[nodiscard]] std::size_t fieldCount() const { return m_columns.size(); }
    [[nodiscard]] std::string fieldName(std::size_t index) const { return m_columns[index].name; }
    [[nodiscard]] std::int32_t declaredType(std::size_t index) const { return m_columns[index].adoType; }
    /// fieldCount() if there is none. Called for each value of each row, so results are cached by name.
    [[nodiscard]] std::size_t fieldIndex(std::string_view name) const;

    /// Reads all remaining rows into memory and frees the statement. A failure is raised when the cursor reaches its
    /// row.
    void keepRest();
    /// Frees the statement; nothing can be read afterwards.
    void close();

private:
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>{}(text); }
    };
    void describe();
    void fetch();
    void arrive();
    [[nodiscard]] std::vector<Variant> currentRow() const;

    OdbcSession &m_session;
    std::unique_ptr<OdbcHandle> m_statement;
    std::vector<OdbcColumn> m_columns;
    std::unique_ptr<RowBlock> m_block;
    std::size_t m_row = 0; ///< within the block or the kept rows
    bool m_isKept = false;
    std::vector<std::vector<Variant>> m_kept;
    bool m_hasFailed = false;
    std::vector<DiagnosticRecord> m_failure;
    bool m_atEnd = false;
    mutable std::unordered_map<std::string, std::size_t, Hash, std::equal_to<>> m_indexes;
};

} // namespace inin::odbc
