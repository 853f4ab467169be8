#pragma once

#include <QTableView>

#include <cstddef>
#include <functional>

namespace inin::viewer {

class LetterListModel;

/// The list of letters beside the page. Space ticks or unticks the selected letters, Enter goes to the page.
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
    /// A letter that is set by setCurrent() is selected alone, whatever keys are held.
    [[nodiscard]] QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex &index,
                                                                       const QEvent *event) const override;
    /// Home and End move to the first and the last letter; those of a table move along the row.
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;

private:
    void toggleSelected();
    void copySelected() const;

    LetterListModel &m_model;
};

} // namespace inin::viewer
