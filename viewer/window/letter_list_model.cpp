#include "viewer/window/letter_list_model.h"

#include "viewer/window/finding_index.h"
#include "viewer/window/ledger_lines.h"
#include "viewer/window/open_letters.h"
#include "viewer/window/qt_text.h"

#include <QStringList>

namespace inin::viewer {

using namespace Qt::StringLiterals;

namespace {

constexpr const char *kHeads[] = {"番号", "保険者", "利用者", "注意", "状態"};

} // namespace

void LetterListModel::showLetters(OpenLetters *letters, const FindingIndex *findings)
{
    beginResetModel();
    m_letters = letters;
    m_findings = findings;
    endResetModel();
}

void LetterListModel::columnChanged(int column)
{
    if (rowCount() > 0) emit dataChanged(index(0, column), index(rowCount() - 1, column));
}

void LetterListModel::findingsChanged()
{
    columnChanged(marks);
}

void LetterListModel::showLedger(const LedgerDesk *ledger)
{
    m_ledger = ledger;
    ledgerChanged();
}

void LetterListModel::ledgerChanged()
{
    columnChanged(state);
}

void LetterListModel::ticksChanged()
{
    columnChanged(number);
}

int LetterListModel::rowCount(const QModelIndex &parent) const
{
    return m_letters == nullptr || parent.isValid() ? 0 : static_cast<int>(m_letters->set.size());
}

int LetterListModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : columnCountOfList;
}

bool LetterListModel::isTicked(std::size_t letter) const
{
    return m_letters->ticks.isTicked(letter);
}

bool LetterListModel::isFlagged(std::size_t letter) const
{
    return !m_findings->of(letter).empty();
}

bool LetterListModel::isBefore(std::size_t a, std::size_t b, int column) const
{
    const auto isLess = [a, b](const auto &left, const auto &right) { return left != right ? left < right : a < b; };
    const auto firstCause = [this](std::size_t letter) {
        const auto findings = m_findings->of(letter);
        return findings.empty() ? kCauses : static_cast<std::size_t>(findings.front()->cause);
    };
    switch (column) {
    case insurer:
        return isLess(m_letters->names.insurer(a), m_letters->names.insurer(b));
    case patient:
        return isLess(m_letters->names.patient(a), m_letters->names.patient(b));
    case marks:
        return isLess(firstCause(a), firstCause(b));
    case state:
        return m_ledger == nullptr ? a < b : isLess(m_ledger->stateOf(a), m_ledger->stateOf(b));
    default:
        return a < b;
    }
}

QString LetterListModel::marksOf(std::size_t letter) const
{
    QStringList texts;
    for (const Finding *finding : m_findings->of(letter)) {
        const QString mark = qtText(textOf(finding->cause).mark);
        if (!texts.contains(mark)) texts << mark;
    }
    return texts.join(u'、');
}

QString LetterListModel::explanationOf(std::size_t letter) const
{
    QStringList lines;
    for (const Finding *finding : m_findings->of(letter)) {
        const CauseText &cause = textOf(finding->cause);
        const QString detail = finding->detail.empty() ? QString() : u"（"_s + qtText(finding->detail) + u"）"_s;
        lines << qtText(cause.heading) + detail + u"。\n　"_s + qtText(cause.remedy);
    }
    return lines.join(u'\n');
}

/// " 新" for a letter that the compared run does not have.
QString LetterListModel::newsOf(std::size_t letter) const
{
    if (m_ledger->isAdded(letter)) return u" 新"_s;
    return m_ledger->changeOf(letter) != nullptr ? kChanged.toString() : QString();
}

QString LetterListModel::tipAt(std::size_t letter, int column) const
{
    if (column == marks) return explanationOf(letter);
    const ChangedLetter *const change = m_ledger == nullptr ? nullptr : m_ledger->changeOf(letter);
    const QString text = textAt(letter, column);
    return change == nullptr ? text : text + u'\n' + changesText(*change);
}

QString LetterListModel::textAt(std::size_t letter, int column) const
{
    switch (column) {
    case number:
        return QString::number(letter + 1);
    case insurer:
        return qtText(m_letters->names.insurer(letter));
    case patient:
        return qtText(m_letters->names.patient(letter));
    case state:
        return m_ledger == nullptr ? QString()
                                   : QString::fromUtf8(wordsOf(m_ledger->stateOf(letter)).text) + newsOf(letter);
    default:
        return marksOf(letter);
    }
}

QVariant LetterListModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || m_letters == nullptr) return {};
    const auto letter = static_cast<std::size_t>(index.row());
    const bool isTicked = m_letters->ticks.isTicked(letter);
    if (role == Qt::DisplayRole) return textAt(letter, index.column());
    if (role == Qt::CheckStateRole && index.column() == number) return isTicked ? Qt::Checked : Qt::Unchecked;
    if (role == Qt::ToolTipRole) return tipAt(letter, index.column());
    if (role == Qt::AccessibleTextRole && index.column() == number)
        return u"%1番、%2"_s.arg(letter + 1).arg(isTicked ? u"出力する"_s : u"出力しない"_s);
    return {};
}

QVariant LetterListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCountOfList) return {};
    if (role == Qt::TextAlignmentRole) return int{Qt::AlignLeft | Qt::AlignVCenter};
    return role == Qt::DisplayRole ? QVariant(QString::fromUtf8(kHeads[section])) : QVariant();
}

Qt::ItemFlags LetterListModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    return index.column() == number ? flags | Qt::ItemIsUserCheckable : flags;
}

bool LetterListModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!index.isValid() || role != Qt::CheckStateRole || index.column() != number) return false;
    m_letters->ticks.set(static_cast<std::size_t>(index.row()), value.toInt() == Qt::Checked);
    emit dataChanged(index, index, {Qt::CheckStateRole});
    if (onTicked) onTicked();
    return true;
}

} // namespace inin::viewer
