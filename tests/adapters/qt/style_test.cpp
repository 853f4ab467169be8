// The layout and the colours of the windows; the test program runs at several scales, set by QT_SCALE_FACTOR.

#include "adapters/qt/control_colours.h"
#include "adapters/qt/grid_view.h"
#include "adapters/qt/qt_window_set.h"
#include "adapters/qt/units.h"
#include "desktop_theme/contrast.h"
#include "desktop_theme/theme.h"
#include "support/rendered_contrast.h"

#include <doctest/doctest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QTableView>
#include <QToolButton>
#include <QtTest/QTest>

using namespace inin;
using namespace inin::qt;
using namespace inin::theme;

namespace {

bool showsText(const QWidget &widget)
{
    // A tool button has no text here: it is the icon in a date box.
    if (qobject_cast<const QToolButton *>(&widget) != nullptr) return false;
    return qobject_cast<const QAbstractButton *>(&widget) != nullptr ||
           qobject_cast<const QLabel *>(&widget) != nullptr || qobject_cast<const QGroupBox *>(&widget) != nullptr ||
           dynamic_cast<const DateEdit *>(&widget) != nullptr;
}

/// True for text of unlimited width: it is shown in full elsewhere.
bool mayBeCut(const QWidget &widget)
{
    return widget.objectName() == "lbl_1ranInf" || widget.objectName() == "lbl_SelKanja";
}

/// The size that the text and its icon need. A style would prefer wider push buttons.
QSize needOf(const QWidget &widget)
{
    constexpr int kMargin = 8;
    const auto *button = qobject_cast<const QPushButton *>(&widget);
    if (button == nullptr)
        return {widget.sizeHint().width(), std::min(widget.sizeHint().height(), widget.minimumSizeHint().height())};
    const int icon = button->icon().isNull() ? 0 : button->iconSize().width() + 4;
    return {widget.fontMetrics().horizontalAdvance(button->text()) + icon + kMargin, widget.fontMetrics().height()};
}

void checkNothingIsCut(const FormWindow &window)
{
    for (const QWidget *widget : window.findChildren<QWidget *>()) {
        if (!showsText(*widget) || !widget->isVisibleTo(&window) || mayBeCut(*widget)) continue;
        CAPTURE(window.objectName().toStdString());
        CAPTURE(widget->objectName().toStdString());
        CHECK(widget->width() >= needOf(*widget).width());
        CHECK(widget->height() >= needOf(*widget).height());
    }
}

void checkContrast(FormWindow &window)
{
    constexpr double kReadable = 4.5;
    for (const QWidget *widget : window.findChildren<QWidget *>()) {
        if (!showsText(*widget) || !widget->isVisible() || !widget->isEnabled()) continue;
        const bool isButton = qobject_cast<const QAbstractButton *>(widget) != nullptr;
        const QPalette &palette = widget->palette();
        CAPTURE(widget->objectName().toStdString());
        CHECK(contrastRatio(palette.color(isButton ? QPalette::ButtonText : QPalette::WindowText),
                            palette.color(isButton ? QPalette::Button : QPalette::Window)) > kReadable);
    }
}

} // namespace

TEST_CASE("no text is cut at this scale")
{
    forEachWindow([](FormWindow &window) { checkNothingIsCut(window); });
}

TEST_CASE("no widget overlaps another one, and each stays within its frame")
{
    forEachWindow([](FormWindow &window) {
        if (window.objectName() == "frmWaitMsg") return; // its pictures overlap on purpose
        std::vector<QWidget *> seen;
        for (Control *control : window.form().controls()) {
            QWidget *widget = window.mirror().widgetOf(*control);
            if (widget == nullptr || !widget->isVisibleTo(&window)) continue;
            CAPTURE(control->name());
            if (widget->parentWidget() != &window.content())
                CHECK(widget->parentWidget()->rect().contains(widget->geometry()));
            for (const QWidget *other : seen)
                if (other->parentWidget() == widget->parentWidget())
                    CHECK_FALSE(other->geometry().intersects(widget->geometry()));
            seen.push_back(widget);
        }
    });
}

