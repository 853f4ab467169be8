#include "viewer/window/listed_letters.h"

#include "viewer/window/ledger_desk.h"
#include "viewer/window/letter_list_model.h"

namespace inin::viewer {

using namespace Qt::StringLiterals;

namespace {

bool isListedByLedger(const LedgerDesk &ledger, ListFilter filter, std::size_t letter)
{
    switch (filter) {
    case ListFilter::added:
        return ledger.isAdded(letter);
    case ListFilter::changed:
        return ledger.changeOf(letter) != nullptr;
    case ListFilter::printed:
        return ledger.isPrintedAlready(letter);
    case ListFilter::unprinted:
        return ledger.stateOf(letter) == LetterState::unprinted;
    case ListFilter::sent:
        return ledger.stateOf(letter) == LetterState::sent;
    case ListFilter::onPaper:
        return ledger.stateOf(letter) == LetterState::onPaper;
    case ListFilter::returned:
        return ledger.stateOf(letter) == LetterState::returned;
    default:
        return true;
    }
}

} // namespace

ListedLetters::ListedLetters(LetterListModel &model) : m_model(model)
{
    setDynamicSortFilter(false);
    setSourceModel(&model);
}

void ListedLetters::refresh()
{
    invalidateFilter();
    sort(sortColumn(), sortOrder());
}

bool ListedLetters::isNumberOrder() const
{
    return sortColumn() < 0 || (sortColumn() == LetterListModel::number && sortOrder() == Qt::AscendingOrder);
}

std::vector<std::size_t> ListedLetters::letters() const
{
    std::vector<std::size_t> letters(static_cast<std::size_t>(rowCount()));
    for (std::size_t row = 0; row < letters.size(); ++row)
        letters[row] = static_cast<std::size_t>(mapToSource(index(static_cast<int>(row), 0)).row());
    return letters;
}

std::optional<std::size_t> ListedLetters::letterAt(const QModelIndex &index) const
{
    if (!index.isValid()) return std::nullopt;
    return static_cast<std::size_t>(mapToSource(index).row());
}

QModelIndex ListedLetters::indexOf(std::size_t letter) const
{
    return mapFromSource(m_model.index(static_cast<int>(letter), 0));
}

QVariant ListedLetters::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && role == Qt::ToolTipRole)
        return u"クリックすると並べ替えます。印刷の順は変わりません。"_s;
    return m_model.headerData(section, orientation, role);
}

bool ListedLetters::filterAcceptsRow(int row, const QModelIndex & /*parent*/) const
{
    const auto letter = static_cast<std::size_t>(row);
    switch (m_filter) {
    case ListFilter::all:
        return true;
    case ListFilter::flagged:
        return m_model.isFlagged(letter);
    case ListFilter::ticked:
        return m_model.isTicked(letter);
    case ListFilter::found:
        return letter >= m_found.size() || m_found[letter];
    default:
        return m_model.ledger() == nullptr || isListedByLedger(*m_model.ledger(), m_filter, letter);
    }
}

bool ListedLetters::lessThan(const QModelIndex &left, const QModelIndex &right) const
{
    return m_model.isBefore(static_cast<std::size_t>(left.row()), static_cast<std::size_t>(right.row()), left.column());
}

} // namespace inin::viewer
