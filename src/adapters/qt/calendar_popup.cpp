#include "adapters/qt/calendar_popup.h"

#include "adapters/qt/qt_text.h"
#include "adapters/qt/theme.h"
#include "screen/era_date_text.h"

#include <QCalendarWidget>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLocale>
#include <QScreen>
#include <QTextCharFormat>
#include <QToolButton>

namespace inin::qt {

namespace {

QDate toQDate(Date date)
{
    const DateParts parts = partsOf(date);
    return {parts.year, parts.month, parts.day};
}

/// Sundays are red and Saturdays blue, as on Japanese wall calendars.
void colourWeekend(QCalendarWidget &calendar)
{
    const bool dark = isDark(calendar.palette());
    const auto colour = [&](Qt::DayOfWeek day, const QColor &onLight, const QColor &onDark) {
        QTextCharFormat format;
        format.setForeground(dark ? onDark : onLight);
        calendar.setWeekdayTextFormat(day, format);
    };
    colour(Qt::Sunday, QColor(0xC0, 0x20, 0x20), QColor(0xFF, 0x8A, 0x80));
    colour(Qt::Saturday, QColor(0x1A, 0x4F, 0xB0), QColor(0x8A, 0xB4, 0xF8));
}

QToolButton *pageButton(Qt::ArrowType arrow, const char *name, QWidget *parent)
{
    auto *button = new QToolButton(parent);
    button->setArrowType(arrow);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus);
    button->setAccessibleName(toQt(name));
    return button;
}

} // namespace

CalendarPopup::CalendarPopup(Date shown, QWidget *parent)
    : QFrame(parent, Qt::Popup), m_calendar(new QCalendarWidget(this)), m_title(new QLabel(this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setFrameStyle(QFrame::StyledPanel);
    setObjectName("calendar");
    setAccessibleName(tr("カレンダー"));
    m_title->setObjectName("calendarTitle");
    m_title->setAlignment(Qt::AlignCenter);
    m_calendar->setLocale(QLocale(QLocale::Japanese, QLocale::Japan));
    m_calendar->setNavigationBarVisible(false);
    m_calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    m_calendar->setFirstDayOfWeek(Qt::Sunday);
    m_calendar->setMinimumDate(toQDate(eras().front().first));
    m_calendar->setSelectedDate(toQDate(shown));
    m_calendar->setAccessibleName(tr("日付"));
    colourWeekend(*m_calendar);

    QToolButton *before = pageButton(Qt::LeftArrow, "前の月", this);
    QToolButton *after = pageButton(Qt::RightArrow, "次の月", this);
    connect(before, &QToolButton::clicked, m_calendar, &QCalendarWidget::showPreviousMonth);
    connect(after, &QToolButton::clicked, m_calendar, &QCalendarWidget::showNextMonth);
    connect(m_calendar, &QCalendarWidget::currentPageChanged, this, [this] { showTitle(); });
    connect(m_calendar, &QCalendarWidget::clicked, this, [this](const QDate &day) { choose(day); });
    connect(m_calendar, &QCalendarWidget::activated, this, [this](const QDate &day) { choose(day); });

    auto *layout = new QGridLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(before, 0, 0);
    layout->addWidget(m_title, 0, 1);
    layout->addWidget(after, 0, 2);
    layout->setColumnStretch(1, 1);
    layout->addWidget(m_calendar, 1, 0, 1, 3);
    for (QObject *child : m_calendar->findChildren<QWidget *>()) child->installEventFilter(this);
    setFocusProxy(m_calendar);
    showTitle();
}

void CalendarPopup::openBelow(const QWidget &box)
{
    adjustSize();
    const QRect screen = box.screen()->availableGeometry();
    QPoint place = box.mapToGlobal(QPoint(0, box.height()));
    if (place.y() + height() > screen.bottom()) place = box.mapToGlobal(QPoint(0, -height()));
    place.setX(std::clamp(place.x(), screen.left(), std::max(screen.left(), screen.right() - width())));
    move(place);
    show();
    m_calendar->setFocus(Qt::PopupFocusReason);
}

void CalendarPopup::showTitle()
{
    m_title->setText(toQt(monthTitle(m_calendar->yearShown(), m_calendar->monthShown())));
}

void CalendarPopup::choose(const QDate &day)
{
    const Date chosen = dateOf({day.year(), day.month(), day.day()});
    const auto notify = onChosen;
    close();
    if (notify) notify(chosen);
}

/// The return key selects the day like a click. The calendar widget reports the key only in some of its states.
bool CalendarPopup::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Escape) return close();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            choose(m_calendar->selectedDate());
            return true;
        }
    }
    return QFrame::eventFilter(watched, event);
}

} // namespace inin::qt
