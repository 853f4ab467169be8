#pragma once

#include <QSortFilterProxyModel>

#include <cstddef>
#include <optional>
#include <vector>

namespace inin::viewer {

class LetterListModel;

/// Which letters the list shows.
enum class ListFilter { all, flagged, ticked, found, added, changed, printed, unprinted, sent, onPaper, returned };
inline constexpr int kFiltersWithoutLedger = 4; ///< the first ones; the others need the ledger

/// The letters that the list shows, in its order. Both are for viewing only: letters are printed by their ticks, in the
/// order of their numbers. Changes of the filter, the ticks and the findings take effect with refresh(), so that a letter
/// that is unticked by mistake stays where it is.
class ListedLetters : public QSortFilterProxyModel {
public:
    /// `model` must outlive this.
    explicit ListedLetters(LetterListModel &model);

    void setFilter(ListFilter filter) { m_filter = filter; }
    [[nodiscard]] ListFilter filter() const { return m_filter; }
    /// For each letter whether the search has found it, for ListFilter::found; empty without a search, which lists all.
    void setFound(std::vector<bool> found) { m_found = std::move(found); }
    /// Filters and sorts again.
    void refresh();

    [[nodiscard]] bool isNumberOrder() const;
    [[nodiscard]] std::vector<std::size_t> letters() const;
    [[nodiscard]] std::optional<std::size_t> letterAt(const QModelIndex &index) const;
    /// Invalid for a letter that is not listed.
    [[nodiscard]] QModelIndex indexOf(std::size_t letter) const;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

protected:
    [[nodiscard]] bool filterAcceptsRow(int row, const QModelIndex &parent) const override;
    [[nodiscard]] bool lessThan(const QModelIndex &left, const QModelIndex &right) const override;

private:
    LetterListModel &m_model;
    ListFilter m_filter = ListFilter::all;
    std::vector<bool> m_found;
};

} // namespace inin::viewer
