#include "viewer/window/check_model.h"

#include "viewer/check/check_text.h"
#include "viewer/window/finding_index.h"
#include "viewer/window/open_letters.h"
#include "viewer/window/qt_text.h"

#include <QFont>
#include <QFontMetrics>
#include <QSize>

#include <algorithm>

namespace inin::viewer {

using namespace Qt::StringLiterals;

namespace {

constexpr int kRowRoom = 6;

} // namespace

void CheckModel::show(const OpenLetters *letters, const FindingIndex *findings)
{
    beginResetModel();
    m_letters = letters;
    m_findings = findings;
    m_branches.clear();
    const std::size_t notices = letters->notices.size();
    if (notices > 0) m_branches.push_back({true, 0, notices, 0});
    const std::vector<Finding> &all = findings->all();
    for (std::size_t begin = 0; begin < all.size();) {
        std::size_t end = begin;
        while (end < all.size() && all[end].cause == all[begin].cause) ++end;
        const auto at = [&](std::size_t i) { return all.begin() + static_cast<std::ptrdiff_t>(i); };
        m_branches.push_back({false, begin, end, lettersIn({at(begin), at(end)})});
        begin = end;
    }
    endResetModel();
}

// A branch has the id 0; a leaf has the number of its branch, counted from 1.

QModelIndex CheckModel::index(int row, int column, const QModelIndex &parent) const
{
    if (!hasIndex(row, column, parent)) return {};
    return createIndex(row, column, parent.isValid() ? static_cast<quintptr>(parent.row()) + 1 : 0);
}

QModelIndex CheckModel::parent(const QModelIndex &index) const
{
    if (!index.isValid() || index.internalId() == 0) return {};
    return createIndex(static_cast<int>(index.internalId()) - 1, 0, quintptr{0});
}

int CheckModel::rowCount(const QModelIndex &parent) const
{
    if (!parent.isValid()) return static_cast<int>(m_branches.size());
    if (parent.internalId() != 0 || parent.column() != 0) return 0;
    const Branch &branch = m_branches[static_cast<std::size_t>(parent.row())];
    return static_cast<int>(branch.end - branch.begin);
}

int CheckModel::columnCount(const QModelIndex & /*parent*/) const
{
    return 2;
}

std::optional<std::size_t> CheckModel::letterAt(const QModelIndex &index) const
{
    if (!index.isValid() || index.internalId() == 0) return std::nullopt;
    const Branch &branch = m_branches[index.internalId() - 1];
    if (branch.isNotices) return std::nullopt;
    return m_findings->all()[branch.begin + static_cast<std::size_t>(index.row())].letter;
}

QString CheckModel::branchText(const Branch &branch, int column) const
{
    if (branch.isNotices)
        return column == 0 ? u"お知らせ（%1件）"_s.arg(branch.end - branch.begin)
                           : u"コマンドファイル、帳票、CSV、フォントを読んだときのお知らせです。"_s;
    const CauseText &cause = textOf(m_findings->all()[branch.begin].cause);
    return column == 0 ? u"%1（%2通）"_s.arg(qtText(cause.heading)).arg(branch.letters) : qtText(cause.remedy);
}

QString CheckModel::leafText(const Branch &branch, std::size_t row, int column) const
{
    if (branch.isNotices) return column == 0 ? qtText(m_letters->notices[row]) : QString();
    const Finding &finding = m_findings->all()[branch.begin + row];
    return qtText(column == 0 ? m_letters->names.titleOf(finding.letter) : finding.detail);
}

QVariant CheckModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid()) return {};
    const bool isBranch = index.internalId() == 0;
    const auto row = static_cast<std::size_t>(index.row());
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole)
        return isBranch ? branchText(m_branches[row], index.column())
                        : leafText(m_branches[index.internalId() - 1], row, index.column());
    // Leave space between rows, so that the marks of Japanese characters do not touch.
    if (role == Qt::SizeHintRole) return QSize(0, QFontMetrics(QFont()).height() + kRowRoom);
    if (role == Qt::FontRole && isBranch && index.column() == 0) {
        QFont font;
        font.setBold(true);
        return font;
    }
    return {};
}

QVariant CheckModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    return section == 0 ? u"注意"_s : u"直すところ・内容"_s;
}

} // namespace inin::viewer
