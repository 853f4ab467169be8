#include "viewer/window/changes_pane.h"

#include "viewer/window/cut_text.h"

#include <QHeaderView>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace inin::viewer {

using namespace Qt::StringLiterals;

ChangesPane::ChangesPane(QWidget *parent)
    : QWidget(parent), m_heading(new CutLabel(this)), m_table(new QTreeWidget(this))
{
    setObjectName(u"changesPane"_s);
    m_heading->setObjectName(u"changesHeading"_s);
    m_table->setObjectName(u"changesTable"_s);
    m_table->setAccessibleName(u"前回との違い"_s);
    m_table->setRootIsDecorated(false);
    m_table->setUniformRowHeights(true);
    m_table->setAllColumnsShowFocus(true);
    m_table->header()->setSectionResizeMode(QHeaderView::Stretch);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    constexpr int kRows = 3;
    m_table->setFixedHeight(m_table->header()->sizeHint().height() + kRows * rowHeight() + 2 * m_table->frameWidth());
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_heading);
    layout->addWidget(m_table);
    hide();
}

int ChangesPane::rowHeight() const
{
    constexpr int kPadding = 6;
    return m_table->fontMetrics().height() + kPadding;
}

void ChangesPane::showTable(const QString &heading, const QStringList &heads, const QList<QStringList> &rows)
{
    m_heading->setLine(heading);
    m_table->clear();
    m_table->setHeaderLabels(heads);
    for (const QStringList &texts : rows) {
        auto *const row = new QTreeWidgetItem(m_table, texts);
        row->setSizeHint(0, {0, rowHeight()});
        for (int column = 0; column < static_cast<int>(texts.size()); ++column)
            row->setToolTip(column, texts[column]); // a long text is cut
    }
    show();
}

} // namespace inin::viewer
