#include "viewer/window/returns_window.h"

#include "viewer/returns/missing_letters.h"
#include "viewer/window/help_window.h"
#include "viewer/window/qt_text.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>

namespace inin::viewer {

using namespace Qt::StringLiterals;

namespace {

constexpr int kWidth = 900, kHeight = 680;
constexpr int kMostCharacters = 14; ///< of the columns of names

} // namespace

ReturnsWindow::ReturnsWindow(Ledger &ledger, const ViewerServices &services, ViewerSettings &settings,
                             std::optional<MonthRange> period, QWidget *parent)
    : QDialog(parent), m_ledger(ledger), m_services(services), m_settings(settings), m_reader(ledger, services.now)
{
    setObjectName(u"returnsWindow"_s);
    addHelpKey(this);
    setWindowTitle(u"返送の確認"_s);
    setAcceptDrops(true);
    resize(kWidth, kHeight);
    auto *const layout = new QVBoxLayout(this);
    buildChoice(layout);
    buildScans(layout);
    buildTable(layout);
    buildUnreadable(layout);
    buildOutput(layout);
    m_model.onTick = [this](const std::vector<int> &rows, bool isReturned) { return tick(rows, isReturned); };
    followReader();
    fillPeriods(period);
    reload();
    m_code->setFocus();
}

void ReturnsWindow::buildChoice(QBoxLayout *layout)
{
    m_period = new QComboBox(this);
    m_period->setObjectName(u"returnsPeriod"_s);
    m_insurer = new QComboBox(this);
    m_insurer->setObjectName(u"returnsInsurer"_s);
    m_words = new QLineEdit(this);
    m_words->setObjectName(u"returnsWords"_s);
    m_words->setPlaceholderText(u"名前などで絞り込む"_s);
    m_words->setAccessibleName(m_words->placeholderText());
    m_words->setClearButtonEnabled(true);
    m_onlyMissing = new QCheckBox(u"返送されていないものだけ(&M)"_s, this);
    m_onlyMissing->setObjectName(u"returnsOnlyMissing"_s);
    m_onlyMissing->setChecked(true);
    QObject::connect(m_period, &QComboBox::activated, this, [this] { reload(); });
    QObject::connect(m_insurer, &QComboBox::activated, this, [this] { filter(); });
    QObject::connect(m_words, &QLineEdit::textChanged, this, [this] { filter(); });
    QObject::connect(m_onlyMissing, &QCheckBox::toggled, this, [this] { filter(); });
    auto *const row = new QHBoxLayout;
    const auto add = [&](const QString &name, QWidget *box) {
        auto *const label = new QLabel(name, this);
        label->setBuddy(box);
        row->addWidget(label);
        row->addWidget(box, 1);
    };
    add(u"期間(&P)"_s, m_period);
    add(u"保険者(&I)"_s, m_insurer);
    row->addWidget(m_words, 1);
    row->addWidget(m_onlyMissing);
    layout->addLayout(row);
}

void ReturnsWindow::buildTable(QBoxLayout *layout)
{
    m_table = new QTableView(this);
    m_table->setObjectName(u"returnsTable"_s);
    m_table->setModel(&m_model);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setWordWrap(false);
    m_table->verticalHeader()->hide();
    m_table->horizontalHeader()->setHighlightSections(false);
    m_table->horizontalHeader()->setSectionResizeMode(ReturnsModel::address, QHeaderView::Stretch);
    m_table->installEventFilter(this);
    m_count = new QLabel(this);
    m_count->setObjectName(u"returnsCount"_s);
    layout->addWidget(m_table, 1);
    layout->addWidget(m_count);
}

void ReturnsWindow::fillPeriods(std::optional<MonthRange> period)
{
    m_periods = m_ledger.periods();
    for (const MonthRange &months : m_periods) m_period->addItem(qtText(periodText(months)));
    const auto shown = period ? std::ranges::find(m_periods, *period) : m_periods.end();
    if (shown != m_periods.end()) m_period->setCurrentIndex(static_cast<int>(shown - m_periods.begin()));
}

void ReturnsWindow::reload()
{
    const int index = m_period->currentIndex();
    m_model.show(index < 0 ? std::vector<PrintedLetter>()
                           : m_ledger.printedLetters(m_periods[static_cast<std::size_t>(index)]));
    fillInsurers();
    filter();
    fitColumns();
}

/// The address gets the room that is left; a long name must not take it.
void ReturnsWindow::fitColumns()
{
    m_table->resizeColumnsToContents();
    const int most = m_table->fontMetrics().horizontalAdvance(u'漢') * kMostCharacters;
    for (const int column : {ReturnsModel::insurer, ReturnsModel::patient})
        m_table->setColumnWidth(column, std::min(m_table->columnWidth(column), most));
}

/// The insurers in the order of the list, each with the number of its missing letters.
void ReturnsWindow::fillInsurers()
{
    const QString chosen = m_insurer->currentData().toString();
    m_insurer->clear();
    m_insurer->addItem(u"すべて（%1通）"_s.arg(m_model.missing()), QString());
    const std::vector<PrintedLetter> &letters = m_model.letters();
    for (auto begin = letters.begin(); begin != letters.end();) {
        const auto end = std::find_if(begin, letters.end(),
                                      [&](const PrintedLetter &letter) { return letter.insurer != begin->insurer; });
        const auto missing = std::count_if(
            begin, end, [](const PrintedLetter &letter) { return letter.state != LetterState::returned; });
        m_insurer->addItem(u"%1（%2通）"_s.arg(qtText(begin->insurer)).arg(missing), qtText(begin->insurer));
        begin = end;
    }
    m_insurer->setCurrentIndex(std::max(0, m_insurer->findData(chosen)));
}

void ReturnsWindow::filter()
{
    m_model.setFilter({m_insurer->currentData().toString(), m_words->text(), m_onlyMissing->isChecked()});
    showCount();
}

void ReturnsWindow::showCount()
{
    const std::size_t all = m_model.letters().size(), missing = m_model.missing();
    m_count->setText(
        u"この期間の委任状 %1通：返送済み %2通、返送されていない %3通"_s.arg(all).arg(all - missing).arg(missing) +
        (m_ledger.notice().empty() ? QString() : u"　"_s + qtText(m_ledger.notice())));
}

bool ReturnsWindow::tick(const std::vector<int> &rows, bool isReturned)
{
    std::vector<PrintedLetter> letters;
    letters.reserve(rows.size());
    for (const int row : rows) letters.push_back(m_model.letterAt(row));
    const auto states = letters.empty() ? std::nullopt : m_ledger.setReturned(letters, isReturned, m_services.now());
    if (states) m_model.setStates(rows, *states);
    fillInsurers();
    showCount();
    if (states && onReturned) onReturned();
    return states.has_value();
}

/// Ticks the selected rows, or unticks them if all are ticked.
void ReturnsWindow::toggleSelected()
{
    std::vector<int> rows;
    for (const QModelIndex &index : m_table->selectionModel()->selectedRows()) rows.push_back(index.row());
    const bool areAll =
        std::ranges::all_of(rows, [this](int row) { return m_model.letterAt(row).state == LetterState::returned; });
    (void)tick(rows, !areAll);
}

void ReturnsWindow::done(int result)
{
    m_reader.stop();
    QDialog::done(result);
}

bool ReturnsWindow::eventFilter(QObject *watched, QEvent *event)
{
    const auto *const key = event->type() == QEvent::KeyPress ? dynamic_cast<QKeyEvent *>(event) : nullptr;
    if (watched != m_table || key == nullptr || key->key() != Qt::Key_Space)
        return QDialog::eventFilter(watched, event);
    toggleSelected();
    return true;
}

} // namespace inin::viewer
