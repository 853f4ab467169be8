#pragma once

#include "viewer/ledger/ledger_records.h"

#include <QAbstractTableModel>
#include <QString>

#include <functional>
#include <string>
#include <vector>

namespace inin::viewer {

/// The rows that are shown of the printed letters.
struct ReturnsFilter {
    QString insurer; ///< empty for all
    QString words;   ///< part of a name; width, kana and variants do not matter
    bool onlyMissing = true;
};

/// The printed letters of a period, each with a tick when it has come back.
class ReturnsModel : public QAbstractTableModel {
public:
    enum Column { returned, insurer, district, patient, address, state, columns };

    void show(std::vector<PrintedLetter> letters);
    /// A letter that is ticked stays in the list until the filter is set again.
    void setFilter(const ReturnsFilter &filter);
    /// Updates shown letters after they were ticked in the ledger.
    void setStates(const std::vector<int> &rows, const std::vector<LetterState> &states);

    [[nodiscard]] const std::vector<PrintedLetter> &letters() const { return m_letters; }
    [[nodiscard]] const PrintedLetter &letterAt(int row) const;
    [[nodiscard]] std::vector<PrintedLetter> shown() const;
    [[nodiscard]] std::size_t missing() const;

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex &index) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;

    /// Called for a tick in the list; false leaves it unchanged.
    std::function<bool(const std::vector<int> &rows, bool isReturned)> onTick;

private:
    [[nodiscard]] bool isShown(const PrintedLetter &letter, const std::u32string &words) const;

    std::vector<PrintedLetter> m_letters;
    std::vector<std::size_t> m_shown;
    ReturnsFilter m_filter;
};

} // namespace inin::viewer
