#pragma once

#include <QAbstractTableModel>

#include <cstddef>
#include <functional>

namespace inin::viewer {

class FindingIndex;
class LedgerDesk;
struct OpenLetters;

/// The letters as rows: number with its tick, insurer, patient, marks, state in the ledger. Texts are made on demand.
class LetterListModel : public QAbstractTableModel {
public:
    enum Column { number, insurer, patient, marks, state, columnCountOfList };
    /// Follows the state of a letter that differs from the compared run; no other addition is longer.
    static constexpr QStringView kChanged = u" 変更";

    using QAbstractTableModel::QAbstractTableModel;

    /// Both must stay valid while they are shown.
    void showLetters(OpenLetters *letters, const FindingIndex *findings);
    /// Its states and changes; it must outlive this.
    void showLedger(const LedgerDesk *ledger);
    [[nodiscard]] const LedgerDesk *ledger() const { return m_ledger; }
    /// Call when the ledger has other states or is compared with another run.
    void ledgerChanged();
    void findingsChanged();
    /// Call after changing ticks elsewhere.
    void ticksChanged();
    /// Called when the user changes a tick in the list.
    std::function<void()> onTicked;
    [[nodiscard]] bool isTicked(std::size_t letter) const;
    /// Whether the check has found anything in the letter.
    [[nodiscard]] bool isFlagged(std::size_t letter) const;
    /// Whether letter `a` precedes `b` when the list is sorted by a column: names by their characters, flagged letters
    /// before the others and in the order of the check's list, equal ones by their numbers.
    [[nodiscard]] bool isBefore(std::size_t a, std::size_t b, int column) const;

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex &index) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;

private:
    [[nodiscard]] QString textAt(std::size_t letter, int column) const;
    [[nodiscard]] QString marksOf(std::size_t letter) const;
    [[nodiscard]] QString explanationOf(std::size_t letter) const;
    [[nodiscard]] QString newsOf(std::size_t letter) const;
    [[nodiscard]] QString tipAt(std::size_t letter, int column) const;
    void columnChanged(int column);

    OpenLetters *m_letters = nullptr;
    const FindingIndex *m_findings = nullptr;
    const LedgerDesk *m_ledger = nullptr;
};

} // namespace inin::viewer
