#pragma once

#include "adapters/odbc/column.h"
#include "adapters/odbc/odbc_handle.h"
#include "runtime/variant.h"

#include <cstddef>
#include <cstdint>
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

} // namespace inin::odbc
