#include "viewer/window/window_world.h"

#include <QComboBox>
#include <doctest/doctest.h>

using namespace inin::viewer;
using namespace inin::viewer::test;

TEST_CASE("sides chosen for one printer are not applied to the next one")
{
    const inin::TempFolder folder;
    ViewerSettings settings(QString::fromStdString(folder / "settings.ini"));
    LetterTicks ticks(3);
    PrintDialog dialog(ticks, settings,
                       {{QStringLiteral("一階"), {}, true, QPrinter::DuplexNone},
                        {QStringLiteral("二階"), {}, false, QPrinter::DuplexLongSide}});
    dialog.findChild<QComboBox *>(QStringLiteral("duplex"))->setCurrentIndex(3);
    REQUIRE(dialog.order().duplex == QPrinter::DuplexShortSide);
    dialog.findChild<QComboBox *>(QStringLiteral("printer"))->setCurrentIndex(1);
    CHECK(dialog.order().duplex == QPrinter::DuplexLongSide);
}
