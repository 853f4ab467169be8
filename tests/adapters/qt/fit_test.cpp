// Windows and the room that a screen has for them, at whatever scale QT_SCALE_FACTOR says.

#include "adapters/qt/qt_window_set.h"

#include <doctest/doctest.h>

#include <QScreen>

using namespace inin;

TEST_CASE("no window is larger than its screen, and its corner stands on it")
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
    // The search windows want more than the small screen of the tests has.
    CHECK(fillsScreen);
}
