#pragma once

#include <QTableView>

#include <cstddef>
#include <functional>
#include <optional>

namespace inin::viewer {

class ListedLetters;

/// The list of letters beside the page. Space ticks or unticks the selected letters, Enter moves the focus to the page.
class LetterList : public QTableView {
public:
    /// `listed` must outlive this.
    explicit LetterList(ListedLetters &listed, QWidget *parent = nullptr);

    /// Empty while no letter is listed.
    [[nodiscard]] std::optional<std::size_t> current() const;
    /// Selects a listed letter alone.
    void setCurrent(std::size_t letter);
    /// Shows or hides the column of states.
    void showStates(bool areShown);
    /// Called when the user or the view has sorted the list.
    std::function<void()> onSorted;
    std::function<void(std::size_t letter)> onCurrent;
    std::function<void()> onEnter;

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    /// setCurrent() selects its letter alone, even while a modifier key is pressed.
    [[nodiscard]] QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex &index,
                                                                       const QEvent *event) const override;
    /// Home and End move to the first and the last letter; in a plain table they move within the row.
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;

private:
    [[nodiscard]] int stateWidth() const;
    void fitColumns();
    void toggleSelected();
    void copySelected() const;

    ListedLetters &m_listed;
    bool m_isSelectingAlone = false;
};

} // namespace inin::viewer
