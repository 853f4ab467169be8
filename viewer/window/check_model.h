#pragma once

#include "viewer/check/cause.h"

#include <QAbstractItemModel>

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace inin::viewer {

class FindingIndex;
struct OpenLetters;

/// The check's findings as a tree: a branch for each cause with its remedy, and a leaf for each letter. The first branches
/// are the notices about the files and the notes about the run, the last one the causes that are switched off. A cause has a
/// check box that switches it on and off.
class CheckModel : public QAbstractItemModel {
public:
    using QAbstractItemModel::QAbstractItemModel;

    /// Letters and findings must stay valid while they are shown.
    void show(const OpenLetters *letters, const FindingIndex *findings, const CauseSet &switchedOff);
    /// Called when the user switches a cause on or off; the model shows the change with the next show().
    std::function<void(Cause cause, bool isOn)> onSwitched;
    /// The letter of a leaf.
    [[nodiscard]] std::optional<std::size_t> letterAt(const QModelIndex &index) const;

    [[nodiscard]] QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    [[nodiscard]] QModelIndex parent(const QModelIndex &index) const override;
    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex &index) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    enum class Kind { notices, runNotes, findings, switchedOff };
    /// The rows from `begin` to `end` of a kind; the findings of one cause.
    struct Branch {
        Kind kind = Kind::findings;
        std::size_t begin = 0, end = 0;
        std::size_t letters = 0;
    };
    /// The cause of a row with a check box.
    [[nodiscard]] std::optional<Cause> causeAt(const QModelIndex &index) const;
    [[nodiscard]] QString branchText(const Branch &branch, int column) const;
    [[nodiscard]] QString leafText(const Branch &branch, std::size_t row, int column) const;

    const OpenLetters *m_letters = nullptr;
    const FindingIndex *m_findings = nullptr;
    std::vector<Cause> m_switchedOff;
    std::vector<Branch> m_branches;
};

} // namespace inin::viewer
