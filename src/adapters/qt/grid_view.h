#pragma once

#include "adapters/qt/event_edge.h"

#include <QTableView>

#include <cstdint>

namespace inin {
class Grid;
}

namespace inin::qt {
}

namespace inin::qt {

class GridModel;

/// A grid record on the screen. Whole rows are selected, one at a time. The order is that of the SQL statement, so the
/// header does not sort.
class GridView : public QTableView {
public:
    GridView(Grid &grid, EventEdge &edge, QWidget *parent);
    /// Shows the record's rows and its active row, and scrolls to the row that must be visible.
    void refresh();
    /// Moves the focus here; selects the first row if none is selected.
    void enterByKey();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;

private:
    void showColumns();
    void copyRow() const;
    void raiseDoubleClick(std::int32_t row);

    Grid &m_grid;
    EventEdge &m_edge;
    GridModel *m_model;             ///< owned by the view
    std::uint64_t m_revision = ~0U; ///< the record's revision at the last read
    std::int32_t m_rowInSight = 0;
    bool m_isRefreshing = false;
};

} // namespace inin::qt
