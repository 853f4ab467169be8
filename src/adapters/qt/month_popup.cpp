#include "adapters/qt/month_popup.h"

#include "screen/era_date_text.h"

#include <QGridLayout>
#include <QToolButton>

namespace inin::qt {

namespace {

constexpr int kColumns = 4;
constexpr std::int32_t kLastYear = 9999;

Date firstOf(std::int32_t year, int month)
{
    return dateOf({year, month, 1});
}

Date firstOfMonth(Date day)
{
    const DateParts parts = partsOf(day);
    return firstOf(parts.year, parts.month);
}

} // namespace

MonthPopup::MonthPopup(Date shown, Date today, QWidget *parent)
    : DatePopup({"前の年", "次の年", "今月"}, firstOfMonth(today), parent), m_shown(partsOf(shown))
{
    auto *page = new QWidget(this); // owned by the popup
    auto *grid = new QGridLayout(page);
    grid->setContentsMargins(0, 0, 0, 0);
    constexpr int kWidth = 52, kHeight = 32;
    for (int month = 1; month <= kMonths; ++month) {
        auto *button = new QToolButton(page);
        button->setText(tr("%1月").arg(month));
        button->setObjectName(QStringLiteral("month%1").arg(month));
        button->setCheckable(true);
        button->setAutoRaise(true);
        button->setMinimumSize(kWidth, kHeight);
        connect(button, &QToolButton::clicked, this, [this, month] { choose(firstOf(m_year, month)); });
        grid->addWidget(button, (month - 1) / kColumns, (month - 1) % kColumns);
        m_buttons.at(static_cast<std::size_t>(month - 1)) = button;
    }
    setPage(*page);
    showYear(m_shown.year, m_shown.month);
}

void MonthPopup::showYear(std::int32_t year, int month)
{
    if (firstOf(year, month) < eras().front().first || year > kLastYear) return;
    m_year = year;
    setTitle(yearTitle(year));
    for (int each = 1; each <= kMonths; ++each) {
        QToolButton &button = *m_buttons.at(static_cast<std::size_t>(each - 1));
        button.setEnabled(!(firstOf(year, each) < eras().front().first));
        // The tab key reaches one month only; the arrow keys walk through the others.
        button.setFocusPolicy(each == month ? Qt::StrongFocus : Qt::ClickFocus);
        button.setChecked(year == m_shown.year && each == m_shown.month);
    }
    QToolButton *focused = m_buttons.at(static_cast<std::size_t>(month - 1));
    focused->setFocus(Qt::TabFocusReason);
    setFocusProxy(focused);
}

void MonthPopup::turnPage(int by)
{
    showYear(m_year + by, focusedMonth());
}

void MonthPopup::walk(int months)
{
    const int index = m_year * kMonths + focusedMonth() - 1 + months;
    showYear(index / kMonths, index % kMonths + 1);
}

int MonthPopup::focusedMonth() const
{
    for (int month = 1; month <= kMonths; ++month)
        if (m_buttons.at(static_cast<std::size_t>(month - 1)) == focusProxy()) return month;
    return 1;
}

bool MonthPopup::dealKey(int key)
{
    switch (key) {
    case Qt::Key_Left:
        walk(-1);
        return true;
    case Qt::Key_Right:
        walk(1);
        return true;
    case Qt::Key_Up:
        walk(-kColumns);
        return true;
    case Qt::Key_Down:
        walk(kColumns);
        return true;
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        turnPage(key == Qt::Key_PageUp ? -1 : 1);
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        choose(firstOf(m_year, focusedMonth()));
        return true;
    default:
        return false;
    }
}

} // namespace inin::qt
