#pragma once

#include "viewer/ledger/ledger.h"
#include "viewer/window/window_world.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QTableView>

#include <string>
#include <vector>

namespace inin::viewer::test {

using States = std::vector<std::string>;

/// A viewer window with a ledger in its temporary folder.
struct LedgerWorld : WindowWorld {
    explicit LedgerWorld(const std::vector<Row> &rows) : WindowWorld(rows) { ledgerFile = folder / "台帳.db"; }

    /// Closes the window and opens it again later, with other letters if there are any.
    void openAgain(const std::vector<Row> &rows = {})
    {
        window.reset();
        now = Date(now.days() + 1);
        if (!rows.empty()) writeBytes(folder / "委任状.csv", csvOf(rows));
        openWindow();
    }
    void print(const std::string &numbers)
    {
        window->letters().ticks.setText(numbers);
        window->print(order());
    }
    void click(const char *button) const { find<QPushButton>(button)->click(); }
    void act(const char *action) const { find<QAction>(action)->trigger(); }
    /// The states in the list, by the letters' numbers.
    [[nodiscard]] States states() const
    {
        States states;
        const QAbstractItemModel &model = *find<QTableView>("letterList")->model();
        for (int row = 0; row < model.rowCount(); ++row)
            states.push_back(model.index(row, LetterListModel::state).data().toString().toStdString());
        return states;
    }
    [[nodiscard]] std::string listed() const
    {
        std::string numbers;
        const QAbstractItemModel &model = *find<QTableView>("letterList")->model();
        for (int row = 0; row < model.rowCount(); ++row)
            numbers += (row == 0 ? "" : " ") + model.index(row, 0).data().toString().toStdString();
        return numbers;
    }
    [[nodiscard]] std::string textOf(const char *label) const { return find<QLabel>(label)->text().toStdString(); }
    [[nodiscard]] bool isShown(const char *widget) const { return find<QWidget>(widget)->isVisible(); }
    [[nodiscard]] std::string ticks() const { return window->letters().ticks.text(); }
    /// A second reader of the same ledger.
    [[nodiscard]] Ledger ledger() const { return {ledgerFile, 24, now}; }
};

} // namespace inin::viewer::test
