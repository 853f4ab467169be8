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

/// A grid record on the screen. Rows are chosen whole and one at a time; the order is the statement's, so the header does
/// not sort.
class GridView : public QTableView {
public:
    GridView(Grid &grid, EventEdge &edge, QWidget *parent);
    /// Shows the record's rows, its active row and the row that is to be in sight.
    void refresh();

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
    std::uint64_t m_revision = ~0U; ///< of the record, as it was last read
    std::int32_t m_rowInSight = 0;
    bool m_isRefreshing = false;
};

} // namespace inin::qt