TEST_CASE("every usable control has an accessible name")
{
    forEachWindow([](FormWindow &window) {
        for (Control *control : window.form().controls()) {
            QWidget *widget = window.mirror().widgetOf(*control);
            if (widget == nullptr || control->TabIndex < 0) continue;
            CAPTURE(control->name());
            QAccessibleInterface *spoken = QAccessible::queryAccessibleInterface(widget);
            REQUIRE(spoken != nullptr);
            CHECK_FALSE(spoken->text(QAccessible::Name).isEmpty());
        }
    });
}

TEST_CASE("text boxes accept an input method")
{
    forEachWindow([](FormWindow &window) {
        for (const QLineEdit *box : window.findChildren<QLineEdit *>()) {
            CAPTURE(box->objectName().toStdString());
            CHECK(box->testAttribute(Qt::WA_InputMethodEnabled));
        }
    });
}

TEST_CASE("all text is readable on a light desktop and on a dark one")
{
    const QPalette light = QApplication::palette();
    REQUIRE_FALSE(isDark(light));
    forEachWindow(checkContrast);
    QApplication::setPalette(darkPalette());
    forEachWindow(checkContrast);
    QApplication::setPalette(light);
}

TEST_CASE("greyed text and marks of the conditions screen have a contrast of at least 3")
{
    const QPalette light = QApplication::palette();
    for (const QPalette &palette : {light, darkPalette()}) {
        const PaletteForNow now(palette);
        const WindowSet set;
        set.print->widgetAs<QAbstractButton>("optPrint(1)").click();
        int greyed = 0;
        for (QWidget *widget : set.print->findChildren<QWidget *>()) {
            if (!showsText(*widget) || !widget->isVisible() || widget->isEnabled()) continue;
            const auto *label = qobject_cast<const QLabel *>(widget);
            if (label != nullptr && label->text().isEmpty()) continue;
            CAPTURE(isDark(palette));
            CAPTURE(widget->objectName().toStdString());
            CHECK(paintedContrast(*widget) >= 3);
            if (qobject_cast<const QRadioButton *>(widget) != nullptr)
                CHECK(paintedContrast(paintedImage(*widget), indicatorRect(*widget, QStyle::SE_RadioButtonIndicator)) >=
                      3);
            ++greyed;
        }
        CHECK(greyed > 10);
    }
}

TEST_CASE("the selected row of a search list has a contrast of at least 4.5")
{
    const QPalette light = QApplication::palette();
    for (const QPalette &palette : {light, darkPalette()}) {
        const PaletteForNow now(palette);
        WindowSet set;
        Grid &grid = set.patientForm.spr_1ran;
        grid.setRowCount(2);
        for (std::int32_t row = 1; row <= 2; ++row) grid.setText(row, 3, "青木 一郎");
        auto &view = set.patient->widgetAs<GridView>("spr_1ran");
        view.refresh();
        view.enterByKey();
        const QRect row = view.visualRect(view.model()->index(0, 2)).adjusted(2, 2, -2, -2);
        CAPTURE(isDark(palette));
        CHECK(paintedContrast(paintedImage(*view.viewport()), row) >= 4.5);
    }
}

TEST_CASE("a control's colour is exact on a light desktop and keeps its hue on a dark one")
{
    const QPalette light = QApplication::palette();
    CHECK(themedColour(0x00C0E0FF, light)->name() == "#ffe0c0");
    CHECK(themedColour(0x00D0FBD0, light)->name() == "#d0fbd0");
    CHECK(themedColour(0x00F6F6F6, light)->name() == "#f6f6f6");
    const QPalette dark = darkPalette();
    CHECK(std::abs(themedColour(0x00C0E0FF, dark)->hslHue() - QColor("#ffe0c0").hslHue()) <= 2);
    CHECK_FALSE(themedColour(0x00F6F6F6, dark));
    CHECK_FALSE(themedColour(-1, light));
}

