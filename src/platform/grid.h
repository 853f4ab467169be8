#pragma once

#include "platform/form.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace inin {

/// A table of cells under a header. Rows and columns count from 1; row 0 is the header. It is designed for tens of
/// thousands of rows: a cell has 8 bytes, and all texts share one block. A row or column out of range is error 9.
class Grid : public Control {
public:
    enum class CellKind { number, text };
    struct Column {
        std::string header;
        CellKind kind = CellKind::text;
        std::int16_t width = 10; ///< in characters; 0 hides the column
    };

    Grid(std::string name, std::vector<Column> columns);
    void accept(ControlVisitor &visitor) override { visitor.visit(*this); }

    /// A double click on a row; 0 for the header.
    std::function<void(std::int32_t Row)> onDblClick;

    /// While false, changes of rows and cells do not notify the watchers; setting it to true notifies them once.
    Attribute<bool> ReDraw{*this, true};
    /// The chosen row, 0 for none; a row out of range is error 9. Removing the chosen row resets it to 0.
    Attribute<std::int32_t> ActiveRow{*this, 0};

    [[nodiscard]] std::int32_t RowCount() const { return m_rowCount; }
    /// New rows are blank: 0 in number columns, empty in text columns. A count of 0 frees the texts too.
    void setRowCount(std::int32_t count);
    [[nodiscard]] std::int16_t ColumnCount() const { return static_cast<std::int16_t>(m_columns.size()); }
    [[nodiscard]] const std::vector<Column> &columns() const { return m_columns; }
    void setColumnWidth(std::int16_t column, std::int16_t width);

    void setNumber(std::int32_t row, std::int16_t column, std::int32_t value);
    /// The space of a replaced text stays unused until the rows are cleared.
    void setText(std::int32_t row, std::int16_t column, std::string_view value);
    /// The number of a cell in a number column; 0 in a text column.
    [[nodiscard]] std::int32_t number(std::int32_t row, std::int16_t column) const;
    /// The displayed text of a cell, in a number column the digits.
    [[nodiscard]] std::string text(std::int32_t row, std::int16_t column) const;

    /// Requests that the view scrolls to the row.
    void showRow(std::int32_t row);
    /// The row of the last showRow() since the rows were cleared, 0 for none.
    [[nodiscard]] std::int32_t RowInSight() const { return m_rowInSight; }
    /// Incremented by each change of rows, cells or columns, so that a view knows when to read them again.
    [[nodiscard]] std::uint64_t revision() const { return m_revision; }

private:
    /// A number, or the position and size of a text in the block.
    struct Cell {
        std::uint32_t place = 0;
        std::uint32_t size = 0;
    };
    [[nodiscard]] std::size_t indexOf(std::int32_t row, std::int16_t column) const;
    [[nodiscard]] const Column &columnAt(std::int16_t column) const;
    void changed();

    std::vector<Column> m_columns;
    std::vector<Cell> m_cells;
    std::string m_texts;
    std::int32_t m_rowCount = 0;
    std::int32_t m_rowInSight = 0;
    std::uint64_t m_revision = 0;
};

/// The form's grid, nullptr when it has none.
[[nodiscard]] Grid *gridOf(const Form &form);

} // namespace inin
