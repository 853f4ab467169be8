#include "adapters/qt/grid_view.h"

#include "adapters/qt/grid_model.h"
#include "screen/grid.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>

namespace inin::qt {

namespace {
constexpr int kCellMargin = 12;
constexpr int kRowMargin = 8;
} // namespace

GridView::GridView(Grid &grid, EventEdge &edge, QWidget *parent)
    : QTableView(parent), m_grid(grid), m_edge(edge), m_model(new GridModel(grid, this))
{
    setModel(m_model);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setAlternatingRowColors(true);
    setTabKeyNavigation(false);
    setWordWrap(false);
    verticalHeader()->hide();
    // A fixed height for all rows: measuring each of 30,000 rows would be too slow.
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kRowMargin);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setStretchLastSection(true);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    connect(this, &QTableView::doubleClicked, this,
            [this](const QModelIndex &index) { raiseDoubleClick(index.row() + 1); });
    connect(horizontalHeader(), &QHeaderView::sectionDoubleClicked, this, [this] { raiseDoubleClick(0); });
}

void GridView::raiseDoubleClick(std::int32_t row)
{
    if (m_grid.onDblClick) m_edge.run([&] { m_grid.onDblClick(row); });
}

void GridView::refresh()
{
    if (!m_grid.ReDraw) return;
    m_isRefreshing = true;
    if (m_revision != m_grid.revision()) {
        m_revision = m_grid.revision();
        m_model->readAnew();
        showColumns();
        m_rowInSight = 0;
    }
    const int active = m_grid.ActiveRow;
    if (active == 0)
        setCurrentIndex({});
    else if (currentIndex().row() != active - 1)
        selectRow(active - 1);
    if (m_grid.RowInSight() != m_rowInSight) {
        m_rowInSight = m_grid.RowInSight();
        if (m_rowInSight > 0) scrollTo(m_model->index(m_rowInSight - 1, 1), QAbstractItemView::PositionAtCenter);
    }
    m_isRefreshing = false;
}

void GridView::enterByKey()
{
    setFocus(Qt::ShortcutFocusReason);
    if (!currentIndex().isValid() && m_model->rowCount() > 0) selectRow(0);
}

void GridView::showColumns()
{
    const int letter = fontMetrics().horizontalAdvance(QLatin1Char('0'));
    for (int column = 0; column < m_grid.ColumnCount(); ++column) {
        const int width = m_grid.columns()[static_cast<std::size_t>(column)].width;
        setColumnHidden(column, width == 0);
        if (width > 0) setColumnWidth(column, width * letter + kCellMargin);
    }
}

void GridView::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    QTableView::currentChanged(current, previous);
    if (m_isRefreshing || !current.isValid()) return;
    m_edge.run([&] { m_grid.ActiveRow = current.row() + 1; });
}

/// While its redraw is off, the record may have lost rows that are still on the screen, for example while a box reports
/// that none were found. Their area is painted like the empty grid, not as rows without text.
void GridView::paintEvent(QPaintEvent *event)
{
    if (m_grid.RowCount() > 0 || m_model->rowCount() == 0) QTableView::paintEvent(event);
}

/// Copies the selected row as displayed, for a spreadsheet or a letter: its columns separated by tabs.
void GridView::copyRow() const
{
    if (!currentIndex().isValid()) return;
    QStringList texts;
    for (int column = 0; column < m_model->columnCount(); ++column)
        if (!isColumnHidden(column)) texts << currentIndex().siblingAtColumn(column).data().toString();
    QGuiApplication::clipboard()->setText(texts.join(QLatin1Char('\t')));
}

/// Home and End move between rows: a selected row has no cell cursor to move.
void GridView::keyPressEvent(QKeyEvent *event)
{
    if (event->matches(QKeySequence::Copy)) return copyRow();
    const int last = m_model->rowCount() - 1;
    if (last >= 0 && (event->key() == Qt::Key_Home || event->key() == Qt::Key_End))
        return selectRow(event->key() == Qt::Key_Home ? 0 : last);
    QTableView::keyPressEvent(event);
}

} // namespace inin::qt
