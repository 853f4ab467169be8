#pragma once

#include <QTableView>

#include <cstddef>
#include <functional>

namespace inin::viewer {

class LetterListModel;

/// The list of letters beside the page. Blank sets or takes the ticks of the selected letters, Enter goes to the page.
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

private:
    void toggleSelected();
    void copySelected() const;

    LetterListModel &m_model;
};

} // namespace inin::viewer
