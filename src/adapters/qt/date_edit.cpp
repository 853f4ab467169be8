#include "adapters/qt/date_edit.h"

#include "adapters/qt/calendar_popup.h"
#include "adapters/qt/control_colours.h"
#include "adapters/qt/icons.h"
#include "adapters/qt/month_popup.h"
#include "adapters/qt/qt_text.h"

#include <QAction>
#include <QKeyEvent>
#include <QScreen>
#include <QStyle>
#include <QTimer>
#include <QToolTip>

namespace inin::qt {

namespace {

/// Longer than any date, and short enough that a text dropped by mistake does no harm.
constexpr int kMaxLength = 64;

int lettersOf(const std::string &text, std::size_t bytes)
{
    return static_cast<int>(toQt(std::string_view(text).substr(0, bytes)).size());
}

} // namespace

DateEdit::DateEdit(std::string format, std::function<Date()> today, QWidget *parent)
    : TypedBox(parent), m_format(std::move(format)), m_today(std::move(today))
{
    setMaxLength(kMaxLength);
    setInputMethodHints(Qt::ImhDate | Qt::ImhNoPredictiveText);
    m_sign = addAction(QIcon(), QLineEdit::LeadingPosition);
    m_sign->setVisible(false);
    QAction *calendar = addAction(calendarIcon(palette()), QLineEdit::TrailingPosition);
    calendar->setToolTip(tr("カレンダーを開く（Alt+↓）"));
    connect(calendar, &QAction::triggered, this, [this] { openCalendar(); });
    connect(this, &QLineEdit::textEdited, this, [this] { m_isTyped = true; });
}

void DateEdit::setValue(const Variant &value)
{
    m_value = value;
    setText(textOf(value));
    m_isTyped = false;
    remark({}, {});
}

QString DateEdit::textOf(const Variant &value) const
{
    const Date *date = value.getIf<Date>();
    return date != nullptr ? toQt(typedDateText(*date, m_format)) : QString();
}

void DateEdit::commit()
{
    if (!m_isTyped) return;
    const TypedDate typed = readTypedDate(fromQt(text()), context());
    if (typed.date) return take(*typed.date, typed.notice);
    if (typed.isEmpty()) return take(Null{});
    m_isTyped = false;
    remark(typed.complaint, {});
    m_value = Null{};
    if (onEdited) onEdited(m_value);
}

/// Accepts a date entered by hand. Undo restores the typed text and the previous date.
void DateEdit::take(const Variant &value, const std::string &notice)
{
    const bool isNew = !(m_value == value);
    m_value = value;
    if (const QString shown = textOf(value); shown != text()) {
        selectAll();
        insert(shown);
    }
    m_isTyped = false;
    remark({}, notice);
    if (isNew && onEdited) onEdited(m_value);
}

/// Shows a remark about the text by colour, by an icon, as text at the box and to screen readers.
void DateEdit::remark(const std::string &complaint, const std::string &notice)
{
    if (complaint == m_complaint && notice == m_notice) return;
    m_complaint = complaint;
    m_notice = notice;
    const bool isUnreadable = !complaint.empty();
    const bool isMarked = !sentence().empty();
    colourByReading(*this, isUnreadable ? Reading::unreadable : isMarked ? Reading::doubtful : Reading::plain);
    // Look up the icons with the first remark only: scanning the desktop's icon folders is too slow for program start.
    if (isMarked)
        m_sign->setIcon(
            style()->standardIcon(isUnreadable ? QStyle::SP_MessageBoxWarning : QStyle::SP_MessageBoxInformation));
    m_sign->setVisible(isMarked);
    const QString words = toQt(sentence());
    setToolTip(words);
    setAccessibleDescription(words);
    explain();
}

/// Shows the remark at the box. A tool tip disappears with the next change of focus, which may be under way because the
/// box is read when it loses the focus.
void DateEdit::explain()
{
    QTimer::singleShot(0, this, [this] {
        const QString words = toQt(sentence());
        if (!words.isEmpty() && isVisible()) QToolTip::showText(sentencePlace(words), words, this);
    });
}

/// Above the box or, where that is not possible, beside the window: below it the tip would cover the fields that are
/// filled in next. Not under the mouse pointer: there the tip would close at once, as if the pointer had left.
QPoint DateEdit::sentencePlace(const QString &words) const
{
    constexpr int kPointer = 24; // the toolkit shows a tip up to this much (the height of a pointer) further down
    constexpr int kTipMargin = 8;
    const QSize tip =
        QFontMetrics(QToolTip::font()).size(Qt::TextSingleLine, words) + QSize(kPointer, kPointer + kTipMargin);
    const QRect screenRoom = screen()->availableGeometry(), frame = window()->frameGeometry();
    const QPoint box = mapToGlobal(QPoint(0, 0));
    const QPoint above = box - QPoint(0, tip.height());
    const QPoint right(frame.right(), box.y() - kPointer), left(frame.left() - tip.width(), box.y() - kPointer);
    const auto fits = [&](QPoint place) {
        const QRect room(place, tip);
        return screenRoom.contains(room) && !room.contains(QCursor::pos());
    };
    for (const QPoint &place : {above, right, left})
        if (fits(place)) return place;
    return above;
}

DateContext DateEdit::context() const
{
    const bool hasDay = m_format.find('d') != std::string::npos;
    return {m_today(), hasDay ? DateGrain::day : DateGrain::month};
}

DatePartPlace DateEdit::placeAtCursor(Date date) const
{
    return partAt(date, m_format, static_cast<std::size_t>(text().left(cursorPosition()).toUtf8().size()));
}

void DateEdit::keyPressEvent(QKeyEvent *event)
{
    const bool isPlain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    const bool isUp = event->key() == Qt::Key_Up || event->key() == Qt::Key_PageUp;
    switch (event->key()) {
    case Qt::Key_Down:
        if (event->modifiers() == Qt::AltModifier) return openCalendar();
        [[fallthrough]];
    case Qt::Key_Up:
        if (!isPlain) break;
        return stepAtCursor(isUp ? 1 : -1);
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        if (!isPlain) break;
        // As in a calendar, page up is the previous month.
        return step(DatePart::month, isUp ? -1 : 1);
    case Qt::Key_Semicolon:
        if (event->modifiers() != Qt::ControlModifier) break;
        return goToToday();
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return commit();
    default:
        break;
    }
    TypedBox::keyPressEvent(event);
}

void DateEdit::stepAtCursor(int by)
{
    commit();
    const Date *date = m_value.getIf<Date>();
    step(date != nullptr ? placeAtCursor(*date).part : DatePart::day, by);
}

/// Steps a part of the date and selects it. An empty box starts at today; unreadable text is left unchanged.
void DateEdit::step(DatePart part, int by)
{
    commit();
    if (!m_complaint.empty()) return;
    const Date *date = m_value.getIf<Date>();
    if (date == nullptr) return goToToday();
    const Date moved = stepped(*date, part, by);
    take(moved);
    const std::string shown = fromQt(text());
    for (std::size_t position = 0; position < shown.size(); ++position) {
        const DatePartPlace place = partAt(moved, m_format, position);
        if (place.part != part || shown.substr(place.begin, place.end - place.begin).find_first_of("0123456789") != 0)
            continue;
        const int begin = lettersOf(shown, place.begin);
        return setSelection(begin, lettersOf(shown, place.end) - begin);
    }
}

void DateEdit::goToToday()
{
    Date today = dayOf(m_today());
    if (context().grain == DateGrain::month) today = Date(today.days() - Day(today) + 1);
    take(today);
}

void DateEdit::openCalendar()
{
    if (isReadOnly() || !isEnabled()) return;
    commit();
    const Date *date = m_value.getIf<Date>();
    const Date today = m_today(), shown = date != nullptr ? *date : today;
    const bool isMonth = context().grain == DateGrain::month;
    DatePopup *calendar = isMonth ? static_cast<DatePopup *>(new MonthPopup(shown, today, this))
                                  : new CalendarPopup(shown, today, this); // deletes itself when it is closed
    calendar->onChosen = [this](Date chosen) {
        take(chosen);
        selectAll();
    };
    calendar->openBelow(*this);
}

void DateEdit::focusInEvent(QFocusEvent *event)
{
    TypedBox::focusInEvent(event);
    explain();
}

QSize DateEdit::sizeHint() const
{
    const QSize usual = TypedBox::sizeHint();
    constexpr int kMargins = 12;
    // The widest date and both icons.
    const int text = fontMetrics().horizontalAdvance(toQt(typedDateText(dateOf({2026, 12, 28}), m_format)));
    return {text + 2 * (usual.height() - 4) + kMargins, usual.height()};
}

} // namespace inin::qt
