#include "viewer/window/letter_list.h"

#include "viewer/ledger/ledger_records.h"
#include "viewer/window/letter_list_model.h"
#include "viewer/window/listed_letters.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QStyle>

#include <algorithm>

namespace inin::viewer {

using namespace Qt::StringLiterals;

namespace {

constexpr int kLeastMarks = 5; ///< characters

} // namespace

LetterList::LetterList(ListedLetters &listed, QWidget *parent) : QTableView(parent), m_listed(listed)
{
    setObjectName(u"letterList"_s);
    setAccessibleName(u"委任状の一覧"_s);
    setModel(&listed);
    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    setShowGrid(false);
    setAlternatingRowColors(true);
    setWordWrap(false);
    setTabKeyNavigation(false);
    verticalHeader()->hide();
    // A fixed row height avoids measuring ten thousand rows one by one.
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    constexpr int kRowPadding = 8;
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kRowPadding);
    const int wide = fontMetrics().horizontalAdvance(u'漢');
    constexpr int kNumberWidth = 5, kInsurerWidth = 12, kPatientWidth = 8;
    setColumnWidth(LetterListModel::number, wide * kNumberWidth);
    setColumnWidth(LetterListModel::insurer, wide * kInsurerWidth);
    setColumnWidth(LetterListModel::patient, wide * kPatientWidth);
    setColumnWidth(LetterListModel::marks, wide * kLeastMarks);
    setColumnWidth(LetterListModel::state, stateWidth());
    horizontalHeader()->moveSection(LetterListModel::state, LetterListModel::marks);
    setColumnHidden(LetterListModel::state, true);
    // The column of marks gets the remaining width; tooltips show what is cut off.
    horizontalHeader()->setStretchLastSection(true);
    horizontalHeader()->setHighlightSections(false);
    // Sorting is enabled with the order that it then applies.
    horizontalHeader()->setSortIndicator(LetterListModel::number, Qt::AscendingOrder);
    setSortingEnabled(true);
    QObject::connect(horizontalHeader(), &QHeaderView::sortIndicatorChanged, this, [this] {
        scrollTo(currentIndex());
        if (onSorted) onSorted();
    });
}

/// The width of the longest state, so that none is cut.
int LetterList::stateWidth() const
{
    int longest = 0;
    for (const LetterStateWords &words : kLetterStates)
        longest = std::max(longest, fontMetrics().horizontalAdvance(QString::fromUtf8(words.text) +
                                                                    LetterListModel::kChanged.toString()));
    constexpr int kSides = 2;
    const int margin = style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, this) + 1;
    return longest + kSides * margin + 1; // a width in pixels is rounded down
}

std::optional<std::size_t> LetterList::current() const
{
    return m_listed.letterAt(currentIndex());
}

void LetterList::setCurrent(std::size_t letter)
{
    const QModelIndex index = m_listed.indexOf(letter);
    const QScopedValueRollback selecting(m_isSelectingAlone, true);
    setCurrentIndex(index);
    scrollTo(index);
}

QItemSelectionModel::SelectionFlags LetterList::selectionCommand(const QModelIndex &index, const QEvent *event) const
{
    // Without an event the view would use the modifier keys that are pressed now: after Ctrl+PageDown it would toggle
    // the row of the new letter. From version 6.8 the view also asks without an event while Shift and a key move the
    // current row; then the answer must be its own, which keeps the row where the selection began.
    if (event == nullptr && m_isSelectingAlone) return QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows;
    return QTableView::selectionCommand(index, event);
}

void LetterList::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    QTableView::currentChanged(current, previous);
    if (current.isValid() && current.row() != previous.row() && onCurrent) onCurrent(*m_listed.letterAt(current));
}

void LetterList::toggleSelected()
{
    const QModelIndexList rows = selectionModel()->selectedRows(LetterListModel::number);
    const bool allTicked = std::all_of(rows.begin(), rows.end(), [](const QModelIndex &row) {
        return row.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    });
    for (const QModelIndex &row : rows)
        m_listed.setData(row, allTicked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
}

/// Copies the selected letters as listed, one per line, with tabs between the columns.
void LetterList::copySelected() const
{
    QModelIndexList rows = selectionModel()->selectedRows();
    std::sort(rows.begin(), rows.end());
    QStringList lines;
    for (const QModelIndex &row : rows) {
        QStringList texts;
        for (int column = 0; column < m_listed.columnCount(); ++column)
            if (!isColumnHidden(column)) texts << row.siblingAtColumn(column).data().toString();
        lines << texts.join(u'\t');
    }
    if (!lines.isEmpty()) QGuiApplication::clipboard()->setText(lines.join(u'\n'));
}

void LetterList::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Space) return toggleSelected();
    if (event->matches(QKeySequence::Copy)) return copySelected();
    if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && onEnter) return onEnter();
    QTableView::keyPressEvent(event);
}

void LetterList::resizeEvent(QResizeEvent *event)
{
    QTableView::resizeEvent(event);
    fitColumns();
}

void LetterList::showStates(bool areShown)
{
    setColumnHidden(LetterListModel::state, !areShown);
    fitColumns();
}

/// In a narrow list the insurer gives room to the columns after it.
void LetterList::fitColumns()
{
    const int wide = fontMetrics().horizontalAdvance(u'漢');
    constexpr int kLeastInsurer = 6;
    const int state = isColumnHidden(LetterListModel::state) ? 0 : columnWidth(LetterListModel::state);
    const int others =
        columnWidth(LetterListModel::number) + columnWidth(LetterListModel::patient) + state + wide * kLeastMarks;
    const int room = std::max(viewport()->width() - others, wide * kLeastInsurer);
    if (columnWidth(LetterListModel::insurer) > room) setColumnWidth(LetterListModel::insurer, room);
}

QModelIndex LetterList::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    if (action == MoveHome) return m_listed.index(0, 0);
    if (action == MoveEnd) return m_listed.index(m_listed.rowCount() - 1, 0);
    return QTableView::moveCursor(action, modifiers);
}

} // namespace inin::viewer
