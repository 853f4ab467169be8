#include "viewer/window/changes_pane.h"

#include "viewer/window/cut_text.h"

#include <QHeaderView>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace inin::viewer {

using namespace Qt::StringLiterals;

namespace {

constexpr int kRows = 3;    ///< shown without scrolling
constexpr int kPadding = 6; ///< pixels

} // namespace

ChangesPane::ChangesPane(QWidget *parent)
    : QWidget(parent), m_heading(new CutLabel(this)), m_table(new QTreeWidget(this))
{
    setObjectName(u"changesPane"_s);
    m_heading->setObjectName(u"changesHeading"_s);
    m_table->setObjectName(u"changesTable"_s);
    m_table->setAccessibleName(u"前回との違い"_s);
    m_table->setRootIsDecorated(false);
    m_table->setWordWrap(true);
    m_table->setAllColumnsShowFocus(true);
    QObject::connect(m_table->header(), &QHeaderView::sectionResized, this, [this] { fitRows(); });
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    m_table->setFixedHeight(m_table->header()->sizeHint().height() + kRows * rowHeight(1) + 2 * m_table->frameWidth());
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_heading);
    layout->addWidget(m_table);
    hide();
}

int ChangesPane::rowHeight(int lines) const
{
    return lines * m_table->fontMetrics().height() + kPadding;
}

int ChangesPane::widthOf(const QString &text) const
{
    return m_table->fontMetrics().horizontalAdvance(text) + 2 * kPadding;
}

/// Gives more lines to a row whose texts are longer than their columns.
void ChangesPane::fitRows()
{
    constexpr int kMostFields = 20; // only the letters that are gone may be more, and their names are short
    for (int i = 0; i < std::min(m_table->topLevelItemCount(), kMostFields); ++i) {
        QTreeWidgetItem *const row = m_table->topLevelItem(i);
        int lines = 1;
        for (int column = 1; column < row->columnCount(); ++column)
            lines = std::max(lines, widthOf(row->text(column)) / std::max(1, m_table->columnWidth(column)) + 1);
        row->setSizeHint(0, {widthOf(row->text(0)), rowHeight(std::min(lines, kRows))});
    }
}

void ChangesPane::showTable(const QString &heading, const QStringList &heads, const QList<QStringList> &rows)
{
    m_heading->setLine(heading);
    m_table->clear();
    m_table->setHeaderLabels(heads);
    // The names of fields and the numbers are short; the other columns share the rest.
    m_table->header()->setSectionResizeMode(QHeaderView::Stretch);
    m_table->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    for (const QStringList &texts : rows) {
        auto *const row = new QTreeWidgetItem(m_table, texts);
        row->setSizeHint(0, {widthOf(texts.first()), rowHeight(1)});
        for (int column = 0; column < static_cast<int>(texts.size()); ++column)
            row->setToolTip(column, texts[column]); // a very long text is cut
    }
    fitRows();
    show();
}

} // namespace inin::viewer
