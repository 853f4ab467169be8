#include "adapters/qt/calendar_popup.h"

#include "desktop_theme/theme.h"
#include "screen/era_date_text.h"

#include <QCalendarWidget>
#include <QLocale>
#include <QTextCharFormat>

namespace inin::qt {

namespace {

QDate toQDate(Date date)
{
    const DateParts parts = partsOf(date);
    return {parts.year, parts.month, parts.day};
}

Date fromQt(const QDate &day)
{
    return dateOf({day.year(), day.month(), day.day()});
}

/// Sundays are red and Saturdays blue, as on Japanese wall calendars.
void colourWeekend(QCalendarWidget &calendar)
{
    const bool dark = theme::isDark(calendar.palette());
    const auto colour = [&](Qt::DayOfWeek day, const QColor &onLight, const QColor &onDark) {
        QTextCharFormat format;
        format.setForeground(dark ? onDark : onLight);
        calendar.setWeekdayTextFormat(day, format);
    };
    colour(Qt::Sunday, QColor(0xC0, 0x20, 0x20), QColor(0xFF, 0x8A, 0x80));
    colour(Qt::Saturday, QColor(0x1A, 0x4F, 0xB0), QColor(0x8A, 0xB4, 0xF8));
}

} // namespace

CalendarPopup::CalendarPopup(Date shown, Date today, QWidget *parent)
    : DatePopup({"前の月", "次の月", "今日"}, today, parent), m_calendar(new QCalendarWidget(this))
{
    m_calendar->setLocale(QLocale(QLocale::Japanese, QLocale::Japan));
    m_calendar->setNavigationBarVisible(false);
    m_calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    m_calendar->setFirstDayOfWeek(Qt::Sunday);
    m_calendar->setMinimumDate(toQDate(eras().front().first));
    m_calendar->setSelectedDate(toQDate(shown));
    m_calendar->setAccessibleName(tr("日付"));
    colourWeekend(*m_calendar);
    connect(m_calendar, &QCalendarWidget::currentPageChanged, this, [this] { showTitle(); });
    connect(m_calendar, &QCalendarWidget::clicked, this, [this](const QDate &day) { choose(fromQt(day)); });
    connect(m_calendar, &QCalendarWidget::activated, this, [this](const QDate &day) { choose(fromQt(day)); });
    setPage(*m_calendar);
    showTitle();
}

void CalendarPopup::turnPage(int by)
{
    if (by < 0)
        m_calendar->showPreviousMonth();
    else
        m_calendar->showNextMonth();
}

void CalendarPopup::showTitle()
{
    setTitle(monthTitle(m_calendar->yearShown(), m_calendar->monthShown()));
}

/// The return key selects the day like a click. The calendar widget reports the key only in some of its states.
bool CalendarPopup::dealKey(int key)
{
    if (key != Qt::Key_Return && key != Qt::Key_Enter) return false;
    choose(fromQt(m_calendar->selectedDate()));
    return true;
}

} // namespace inin::qt
