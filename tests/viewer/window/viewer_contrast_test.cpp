// The contrast of the viewer's windows, light and dark, by the painted pixels.

#include "desktop_theme/theme.h"
#include "support/rendered_contrast.h"
#include "viewer/window/window_world.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QRadioButton>
#include <QTest>
#include <QTimer>
#include <doctest/doctest.h>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

template <class Test> void onBothDesktops(Test test)
{
    const QPalette light = QApplication::palette();
    REQUIRE_FALSE(theme::isDark(light));
    for (const QPalette &palette : {light, theme::darkPalette()}) {
        const PaletteForNow now(palette);
        CAPTURE(theme::isDark(palette));
        test();
    }
}

/// The number of options and check boxes of a dialog; the contrast of each is checked.
int checkOptions(const QWidget &dialog)
{
    int count = 0;
    const auto check = [&](QWidget &widget, QStyle::SubElement element) {
        if (!widget.isVisible()) return;
        ++count;
        CAPTURE(widget.objectName().toStdString());
        CHECK(paintedContrast(paintedImage(widget), indicatorRect(widget, element)) >= 3);
    };
    for (QRadioButton *option : dialog.findChildren<QRadioButton *>()) check(*option, QStyle::SE_RadioButtonIndicator);
    for (QCheckBox *box : dialog.findChildren<QCheckBox *>()) check(*box, QStyle::SE_CheckBoxIndicator);
    return count;
}

} // namespace

TEST_CASE("the selected letter in the list has a contrast of at least 4.5")
{
    onBothDesktops([] {
        WindowWorld world(differentRows(3));
        world.openWindow();
        world.settle();
        auto *const list = world.find<QAbstractItemView>("letterList");
        REQUIRE(list != nullptr);
        const QModelIndex current = list->currentIndex();
        REQUIRE(current.isValid());
        const QRect row = list->visualRect(current).adjusted(2, 2, -2, -2);
        CHECK(paintedContrast(paintedImage(*list->viewport()), row) >= 4.5);
    });
}

TEST_CASE("the options of the print and PDF dialogs have an outline with a contrast of at least 3")
{
    onBothDesktops([] {
        WindowWorld world(differentRows(3));
        world.openWindow();
        world.settle();
        for (const char *action : {"print", "pdf"}) {
            CAPTURE(action);
            int options = 0;
            QTimer::singleShot(0, [&] {
                QWidget *const dialog = QApplication::activeModalWidget();
                if (dialog == nullptr) return;
                options = checkOptions(*dialog);
                dialog->close();
            });
            world.find<QAction>(action)->trigger();
            CHECK(QTest::qWaitFor([&] { return options > 0; }));
        }
    });
}
