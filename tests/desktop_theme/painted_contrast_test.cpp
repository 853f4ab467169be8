// The contrast of painted widgets, light and dark, by the pixels.

#include "desktop_theme/theme.h"
#include "support/rendered_contrast.h"

#include <doctest/doctest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QVBoxLayout>
#include <QtTest/QTest>

#include <string>

using namespace inin;
using namespace inin::theme;

namespace {

constexpr double kText = 4.5, kDisabled = 3, kMark = 3;

/// Calls a test with the desktop's palette, which is light, and with the dark one.
template <class Test> void onBothDesktops(Test test)
{
    const QPalette light = QApplication::palette();
    REQUIRE_FALSE(isDark(light));
    for (const QPalette &palette : {light, darkPalette()}) {
        const PaletteForNow now(palette);
        CAPTURE(isDark(palette));
        test();
    }
}

/// A window that is shown and active, with one widget.
template <class Widget> struct Shown {
    template <class... Arguments> explicit Shown(Arguments &&...arguments)
    {
        widget = new Widget(std::forward<Arguments>(arguments)...);
        (new QVBoxLayout(&window))->addWidget(widget); // owned by the window
        window.show();
        REQUIRE(QTest::qWaitForWindowActive(&window));
    }
    QWidget window;
    Widget *widget;
};

const QString kWords = QString::fromUtf8("利用者を対象");

void checkMark(QAbstractButton &button, QStyle::SubElement element)
{
    for (const bool isOn : {false, true})
        for (const bool isEnabled : {true, false}) {
            button.setChecked(isOn);
            button.setEnabled(isEnabled);
            CAPTURE(isOn);
            CAPTURE(isEnabled);
            const QImage image = paintedImage(*button.window());
            QRect place = indicatorRect(button, element);
            place.moveTopLeft(button.mapTo(button.window(), place.topLeft()));
            CHECK(paintedContrast(image, place) >= kMark);
            // Only the mark, without the outline.
            if (isOn) CHECK(paintedContrast(image, place.adjusted(5, 5, -5, -5)) >= kMark);
        }
}

/// The highest contrast to the window's colour among the outermost pixels of a box, from a place at its side inwards.
double edgeContrast(const QImage &image, QPoint place, QPoint inwards, const QColor &window)
{
    constexpr int kDepth = 2; // pixels of a picture at 100 %
    double highest = 1;
    for (int step = 0; step < kDepth * image.devicePixelRatio(); ++step, place += inwards)
        highest = std::max(highest, contrastRatio(QColor(image.pixel(place)), window));
    return highest;
}

} // namespace

TEST_CASE("the text of a selected row has a contrast of at least 4.5, in an inactive window too")
{
    onBothDesktops([] {
        Shown<QListWidget> list;
        list.widget->addItems({kWords, kWords});
        list.widget->setCurrentRow(0);
        const auto rowContrast = [&] {
            return paintedContrast(paintedImage(*list.widget->viewport()),
                                   list.widget->visualItemRect(list.widget->item(0)).adjusted(1, 2, -1, -2));
        };
        CHECK(rowContrast() >= kText);
        QWidget other;
        other.show();
        REQUIRE(QTest::qWaitForWindowActive(&other));
        CHECK(rowContrast() >= kText);
    });
}

TEST_CASE("selected text in a box has a contrast of at least 4.5")
{
    onBothDesktops([] {
        Shown<QLineEdit> box(kWords + kWords + kWords);
        box.widget->setFocus();
        box.widget->selectAll();
        CHECK(paintedContrast(paintedImage(*box.widget), box.widget->rect().adjusted(4, 5, -40, -5)) >= kText);
    });
}