TEST_CASE("the inside of every frame and the centre of every command button are painted in the required colour")
{
    const WindowSet set;
    FormWindow &window = *set.print;
    const auto colourAt = [&](QWidget &widget, QPoint place) {
        const QImage painted = paintedImage(widget);
        return painted.pixelColor((QPointF(place) * painted.devicePixelRatio()).toPoint()).name();
    };
    for (const char *frame : {"Frame3", "frmObject", "fraJisseki(1)", "Frame2", "Frame1", "Frame4", "Picture1"}) {
        CAPTURE(frame);
        QWidget &widget = window.widget(frame);
        CHECK(colourAt(widget, {widget.width() - 5, widget.height() - 5}) == "#f6f6f6");
    }
    struct ButtonColour {
        const char *button;
        const char *colour;
    };
    for (const ButtonColour &row : {ButtonColour{"btnPrint(0)", "#d0fbd0"},
                                    {"btnPrint(1)", "#d0fbd0"},
                                    {"btnPrint(6)", "#d0fbd0"},
                                    {"btn_StaffSelect", "#ffe0c0"},
                                    {"btn_KanjaSelect", "#ffe0c0"}}) {
        CAPTURE(row.button);
        QWidget &widget = window.widget(row.button);
        CHECK(colourAt(widget, {5, widget.height() / 2}) == row.colour);
    }
}

TEST_CASE("the frames of the conditions screen have their position and height, the command buttons their size")
{
    struct FrameRow {
        const char *frame;
        int top, height; ///< twips
    };
    const WindowSet set;
    FormWindow &window = *set.print;
    for (const FrameRow &row :
         {FrameRow{"Frame3", 120, 1495}, FrameRow{"frmObject", 1720, 1515}, FrameRow{"fraJisseki(1)", 3280, 2985},
          FrameRow{"Frame2", 6310, 735}, FrameRow{"Frame1", 7120, 1695}, FrameRow{"Frame4", 8940, 855}}) {
        CAPTURE(row.frame);
        const QRect place = window.widget(row.frame).geometry();
        CHECK(place.top() == row.top / 15);
        CHECK(place.height() == row.height / 15);
    }
    CHECK(window.widget("Frame3").geometry().left() == 8);
    CHECK(window.widget("Frame3").width() == 453);
    // The button bar is directly below the frames, unless a low screen shows only a part of them.
    CHECK(window.content().minimumSize() == QSize(468, 9990 / 15));
    CHECK(window.widget("Picture1").height() == 1035 / 15);
    CHECK(window.widget("Picture1").y() == window.findChild<QScrollArea *>()->geometry().bottom() + 1);
    int right = 0;
    for (const char *command : {"btnPrint(0)", "btnPrint(1)", "btnPrint(6)"}) {
        CHECK(window.widget(command).size() == QSize(97, 49));
        CHECK(window.widget(command).x() > right);
        right = window.widget(command).geometry().right();
    }
}

TEST_CASE("a larger desktop font makes the frames higher instead of cutting text")
{
    const QFont usual = QApplication::font();
    QFont large = usual;
    large.setPointSizeF(usual.pointSizeF() * 1.5);
    QApplication::setFont(large);
    {
        const WindowSet set;
        checkNothingIsCut(*set.print);
        CHECK(set.print->content().minimumHeight() > 666);
    }
    QApplication::setFont(usual);
}

TEST_CASE("the command buttons describe themselves in tool tips")
{
    const WindowSet set;
    CHECK(set.print->widget("btnPrint(0)").toolTip() == QString::fromUtf8("実績一覧を印刷します。"));
    CHECK(set.print->widget("btnPrint(1)").toolTip() == QString::fromUtf8("印刷物のプレビューを表示します。"));
    CHECK(set.print->widget("btnPrint(6)").toolTip() == QString::fromUtf8("処理を終了します。"));
}

TEST_CASE("the menus show their access keys and short-cuts")
{
    const WindowSet set;
    QStringList texts;
    for (const char *entry : {"mnFunc", "mnF01", "mnF02", "mnF12", "mnHelp", "mnVer", "mnDispHelp"})
        texts.append(set.print->findChild<QAction *>(entry)->text());
    CHECK(texts == QStringList{QString::fromUtf8("機能(&F)"), QString::fromUtf8("印刷\tF1"),
                               QString::fromUtf8("ﾌﾟﾚﾋﾞｭｰ\tF2"), QString::fromUtf8("戻る\tF12"),
                               QString::fromUtf8("ヘルプ(&H)"), QString::fromUtf8("ﾊﾞｰｼﾞｮﾝ情報"),
                               QString::fromUtf8("オンラインヘルプ(&M)")});
    CHECK(set.print->findChild<QAction *>("mnKugiri")->isSeparator());
    CHECK(set.print->findChild<QAction *>("mnKugiri")->text().isEmpty());
}
