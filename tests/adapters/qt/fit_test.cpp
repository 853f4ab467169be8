// The size of the windows on the screen, at the scale set by QT_SCALE_FACTOR.

#include "adapters/qt/qt_window_set.h"

#include <doctest/doctest.h>

#include <QApplication>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyle>

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
