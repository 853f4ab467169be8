#include "adapters/qt/qt_window_set.h"
#include "desktop_theme/theme.h"
#include "support/rendered_contrast.h"

#include <doctest/doctest.h>

#include <QApplication>

using namespace inin;
using namespace inin::qt;

TEST_CASE("coloured controls follow a desktop that turns dark and light again while the program runs")
{
    const WindowSet set;
    const PaletteForNow now(QApplication::palette());
    const auto colour = [&] { return set.print->widget("btnPrint(0)").palette().color(QPalette::Button); };
    const QColor light = colour();
    REQUIRE(light == QColor("#d0fbd0"));
    PaletteForNow::change(theme::darkPalette());
    CHECK(colour().lightness() < 100);
    CHECK(colour().green() > colour().red());
    PaletteForNow::change(QPalette(QColor("#f6f6f6")));
    CHECK(colour() == light);
}
