#pragma once

#include <QAbstractTableModel>

namespace inin {
class Grid;
}

namespace inin::qt {
}

namespace inin::qt {

/// A grid record as an item model. Nothing is copied: each cell is read when it is painted.
class GridModel : public QAbstractTableModel {
public:
    GridModel(const Grid &grid, QObject *parent) : QAbstractTableModel(parent), m_grid(grid) {}

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    /// Resets the model after the record's rows, cells or columns have changed.
    void readAnew();

private:
    [[nodiscard]] int alignment(int column) const;

    const Grid &m_grid;
    int m_rows = 0; ///< the number of rows reported to the view
};

} // namespace inin::qt
