#include "adapters/qt/grid_model.h"

#include "adapters/qt/qt_text.h"
#include "screen/grid.h"

namespace inin::qt {

int GridModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_rows;
}

int GridModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_grid.ColumnCount();
}

QVariant GridModel::data(const QModelIndex &index, int role) const
{
    // The record may have lost rows that the view still has: it does not notify the view while its redraw is off.
    if (!index.isValid() || index.row() >= m_grid.RowCount()) return {};
    const auto column = static_cast<std::int16_t>(index.column() + 1);
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole: // shows the whole of a long address
        return toQt(m_grid.text(index.row() + 1, column));
    case Qt::TextAlignmentRole:
        return alignment(index.column());
    default:
        return {};
    }
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role == Qt::TextAlignmentRole && orientation == Qt::Horizontal) return alignment(section);
    if (role == Qt::DisplayRole && orientation == Qt::Horizontal)
        return toQt(m_grid.columns()[static_cast<std::size_t>(section)].header);
    return {};
}

/// Numbers and their headers are right-aligned.
int GridModel::alignment(int column) const
{
    const bool isNumber = m_grid.columns()[static_cast<std::size_t>(column)].kind == Grid::CellKind::number;
    return static_cast<int>((isNumber ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
}

void GridModel::readAnew()
{
    beginResetModel();
    m_rows = m_grid.RowCount();
    endResetModel();
}

} // namespace inin::qt
