#include "adapters/qt/open_list.h"

#include "adapters/qt/qt_text.h"

#include <QSignalBlocker>

#include <utility>

namespace inin::qt {

OpenList::OpenList(QWidget *parent) : QListWidget(parent)
{
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setUniformItemSizes(true); // a folder may contain thousands
}

void OpenList::refresh(const ListBox &list)
{
    const QSignalBlocker quiet(this);
    // The items of a list are only appended to, or cleared and filled again.
    if (count() > list.ListCount()) clear();
    for (int index = count(); index < list.ListCount(); ++index) {
        addItem(toQt(list.items()[static_cast<std::size_t>(index)].text));
        item(index)->setToolTip(item(index)->text()); // shows the whole of a long name
        if (m_dress) m_dress(*item(index), list, index);
    }
    if (currentRow() == list.ListIndex) return;
    setCurrentRow(list.ListIndex);
    if (QListWidgetItem *chosen = currentItem()) scrollToItem(chosen);
}

void OpenList::setDress(const ListBox &list, std::function<void(QListWidgetItem &, const ListBox &, int)> dress)
{
    m_dress = std::move(dress);
    for (int index = 0; index < count(); ++index) m_dress(*item(index), list, index);
}

} // namespace inin::qt
