#include "viewer/window/returns_model.h"

#include "viewer/document/folded_name.h"
#include "viewer/window/qt_text.h"

#include <algorithm>

namespace inin::viewer {

using namespace Qt::StringLiterals;

namespace {

QString textOf(const PrintedLetter &letter, int column)
{
    switch (column) {
    case ReturnsModel::insurer:
        return qtText(letter.insurer);
    case ReturnsModel::district:
        return qtText(letter.district);
    case ReturnsModel::patient:
        return qtText(letter.patient);
    case ReturnsModel::address:
        return qtText(letter.address);
    case ReturnsModel::state:
        return QString::fromUtf8(wordsOf(letter.state).text);
    default:
        return {};
    }
}

} // namespace

void ReturnsModel::show(std::vector<PrintedLetter> letters)
{
    m_letters = std::move(letters);
    setFilter(m_filter);
}

void ReturnsModel::setFilter(const ReturnsFilter &filter)
{
    beginResetModel();
    m_filter = filter;
    m_shown.clear();
    const std::u32string words = foldedName(utf8Text(filter.words));
    for (std::size_t i = 0; i < m_letters.size(); ++i)
        if (isShown(m_letters[i], words)) m_shown.push_back(i);
    endResetModel();
}

bool ReturnsModel::isShown(const PrintedLetter &letter, const std::u32string &words) const
{
    if (m_filter.onlyMissing && letter.state == LetterState::returned) return false;
    if (!m_filter.insurer.isEmpty() && qtText(letter.insurer) != m_filter.insurer) return false;
    return words.empty() || foldedName(letter.insurer + "\n" + letter.patient).find(words) != std::u32string::npos;
}

void ReturnsModel::setStates(const std::vector<int> &rows, const std::vector<LetterState> &states)
{
    for (std::size_t i = 0; i < rows.size(); ++i) {
        m_letters[m_shown[static_cast<std::size_t>(rows[i])]].state = states[i];
        emit dataChanged(index(rows[i], 0), index(rows[i], columns - 1));
    }
}

const PrintedLetter &ReturnsModel::letterAt(int row) const
{
    return m_letters[m_shown[static_cast<std::size_t>(row)]];
}

std::vector<PrintedLetter> ReturnsModel::shown() const
{
    std::vector<PrintedLetter> letters;
    for (const std::size_t i : m_shown) letters.push_back(m_letters[i]);
    return letters;
}

std::size_t ReturnsModel::missing() const
{
    return static_cast<std::size_t>(std::ranges::count_if(
        m_letters, [](const PrintedLetter &letter) { return letter.state != LetterState::returned; }));
}

int ReturnsModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_shown.size());
}

int ReturnsModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : columns;
}

QVariant ReturnsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    static const QStringList titles = {u"返送"_s, u"保険者"_s, u"地区"_s, u"利用者"_s, u"住所"_s, u"状態"_s};
    return orientation == Qt::Horizontal && role == Qt::DisplayRole ? titles.value(section) : QVariant();
}

QVariant ReturnsModel::data(const QModelIndex &index, int role) const
{
    const PrintedLetter &letter = letterAt(index.row());
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole) return textOf(letter, index.column());
    if (role == Qt::CheckStateRole && index.column() == returned)
        return letter.state == LetterState::returned ? Qt::Checked : Qt::Unchecked;
    return {};
}

Qt::ItemFlags ReturnsModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags usual = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    return index.column() == returned ? usual | Qt::ItemIsUserCheckable : usual;
}

bool ReturnsModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::CheckStateRole || index.column() != returned) return false;
    return onTick && onTick({index.row()}, value.toInt() == Qt::Checked);
}

} // namespace inin::viewer
