#include "adapters/qt/qt_window_set.h"
#include "adapters/qt/theme.h"

#include <doctest/doctest.h>

#include <QApplication>

using namespace inin;
using namespace inin::qt;

namespace {

/// Restores the application's palette at the end of a test.
class PaletteForNow {
public:
    explicit PaletteForNow(const QPalette &palette) : m_before(QApplication::palette()) { change(palette); }
    PaletteForNow(const PaletteForNow &) = delete;
    PaletteForNow &operator=(const PaletteForNow &) = delete;
    ~PaletteForNow() { change(m_before); }
    static void change(const QPalette &palette)
    {
        QApplication::setPalette(palette);
        QApplication::processEvents();
    }

private:
    QPalette m_before;
};

} // namespace

TEST_CASE("coloured controls follow a desktop that turns dark and light again while the program runs")
{
    const WindowSet set;
    const PaletteForNow now(QApplication::palette());
    const auto colour = [&] { return set.print->widget("btnPrint(0)").palette().color(QPalette::Button); };
    const QColor light = colour();
    REQUIRE(light == QColor("#d0fbd0"));
    PaletteForNow::change(darkPalette());
    CHECK(colour().lightness() < 100);
    CHECK(colour().green() > colour().red());
    PaletteForNow::change(QPalette(QColor("#f6f6f6")));
    CHECK(colour() == light);
}
