#pragma once

#include <QTableView>

#include <cstddef>
#include <functional>

namespace inin::viewer {

class LetterListModel;

/// The list of letters beside the page. Space ticks or unticks the selected letters, Enter moves the focus to the page.
class LetterList : public QTableView {
public:
    explicit LetterList(LetterListModel &model, QWidget *parent = nullptr);

    [[nodiscard]] std::size_t current() const;
    void setCurrent(std::size_t letter);
    std::function<void(std::size_t letter)> onCurrent;
    std::function<void()> onEnter;

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    /// setCurrent() selects its letter alone, even while a modifier key is pressed.
    [[nodiscard]] QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex &index,
                                                                       const QEvent *event) const override;
    /// Home and End move to the first and the last letter; in a plain table they move within the row.
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;

private:
    void toggleSelected();
    void copySelected() const;

    LetterListModel &m_model;
};

} // namespace inin::viewer
