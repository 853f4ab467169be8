// The size of the windows on the screen, at the scale set by QT_SCALE_FACTOR. The test suite "screens" also runs on the
// screens that CMakeLists.txt lists.

#include "adapters/qt/qt_window_set.h"

#include <doctest/doctest.h>

#include <QApplication>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyle>
#include <QtTest/QTest>

using namespace inin;
using namespace inin::qt;

TEST_CASE("no window is larger than its screen, and its top left corner is on the screen")
{
    bool fillsScreen = false;
    forEachWindow([&](FormWindow &window) {
        window.open();
        const QRect room = window.screen()->availableGeometry();
        CAPTURE(window.objectName().toStdString());
        CHECK(window.width() <= room.width());
        CHECK(window.height() <= room.height());
        CHECK(room.contains(window.frameGeometry().topLeft()));
        fillsScreen = fillsScreen || window.width() == room.width();
    });
    // The search windows need more than the small screen of the tests.
    CHECK(fillsScreen);
}

TEST_CASE("a window that scrolls vertically does not scroll horizontally if the screen is wide enough")
{
    forEachWindow([&](FormWindow &window) {
        window.open();
        const QWidget &content = window.content();
        const int bar = window.style()->pixelMetric(QStyle::PM_ScrollBarExtent);
        const int needed = content.minimumSizeHint().expandedTo(content.minimumSize()).width() + bar;
        if (needed > window.screen()->availableGeometry().width()) return;
        QApplication::processEvents();
        CAPTURE(window.objectName().toStdString());
        CHECK(window.findChild<QScrollArea *>()->horizontalScrollBar()->maximum() == 0);
    });
}

TEST_SUITE_BEGIN("screens");

namespace {

bool isWhole(const QWidget &widget)
{
    return widget.visibleRegion().boundingRect() == widget.rect();
}

/// The screens of the ordinary test runs are smaller than any that the program supports.
bool isTooSmall()
{
    constexpr int kLeastWidth = 960; // logical pixels, of 1920 at 200 %
    return QApplication::primaryScreen()->availableGeometry().width() < kLeastWidth;
}

} // namespace

TEST_CASE("the conditions screen with its title bar fits on the screen, and its command buttons are whole")
{
    if (isTooSmall()) return;
    const WindowSet set;
    FormWindow &window = *set.print;
    window.open();
    constexpr int kTitleBar = 40;
    CHECK(window.height() + kTitleBar <= window.screen()->availableGeometry().height());
    CHECK(window.width() <= window.screen()->availableGeometry().width());
    for (const char *command : {"btnPrint(0)", "btnPrint(1)", "btnPrint(6)"}) {
        CAPTURE(command);
        CHECK(isWhole(window.widget(command)));
    }
}

TEST_CASE("every control of the conditions screen is whole when it has the focus")
{
    if (isTooSmall()) return;
    const WindowSet set;
    FormWindow &window = *set.print;
    window.open();
    int seen = 0;
    for (const Control *control : window.form().controls()) {
        const QWidget *widget = window.mirror().widgetOf(*control);
        if (widget == nullptr || control->TabIndex < 0 || !widget->isVisible() || !widget->isEnabled()) continue;
        window.moveFocus(*control);
        QApplication::processEvents();
        CAPTURE(control->name());
        CHECK(isWhole(*widget));
        ++seen;
    }
    CHECK(seen > 20);
}

TEST_CASE("a click on a partly hidden option selects it, and the next key shows it whole")
{
    if (isTooSmall()) return;
    const WindowSet set;
    FormWindow &window = *set.print;
    window.open();
    REQUIRE(QTest::qWaitForWindowActive(&window));
    QWidget &option = window.widget("optSyomei(0)");
    const int middle = option.mapTo(&window, option.rect().center()).y();
    const QScrollArea &area = *window.findChild<QScrollArea *>();
    const int bar = window.style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    window.setFixedSize(window.width() + bar, window.height() - (area.geometry().bottom() - middle));
    QApplication::processEvents();
    REQUIRE_FALSE(option.visibleRegion().isEmpty());
    REQUIRE_FALSE(isWhole(option));
    REQUIRE_FALSE(set.printForm.optSyomei(0).Value);

    // Through the window, as the system sends it: a press that scrolls moves the option away from the release.
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, option.mapTo(&window, QPoint(8, 4)));
    CHECK(set.printForm.optSyomei(0).Value);
    CHECK_FALSE(isWhole(option));

    QTest::keyClick(&option, Qt::Key_Space);
    CHECK(isWhole(option));
}

TEST_CASE("the list and the command buttons of the search windows are whole")
{
    if (isTooSmall()) return;
    const WindowSet set;
    for (FormWindow *window : {set.patient.get(), set.staff.get()}) {
        window->open();
        QApplication::processEvents();
        for (const char *control : {"spr_1ran", "but_Read", "but_Act(0)", "but_Act(1)"}) {
            CAPTURE(control);
            CHECK(isWhole(window->widget(control)));
        }
    }
}

TEST_SUITE_END();
