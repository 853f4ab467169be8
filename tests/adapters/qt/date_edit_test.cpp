#include "adapters/qt/date_edit.h"

#include "adapters/qt/calendar_popup.h"
#include "adapters/qt/qt_text.h"

#include <doctest/doctest.h>

#include <QAction>
#include <QApplication>
#include <QCalendarWidget>
#include <QInputMethodEvent>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QToolButton>
#include <QToolTip>
#include <QtTest/QTest>

#include <string>
#include <vector>

using namespace inin;
using namespace inin::qt;

namespace {

Date day(std::int32_t year, std::int32_t month, std::int32_t dayOfMonth)
{
    return dateOf({year, month, dayOfMonth});
}

/// A box in a shown window; today is 20 November 2026.
struct Box {
    explicit Box(const char *format = "ggg ee年mm月dd日")
        : edit(
              format, [] { return day(2026, 11, 20); }, &window)
    {
        edit.onEdited = [this](const Variant &value) { edits.push_back(value); };
        edit.setValue(day(2026, 11, 21));
        window.show();
        window.activateWindow();
        REQUIRE(QTest::qWaitForWindowActive(&window));
        edit.setFocus(Qt::TabFocusReason);
    }
    void type(const char *text)
    {
        QTest::keyClick(&edit, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(&edit, Qt::Key_Delete);
        QInputMethodEvent composed;
        composed.setCommitString(toQt(text));
        QApplication::sendEvent(&edit, &composed);
    }
    void enter(const char *text)
    {
        type(text);
        QTest::keyClick(&edit, Qt::Key_Return);
    }
    void key(Qt::Key code, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(&edit, code, modifiers); }
    [[nodiscard]] std::string shown() const { return fromQt(edit.text()); }
    [[nodiscard]] std::string selected() const { return fromQt(edit.selectedText()); }

    QWidget window;
    DateEdit edit;
    std::vector<Variant> edits;
};

QFrame &openPopup(Box &box)
{
    // A closed calendar is deleted with the next event.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    box.key(Qt::Key_Down, Qt::AltModifier);
    auto *popup = box.edit.findChild<QFrame *>("calendar");
    REQUIRE(popup != nullptr);
    return *popup;
}

CalendarPopup &openCalendar(Box &box)
{
    return dynamic_cast<CalendarPopup &>(openPopup(box));
}

} // namespace

TEST_CASE("a date is shown with its era, a typed one too")
{
    Box box;
    CHECK(box.shown() == "令和 08年11月21日");
    box.enter("h31.5.1");
    CHECK(box.shown() == "令和 01年05月01日");
    CHECK(box.edits == std::vector<Variant>{day(2019, 5, 1)});
}

TEST_CASE("a typed date counts once, when the box loses the focus")
{
    Box box;
    QLineEdit next(&box.window);
    next.show();
    box.type("R8.12.24");
    CHECK(box.edits.empty());
    next.setFocus(Qt::TabFocusReason);
    CHECK(box.edits == std::vector<Variant>{day(2026, 12, 24)});
}

TEST_CASE("an emptied box is Null")
{
    Box box;
    box.enter("");
    REQUIRE(box.edits.size() == 1);
    CHECK(box.edits[0].isNull());
    CHECK(box.edit.complaint() == "");
}

TEST_CASE("unreadable text stays in the box, is highlighted with a remark and counts as Null")
{
    Box box;
    box.enter("R8.13.1");
    CHECK(box.shown() == "R8.13.1");
    CHECK(box.edit.complaint() == "2026年13月1日という日はありません。");
    CHECK(fromQt(box.edit.accessibleDescription()) == "2026年13月1日という日はありません。");
    CHECK(fromQt(box.edit.toolTip()) == "2026年13月1日という日はありません。");
    CHECK(box.edit.actions().front()->isVisible());
    CHECK(box.edit.palette().color(QPalette::Base) != QApplication::palette().color(QPalette::Base));
    REQUIRE(box.edits.size() == 1);
    CHECK(box.edits[0].isNull());

    SUBCASE("until it is corrected")
    {
        box.enter("R8.12.1");
        CHECK(box.edit.complaint() == "");
        CHECK(box.edit.toolTip().isEmpty());
        CHECK_FALSE(box.edit.actions().front()->isVisible());
        CHECK(box.edits.back() == Variant(day(2026, 12, 1)));
    }
    SUBCASE("also when an arrow key is pressed")
    {
        box.key(Qt::Key_Up);
        CHECK(box.shown() == "R8.13.1");
    }
    SUBCASE("also when the box loses the focus again")
    {
        QLineEdit next(&box.window);
        next.show();
        next.setFocus();
        CHECK(box.shown() == "R8.13.1");
        CHECK(box.edits.size() == 1);
    }
    SUBCASE("until the program assigns another date")
    {
        box.edit.setValue(day(2026, 1, 1));
        CHECK(box.shown() == "令和 08年01月01日");
        CHECK(box.edit.complaint() == "");
    }
}

TEST_CASE("a doubtful date is accepted with a remark and has another colour than unreadable text")
{
    Box box;
    box.enter("zz");
    const QColor unreadable = box.edit.palette().color(QPalette::Base);
    box.enter("26/11/21");
    CHECK(box.shown() == "令和 26年11月21日");
    CHECK(box.edits.back() == Variant(day(2044, 11, 21)));
    CHECK(box.edit.complaint() == "");
    CHECK(box.edit.notice() == "西暦2044年の日付です。今日から5年を超えて離れています。年を確かめてください。");
    CHECK(box.edit.toolTip() == toQt(box.edit.notice()));
    CHECK(box.edit.accessibleDescription() == toQt(box.edit.notice()));
    CHECK(box.edit.actions().front()->isVisible());
    const QColor doubtful = box.edit.palette().color(QPalette::Base);
    CHECK(doubtful != unreadable);
    CHECK(doubtful != QApplication::palette().color(QPalette::Base));

    SUBCASE("until a near date is typed")
    {
        box.enter("R8.11.21");
    }
    SUBCASE("until the program assigns a date")
    {
        box.edit.setValue(day(2044, 11, 21));
    }
    CHECK(box.edit.notice() == "");
    CHECK(box.edit.toolTip().isEmpty());
    CHECK_FALSE(box.edit.actions().front()->isVisible());
    CHECK(box.edit.palette().color(QPalette::Base) == QApplication::palette().color(QPalette::Base));
}

TEST_CASE("the remark about unreadable text is shown when the box loses the focus and when it gets it again")
{
    Box box;
    QLineEdit next(&box.window);
    next.show();
    box.type("R8.13.1");
    next.setFocus(Qt::TabFocusReason);
    QApplication::processEvents();
    CHECK(QToolTip::isVisible());
    CHECK(fromQt(QToolTip::text()) == "2026年13月1日という日はありません。");
    QToolTip::hideText();
    REQUIRE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }));
    box.edit.setFocus(Qt::BacktabFocusReason);
    QApplication::processEvents();
    CHECK(QToolTip::isVisible());
    box.enter("R8.12.1");
}

