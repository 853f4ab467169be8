#pragma once

#include "screen/controls.h"

#include <QListWidget>

#include <functional>

namespace inin::qt {

/// The widget of a list that shows all its items under one another.
class OpenList : public QListWidget {
public:
    explicit OpenList(QWidget *parent);

    /// Shows the record's items and its choice; raises nothing.
    void refresh(const ListBox &list);
    /// Gives an item a look beyond its text; the view sets it, and what is there already is dressed at once.
    void setDress(const ListBox &list,
                  std::function<void(QListWidgetItem &item, const ListBox &list, int index)> dress);

private:
    std::function<void(QListWidgetItem &item, const ListBox &list, int index)> m_dress;
};

} // namespace inin::qt
