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

void CheckModel::show(const OpenLetters *letters, const FindingIndex *findings, const CauseSet &switchedOff)
{
    beginResetModel();
    m_letters = letters;
    m_findings = findings;
    m_switchedOff.clear();
    for (std::size_t i = 0; i < kCauses; ++i)
        if (switchedOff.test(i)) m_switchedOff.push_back(static_cast<Cause>(i));
    m_branches.clear();
    const auto add = [&](Kind kind, std::size_t rows) {
        if (rows > 0) m_branches.push_back({kind, 0, rows, 0});
    };
    add(Kind::notices, letters->notices.size());
    add(Kind::runNotes, findings->runNotes().size());
    const std::vector<Finding> &all = findings->all();
    for (std::size_t begin = 0; begin < all.size();) {
        std::size_t end = begin;
        while (end < all.size() && all[end].cause == all[begin].cause) ++end;
        const auto at = [&](std::size_t i) { return all.begin() + static_cast<std::ptrdiff_t>(i); };
        m_branches.push_back({Kind::findings, begin, end, lettersIn({at(begin), at(end)})});
        begin = end;
    }
    add(Kind::switchedOff, m_switchedOff.size());
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
    if (branch.kind != Kind::findings) return std::nullopt;
    return m_findings->all()[branch.begin + static_cast<std::size_t>(index.row())].letter;
}

std::optional<Cause> CheckModel::causeAt(const QModelIndex &index) const
{
    if (!index.isValid() || index.column() != 0) return std::nullopt;
    const auto row = static_cast<std::size_t>(index.row());
    if (index.internalId() == 0) {
        const Branch &branch = m_branches[row];
        if (branch.kind != Kind::findings) return std::nullopt;
        return m_findings->all()[branch.begin].cause;
    }
    const Kind kind = m_branches[index.internalId() - 1].kind;
    if (kind == Kind::runNotes) return m_findings->runNotes()[row].cause;
    if (kind == Kind::switchedOff) return m_switchedOff[row];
    return std::nullopt;
}

QString CheckModel::branchText(const Branch &branch, int column) const
{
    switch (branch.kind) {
    case Kind::notices:
        return column == 0 ? u"お知らせ（%1件）"_s.arg(branch.end)
                           : u"コマンドファイル、帳票、CSV、フォントを読んだときのお知らせです。"_s;
    case Kind::runNotes:
        return column == 0 ? u"全体の注意（%1件）"_s.arg(branch.end)
                           : u"ほとんどの委任状にあてはまるため、一通ずつの注意にはしていません。"_s;
    case Kind::switchedOff:
        return column == 0 ? u"行わない点検（%1種類）"_s.arg(branch.end) : u"チェックを付けると、また点検します。"_s;
    case Kind::findings:
        break;
    }
    const CauseText &cause = textOf(m_findings->all()[branch.begin].cause);
    return column == 0 ? u"%1（%2通）"_s.arg(qtText(cause.heading)).arg(branch.letters) : qtText(cause.remedy);
}

QString CheckModel::leafText(const Branch &branch, std::size_t row, int column) const
{
    switch (branch.kind) {
    case Kind::notices:
        return column == 0 ? qtText(m_letters->notices[row]) : QString();
    case Kind::runNotes: {
        const RunNote &note = m_findings->runNotes()[row];
        const QString remedy = qtText(textOf(note.cause).remedy);
        if (column == 0) return qtText(runNoteText(note));
        return note.detail.empty() ? remedy : u"%1　%2"_s.arg(remedy, qtText(note.detail));
    }
    case Kind::switchedOff:
        return column == 0 ? qtText(textOf(m_switchedOff[row]).heading) : QString();
    case Kind::findings:
        break;
    }
    const Finding &finding = m_findings->all()[branch.begin + row];
    return qtText(column == 0 ? m_letters->names.titleOf(finding.letter) : finding.detail);
}

Qt::ItemFlags CheckModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags flags = QAbstractItemModel::flags(index);
    return causeAt(index) ? flags | Qt::ItemIsUserCheckable : flags;
}

bool CheckModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    const std::optional<Cause> cause = causeAt(index);
    if (role != Qt::CheckStateRole || !cause) return false;
    if (onSwitched) onSwitched(*cause, value.toInt() == Qt::Checked);
    return true;
}

QVariant CheckModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid()) return {};
    const bool isBranch = index.internalId() == 0;
    const auto row = static_cast<std::size_t>(index.row());
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole)
        return isBranch ? branchText(m_branches[row], index.column())
                        : leafText(m_branches[index.internalId() - 1], row, index.column());
    if (role == Qt::CheckStateRole)
        if (const std::optional<Cause> cause = causeAt(index))
            return std::ranges::find(m_switchedOff, *cause) == m_switchedOff.end() ? Qt::Checked : Qt::Unchecked;
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
    return section == 0 ? u"注意"_s : u"対処・内容"_s;
}

} // namespace inin::viewer
