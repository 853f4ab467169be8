#include "platform/grid.h"

#include "runtime/runtime_error.h"

#include <bit>
#include <limits>
#include <utility>

namespace inin {

Grid::Grid(std::string name, std::vector<Column> columns) : Control(std::move(name)), m_columns(std::move(columns))
{
    ActiveRow.check = [this](std::int32_t row) {
        if (row < 0 || row > m_rowCount) throw RuntimeError(error_number::subscript);
    };
}

void Grid::setRowCount(std::int32_t count)
{
    if (count < 0) throw RuntimeError(error_number::subscript);
    m_cells.resize(static_cast<std::size_t>(count) * m_columns.size());
    m_rowCount = count;
    if (count == 0) {
        // Assigning empty containers frees the memory of a long list; clear() would keep it.
        m_cells = {};
        m_texts = {};
        m_rowInSight = 0;
    }
    if (ActiveRow > count) ActiveRow.assignQuietly(0);
    changed();
}

void Grid::setColumnWidth(std::int16_t column, std::int16_t width)
{
    static_cast<void>(columnAt(column));
    m_columns[static_cast<std::size_t>(column) - 1].width = width;
    changed();
}

void Grid::setNumber(std::int32_t row, std::int16_t column, std::int32_t value)
{
    if (columnAt(column).kind != CellKind::number) return setText(row, column, std::to_string(value));
    m_cells[indexOf(row, column)] = {std::bit_cast<std::uint32_t>(value), 0};
    changed();
}

void Grid::setText(std::int32_t row, std::int16_t column, std::string_view value)
{
    if (columnAt(column).kind != CellKind::text) throw RuntimeError(error_number::typeMismatch);
    Cell &target = m_cells[indexOf(row, column)];
    if (value.size() > std::numeric_limits<std::uint32_t>::max() - m_texts.size())
        throw RuntimeError(error_number::outOfMemory);
    target = {static_cast<std::uint32_t>(m_texts.size()), static_cast<std::uint32_t>(value.size())};
    m_texts.append(value);
    changed();
}

std::int32_t Grid::number(std::int32_t row, std::int16_t column) const
{
    const Cell &held = m_cells[indexOf(row, column)];
    return columnAt(column).kind == CellKind::number ? std::bit_cast<std::int32_t>(held.place) : 0;
}

std::string Grid::text(std::int32_t row, std::int16_t column) const
{
    const Cell &held = m_cells[indexOf(row, column)];
    if (columnAt(column).kind == CellKind::number) return std::to_string(std::bit_cast<std::int32_t>(held.place));
    return m_texts.substr(held.place, held.size);
}

void Grid::showRow(std::int32_t row)
{
    if (row < 1 || row > m_rowCount) throw RuntimeError(error_number::subscript);
    m_rowInSight = row;
    if (ReDraw) notify();
}

const Grid::Column &Grid::columnAt(std::int16_t column) const
{
    if (column < 1 || column > ColumnCount()) throw RuntimeError(error_number::subscript);
    return m_columns[static_cast<std::size_t>(column) - 1];
}

std::size_t Grid::indexOf(std::int32_t row, std::int16_t column) const
{
    static_cast<void>(columnAt(column));
    if (row < 1 || row > m_rowCount) throw RuntimeError(error_number::subscript);
    return static_cast<std::size_t>(row - 1) * m_columns.size() + static_cast<std::size_t>(column) - 1;
}

void Grid::changed()
{
    ++m_revision;
    if (ReDraw) notify();
}

Grid *gridOf(const Form &form)
{
    for (Control *control : form.controls())
        if (auto *grid = dynamic_cast<Grid *>(control)) return grid;
    return nullptr;
}

} // namespace inin
