#pragma once

#include <QAbstractItemModel>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace inin::viewer {

class FindingIndex;
struct OpenLetters;

/// The check's findings as a tree: a branch for each cause with its remedy, and a leaf for each letter. The notices
/// about all letters are the first branch.
class CheckModel : public QAbstractItemModel {
public:
    using QAbstractItemModel::QAbstractItemModel;

    /// Both must stay valid while they are shown.
    void show(const OpenLetters *letters, const FindingIndex *findings);
    /// The letter of a leaf.
    [[nodiscard]] std::optional<std::size_t> letterAt(const QModelIndex &index) const;

    [[nodiscard]] QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    [[nodiscard]] QModelIndex parent(const QModelIndex &index) const override;
    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    /// The findings from `begin` to `end`, or the notices.
    struct Branch {
        bool isNotices = false;
        std::size_t begin = 0, end = 0;
        std::size_t letters = 0;
    };
    [[nodiscard]] QString branchText(const Branch &branch, int column) const;
    [[nodiscard]] QString leafText(const Branch &branch, std::size_t row, int column) const;

    const OpenLetters *m_letters = nullptr;
    const FindingIndex *m_findings = nullptr;
    std::vector<Branch> m_branches;
};

} // namespace inin::viewer