TEST_CASE("disabled text has a contrast of at least 3 and less than enabled text")
{
    onBothDesktops([] {
        const auto check = [](QWidget &widget) {
            CAPTURE(std::string(widget.metaObject()->className()));
            const auto contrast = [&] {
                return paintedContrast(
                    paintedImage(*widget.window()),
                    QRect(widget.mapTo(widget.window(), QPoint(20, 4)), widget.size() - QSize(40, 8)));
            };
            widget.setEnabled(true);
            const double enabled = contrast();
            widget.setEnabled(false);
            CHECK(contrast() >= kDisabled);
            CHECK(contrast() < enabled);
        };
        check(*Shown<QLabel>(kWords + kWords).widget);
        check(*Shown<QLineEdit>(kWords + kWords).widget);
        check(*Shown<QRadioButton>(kWords).widget);
        check(*Shown<QCheckBox>(kWords).widget);
        check(*Shown<QPushButton>(kWords).widget);
        Shown<QComboBox> list;
        list.widget->addItem(kWords);
        check(*list.widget);
    });
}

TEST_CASE("options and check boxes have an outline and a mark with a contrast of at least 3, disabled ones too")
{
    onBothDesktops([] {
        Shown<QRadioButton> option;
        checkMark(*option.widget, QStyle::SE_RadioButtonIndicator);
        Shown<QCheckBox> box;
        checkMark(*box.widget, QStyle::SE_CheckBoxIndicator);
    });
}

TEST_CASE("the edges of a box for text have a contrast of at least 3 to the window on each side, with the focus too")
{
    onBothDesktops([] {
        const auto check = [](QWidget &widget) {
            CAPTURE(std::string(widget.metaObject()->className()));
            auto *other = new QPushButton(widget.window()); // owned by the window
            widget.window()->layout()->addWidget(other);
            other->show();
            QApplication::processEvents();
            for (QWidget *focused : {static_cast<QWidget *>(other), &widget}) {
                focused->setFocus(Qt::OtherFocusReason);
                QApplication::processEvents();
                REQUIRE(focused->hasFocus());
                CAPTURE(widget.hasFocus());
                const QImage image = paintedImage(widget);
                const QColor window = widget.palette().color(QPalette::Window);
                const int middleX = image.width() / 3, middleY = image.height() / 2;
                const int right = image.width() - 1, bottom = image.height() - 1;
                CHECK(edgeContrast(image, {0, middleY}, {1, 0}, window) >= kMark);
                CHECK(edgeContrast(image, {right, middleY}, {-1, 0}, window) >= kMark);
                CHECK(edgeContrast(image, {middleX, 0}, {0, 1}, window) >= kMark);
                CHECK(edgeContrast(image, {middleX, bottom}, {0, -1}, window) >= kMark);
            }
        };
        check(*Shown<QLineEdit>().widget);
        check(*Shown<QSpinBox>().widget);
        check(*Shown<QDoubleSpinBox>().widget);
        check(*Shown<QComboBox>().widget);
        check(*Shown<QListWidget>().widget);
    });
}

TEST_CASE("the focus is visible without the tab key, on a list without a selection too")
{
    onBothDesktops([] {
        const auto check = [](QWidget &widget) {
            CAPTURE(std::string(widget.metaObject()->className()));
            QWidget &window = *widget.window();
            auto *other = new QPushButton(&window); // owned by the window
            window.layout()->addWidget(other);
            other->show();
            QApplication::processEvents();
            other->setFocus();
            const QImage without = paintedImage(widget);
            widget.setFocus(Qt::OtherFocusReason);
            QApplication::processEvents();
            const QImage with = paintedImage(widget);
            REQUIRE(with.size() == without.size());
            double highest = 1;
            for (int y = 0; y < with.height(); ++y)
                for (int x = 0; x < with.width(); ++x)
                    highest = std::max(highest, contrastRatio(QColor(with.pixel(x, y)), QColor(without.pixel(x, y))));
            CHECK(highest >= kMark);
        };
        check(*Shown<QRadioButton>(kWords).widget);
        check(*Shown<QCheckBox>(kWords).widget);
        check(*Shown<QPushButton>(kWords).widget);
        check(*Shown<QLineEdit>().widget);
        check(*Shown<QSpinBox>().widget);
        check(*Shown<QComboBox>().widget);
        check(*Shown<QListWidget>().widget);
    });
}