TEST_CASE("up and down step the part under the cursor and select it")
{
    Box box;
    struct Row {
        int cursor; ///< in characters of 令和 08年11月21日
        const char *shown;
        const char *selected;
    };
    for (const Row &row : {Row{0, "令和 09年11月21日", "09"}, Row{4, "令和 09年11月21日", "09"},
                           Row{7, "令和 08年12月21日", "12"}, Row{10, "令和 08年11月22日", "22"}}) {
        CAPTURE(row.cursor);
        box.edit.setValue(day(2026, 11, 21));
        box.edit.setCursorPosition(row.cursor);
        box.key(Qt::Key_Up);
        CHECK(box.shown() == row.shown);
        CHECK(box.selected() == row.selected);
        box.key(Qt::Key_Down);
        CHECK(box.shown() == "令和 08年11月21日");
    }
}

TEST_CASE("page up and page down step the month, and a day missing in the new month becomes its last")
{
    Box box;
    box.edit.setValue(day(2026, 3, 31));
    box.key(Qt::Key_PageUp);
    CHECK(box.shown() == "令和 08年02月28日");
    box.key(Qt::Key_PageDown);
    CHECK(box.shown() == "令和 08年03月28日");
}

TEST_CASE("Ctrl+; enters today, in a box for months the first day of today's month")
{
    Box box;
    box.key(Qt::Key_Semicolon, Qt::ControlModifier);
    CHECK(box.edits.back() == Variant(day(2026, 11, 20)));
    Box month("ggg ee年mm月");
    month.key(Qt::Key_Semicolon, Qt::ControlModifier);
    CHECK(month.edits.back() == Variant(day(2026, 11, 1)));
    CHECK(month.shown() == "令和 08年11月");
}

TEST_CASE("an arrow key in an empty box enters today")
{
    Box box;
    box.edit.setValue(Null{});
    box.key(Qt::Key_Up);
    CHECK(box.shown() == "令和 08年11月20日");
}

