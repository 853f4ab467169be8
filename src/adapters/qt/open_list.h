#pragma once

#include "screen/controls.h"

#include <QListWidget>

#include <functional>

namespace inin::qt {

/// The widget of a list that shows all its items one below the other.
class OpenList : public QListWidget {
public:
    explicit OpenList(QWidget *parent);

    /// Shows the record's items and its selection without raising events.
    void refresh(const ListBox &list);
    /// Sets the formatting of items beyond their text. A view sets it; existing items are formatted at once.
    void setDress(const ListBox &list,
                  std::function<void(QListWidgetItem &item, const ListBox &list, int index)> dress);

private:
    std::function<void(QListWidgetItem &item, const ListBox &list, int index)> m_dress;
};

} // namespace inin::qt
