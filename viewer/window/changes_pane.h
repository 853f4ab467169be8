#pragma once

#include <QStringList>
#include <QWidget>

class QTreeWidget;

namespace inin::viewer {

class CutLabel;

/// A table under the list: what has changed in the shown letter since the run that it is compared with, or the letters of
/// that run that are gone.
class ChangesPane : public QWidget {
public:
    explicit ChangesPane(QWidget *parent = nullptr);

    /// Each row has one text for each head. The table keeps its height without rows, so that the list above does not move.
    void showTable(const QString &heading, const QStringList &heads, const QList<QStringList> &rows);

private:
    [[nodiscard]] int rowHeight(int lines) const;
    [[nodiscard]] int widthOf(const QString &text) const;
    void fitRows();

    CutLabel *m_heading;
    QTreeWidget *m_table;
};

} // namespace inin::viewer