TEST_CASE("the calendar shows the era and the western year, and the return key picks the selected day")
{
    Box box;
    CalendarPopup &calendar = openCalendar(box);
    auto *title = calendar.findChild<QLabel *>("calendarTitle");
    auto *days = calendar.findChild<QCalendarWidget *>();
    CHECK(fromQt(title->text()) == "令和8年（2026年）11月");
    days->setSelectedDate(QDate(2019, 4, 30));
    CHECK(fromQt(title->text()) == "平成31年（2019年）4月");
    QTest::keyClick(days->focusProxy() != nullptr ? days->focusProxy()
                                                  : days->findChild<QWidget *>("qt_calendar_calendarview"),
                    Qt::Key_Return);
    CHECK(box.shown() == "平成 31年04月30日");
    CHECK(box.edits.back() == Variant(day(2019, 4, 30)));
}

TEST_CASE("the button below the calendar picks today, by mouse and by key")
{
    Box box;
    QTest::mouseClick(openCalendar(box).findChild<QPushButton *>("calendarToday"), Qt::LeftButton);
    CHECK(box.edits.back() == Variant(day(2026, 11, 20)));
    box.edit.setValue(day(2026, 3, 1));
    auto *today = openCalendar(box).findChild<QPushButton *>("calendarToday");
    CHECK(fromQt(today->text()) == "今日");
    QTest::keyClick(today, Qt::Key_Return);
    CHECK(box.shown() == "令和 08年11月20日");
}

TEST_CASE("a box for months opens the months of the year, and a click picks one")
{
    Box box("ggg ee年mm月");
    QFrame &months = openPopup(box);
    CHECK(fromQt(months.findChild<QLabel *>("calendarTitle")->text()) == "令和8年（2026年）");
    CHECK(fromQt(months.findChild<QPushButton *>("calendarToday")->text()) == "今月");
    CHECK(months.findChild<QToolButton *>("month11")->isChecked());
    QTest::mouseClick(months.findChild<QToolButton *>("month4"), Qt::LeftButton);
    CHECK(box.shown() == "令和 08年04月");
    CHECK(box.edits.back() == Variant(day(2026, 4, 1)));
}

TEST_CASE("the months are picked by the arrow keys, over the end of the year too")
{
    Box box("ggg ee年mm月");
    QFrame &months = openPopup(box);
    const auto key = [&](Qt::Key code) { QTest::keyClick(months.focusProxy(), code); };
    key(Qt::Key_Right);
    CHECK(months.focusProxy()->objectName() == "month12");
    key(Qt::Key_Right);
    CHECK(fromQt(months.findChild<QLabel *>("calendarTitle")->text()) == "令和9年（2027年）");
    key(Qt::Key_Down);
    key(Qt::Key_PageUp);
    key(Qt::Key_Return);
    CHECK(box.edits.back() == Variant(day(2026, 5, 1)));
}

TEST_CASE("the months before the first era cannot be picked")
{
    Box box("ggg ee年mm月");
    box.edit.setValue(day(1868, 2, 1));
    QFrame &months = openPopup(box);
    CHECK_FALSE(months.findChild<QToolButton *>("month1")->isEnabled());
    CHECK(months.findChild<QToolButton *>("month2")->isEnabled());
    QTest::keyClick(months.focusProxy(), Qt::Key_PageUp);
    CHECK(fromQt(months.findChild<QLabel *>("calendarTitle")->text()) == "明治元年（1868年）");
    QTest::keyClick(months.focusProxy(), Qt::Key_Left);
    QTest::keyClick(months.focusProxy(), Qt::Key_Return);
    CHECK(box.edits.empty());
    CHECK(box.shown() == "明治 01年02月");
}

TEST_CASE("the button below the months picks the first day of this month")
{
    Box box("ggg ee年mm月");
    box.edit.setValue(day(2019, 4, 1));
    QTest::mouseClick(openPopup(box).findChild<QPushButton *>("calendarToday"), Qt::LeftButton);
    CHECK(box.edits.back() == Variant(day(2026, 11, 1)));
}

TEST_CASE("escape closes the calendar and changes nothing")
{
    Box box;
    const QPointer<CalendarPopup> calendar(&openCalendar(box));
    QTest::keyClick(calendar->findChild<QWidget *>("qt_calendar_calendarview"), Qt::Key_Escape);
    QTest::qWait(0);
    CHECK((calendar.isNull() || !calendar->isVisible()));
    CHECK(box.shown() == "令和 08年11月21日");
    CHECK(box.edits.empty());
}

TEST_CASE("a million characters dropped into a date box leave a short, highlighted text")
{
    Box box;
    box.enter(std::string(1000000, 'x').c_str());
    CHECK(box.edit.text().size() == 64);
    CHECK_FALSE(box.edit.complaint().empty());
}

TEST_CASE("a date box accepts an input method and needs no Latin keyboard")
{
    const Box box;
    CHECK(box.edit.inputMethodQuery(Qt::ImEnabled).toBool());
}
