#include "viewer/window/window_world.h"

#include <QApplication>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTest>
#include <QTimer>
#include <doctest/doctest.h>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

struct Dialog {
    TempFolder folder;
    ViewerSettings settings{QString::fromStdString(folder / "settings.ini")};
    LetterTicks ticks{9};
    std::vector<PrinterChoice> printers{{QStringLiteral("一階"), {}, false, QPrinter::DuplexNone},
                                        {QStringLiteral("二階"), {}, true, QPrinter::DuplexLongSide}};
    PrintDialog dialog{ticks, settings, printers};

    template <class Widget> Widget *find(const char *name) { return dialog.findChild<Widget *>(QLatin1String(name)); }
};

} // namespace

TEST_CASE("the dialog preselects the default printer, its own sides, one copy and one job")
{
    Dialog world;
    const PrintOrder order = world.dialog.order();
    CHECK(order.printer == QStringLiteral("二階"));
    CHECK(order.copies == 1);
    CHECK(order.duplex == QPrinter::DuplexLongSide);
    CHECK(order.lettersPerJob == 0);
    CHECK(order.offset == PrinterOffset{});
}

TEST_CASE("the sides follow the chosen printer until the user chooses them")
{
    Dialog world;
    world.find<QComboBox>("printer")->setCurrentIndex(0);
    CHECK(world.dialog.order().duplex == QPrinter::DuplexNone);
    world.find<QComboBox>("duplex")->setCurrentIndex(3);
    CHECK(world.dialog.order().duplex == QPrinter::DuplexShortSide);
}

TEST_CASE("an offset is remembered for its printer")
{
    Dialog world;
    world.find<QDoubleSpinBox>("offsetRight")->setValue(1.5);
    world.find<QDoubleSpinBox>("offsetDown")->setValue(-0.3);
    CHECK(world.dialog.order().offset == PrinterOffset{15, -3});
    world.find<QPushButton>("printNow")->click();
    PrintDialog again(world.ticks, world.settings, world.printers);
    CHECK(again.order().printer == QStringLiteral("二階"));
    CHECK(again.order().offset == PrinterOffset{15, -3});
    again.findChild<QComboBox *>(QStringLiteral("printer"))->setCurrentIndex(0);
    CHECK(again.order().offset == PrinterOffset{});
}

TEST_CASE("the number of letters per job is remembered")
{
    Dialog world;
    world.find<QRadioButton>("manyJobs")->setChecked(true);
    world.find<QSpinBox>("lettersPerJob")->setValue(20);
    world.find<QPushButton>("printNow")->click();
    PrintDialog again(world.ticks, world.settings, world.printers);
    CHECK(again.order().lettersPerJob == 20);
}

namespace {

/// Sends keys to the focused widget.
void typeText(const char *text)
{
    for (; *text != 0; ++text) QTest::keyClick(QApplication::focusWidget(), *text);
}

struct ActiveDialog : Dialog {
    ActiveDialog()
    {
        dialog.show();
        REQUIRE(QTest::qWaitForWindowActive(&dialog));
    }
};

} // namespace

TEST_CASE("a number typed right after Alt+M and Tab sets the letters per job")
{
    ActiveDialog world;
    QTest::keyClick(world.dialog.windowHandle(), Qt::Key_M, Qt::AltModifier);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    typeText("100");
    CHECK(world.dialog.order().lettersPerJob == 100);
    CHECK(world.dialog.order().offset == PrinterOffset{});
    // The access key presses the option and releases it a little later.
    const auto *const manyJobs = world.find<QRadioButton>("manyJobs");
    REQUIRE(QTest::qWaitFor([&] { return !manyJobs->isDown(); }));
    CHECK(world.dialog.order().lettersPerJob == 100);
}

TEST_CASE("a number entered into the box of letters per job selects separate jobs")
{
    for (const char *number : {"7", "50"}) {
        CAPTURE(number);
        Dialog world;
        auto *const box = world.find<QSpinBox>("lettersPerJob");
        CHECK(box->isEnabled());
        box->selectAll();
        QTest::keyClicks(box, QLatin1String(number));
        CHECK(world.find<QRadioButton>("manyJobs")->isChecked());
        CHECK(world.dialog.order().lettersPerJob == std::stoul(number));
    }
    Dialog world;
    QTest::keyClick(world.find<QSpinBox>("lettersPerJob"), Qt::Key_Up);
    CHECK(world.dialog.order().lettersPerJob == 51);
}

TEST_CASE("the wheel over the box of letters per job changes nothing without the focus")
{
    Dialog world;
    auto *const box = world.find<QSpinBox>("lettersPerJob");
    const QPointF middle = box->rect().center();
    QWheelEvent turn(middle, box->mapToGlobal(middle), {}, {0, 120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                     false);
    QApplication::sendEvent(box, &turn);

    CHECK(box->value() == 50);
    CHECK(world.find<QRadioButton>("oneJob")->isChecked());
}

TEST_CASE("the Tab key follows the order of the boxes on the screen")
{
    ActiveDialog world;
    std::vector<std::string> names;
    std::vector<QPoint> places;
    for (int i = 0; i < 14; ++i) {
        QWidget *const widget = QApplication::focusWidget();
        names.push_back(widget->objectName().toStdString());
        places.push_back(widget->mapTo(&world.dialog, widget->rect().center()));
        QTest::keyClick(widget, Qt::Key_Tab);
    }
    CHECK(names == std::vector<std::string>{"printer", "copies", "duplex", "tray", "rangeBox", "oneJob",
                                            "lettersPerJob", "reversed", "letterSort", "bundleCovers", "offsetRight",
                                            "offsetDown", "rulerPage", "printNow"});
    constexpr int kSameRow = 8; // boxes in one row differ slightly in their vertical position
    for (std::size_t i = 1; i < places.size(); ++i) {
        CAPTURE(names[i]);
        const int below = places[i].y() - places[i - 1].y();
        CHECK((below > kSameRow || (std::abs(below) <= kSameRow && places[i].x() > places[i - 1].x())));
    }
}

TEST_CASE("the dialog does not print while its box cannot be read")
{
    Dialog world;
    world.dialog.show();
    auto *const box = world.find<QLineEdit>("rangeBox");
    box->setText({});
    QTest::keyClicks(box, QStringLiteral("3-"));
    QTest::keyClicks(box, QStringLiteral("x"));
    world.find<QPushButton>("printNow")->click();
    CHECK(world.dialog.isVisible());
    CHECK(world.find<QLabel>("rangeFault")->text() == QStringLiteral("番号の指定「3-x」は読めません。例：1-3,5"));
    // The refusal has selected the whole text.
    QTest::keyClick(box, Qt::Key_End);
    QTest::keyClick(box, Qt::Key_Backspace);
    CHECK(world.ticks.text() == "3-9");
    world.find<QPushButton>("printNow")->click();
    CHECK(!world.dialog.isVisible());
    CHECK(world.dialog.result() == QDialog::Accepted);
}

TEST_CASE("without a letter or a printer the dialog cannot print and shows a remedy")
{
    Dialog world;
    QTest::keyClick(world.find<QLineEdit>("rangeBox"), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(world.find<QLineEdit>("rangeBox"), Qt::Key_Delete);
    CHECK(!world.find<QPushButton>("printNow")->isEnabled());
    LetterTicks ticks(3);
    PrintDialog none(ticks, world.settings, {});
    none.show();
    CHECK(!none.findChild<QPushButton *>(QStringLiteral("printNow"))->isEnabled());
    CHECK(none.findChild<QLabel *>(QStringLiteral("printNote"))->isVisible());
    for (const char *list : {"printer", "tray"}) {
        CHECK(world.find<QComboBox>(list)->isEnabled());
        CHECK(!none.findChild<QComboBox *>(QLatin1String(list))->isEnabled());
    }
    CHECK(none.order().printer.isEmpty());
}

TEST_CASE("the ruler page is printed with the offset in the boxes")
{
    Dialog world;
    std::vector<PrintOrder> orders;
    world.dialog.onRulerPage = [&](const PrintOrder &order) {
        orders.push_back(order);
        return std::string("だめ");
    };
    world.find<QDoubleSpinBox>("offsetDown")->setValue(2.5);
    world.dialog.show();
    world.find<QPushButton>("rulerPage")->click();
    REQUIRE(orders.size() == 1);
    CHECK(orders[0].offset == PrinterOffset{0, 25});
    CHECK(world.find<QLabel>("printNote")->text() == QStringLiteral("だめ"));
    CHECK(world.dialog.isVisible());
}

TEST_CASE("a script that requests the print dialog opens it first, and the window closes after printing")
{
    WindowWorld world(differentRows(3));
    world.openWindow();
    bool wasOpen = false;
    QTimer::singleShot(50, world.window.get(), [&] {
        auto *const dialog = world.window->findChild<QDialog *>(QStringLiteral("printDialog"));
        REQUIRE(dialog != nullptr);
        wasOpen = true;
        dialog->findChild<QPushButton *>(QStringLiteral("printNow"))->click();
    });
    world.window->start();
    const bool isClosed = QTest::qWaitFor([&] { return !world.window->isVisible(); });
    CHECK(wasOpen);
    CHECK(pageCount(world.jobPath(0)) == 3);
    CHECK(isClosed);
}

TEST_CASE("cancelling the dialog leaves the letters on the screen")
{
    WindowWorld world(differentRows(3));
    world.openWindow();
    QTimer::singleShot(50, world.window.get(),
                       [&] { world.window->findChild<QDialog *>(QStringLiteral("printDialog"))->reject(); });
    world.window->start();
    QTest::qWait(200);
    CHECK(world.jobs == 0);
    CHECK(world.window->isVisible());
}

namespace {

/// Replaces the last line of the window's script.
void endScriptWith(const WindowWorld &world, const std::string &line)
{
    const std::string script = bytesOf(world.script);
    const std::string dialog = "PrintOutFromDialog";
    writeBytes(world.script, script.substr(0, script.find(dialog)) + line + "\r\n");
}

} // namespace

TEST_CASE("a script that requests a print prints without a question, with the remembered settings")
{
    WindowWorld world(differentRows(3));
    endScriptWith(world, "PrintOut");
    {
        ViewerSettings settings(QString::fromStdString(world.folder / "settings.ini"));
        settings.setOffset(QStringLiteral("紙"), {5, -5});
        REQUIRE(settings.save());
    }
    world.openWindow();
    world.window->start();
    CHECK(QTest::qWaitFor([&] { return !world.window->isVisible(); }));
    REQUIRE(world.orders.size() == 1);
    CHECK(world.orders[0].offset == PrinterOffset{5, -5});
    CHECK(pageCount(world.jobPath(0)) == 3);
}

TEST_CASE("a print without any printer is reported and leaves the letters on the screen")
{
    WindowWorld world(differentRows(3));
    endScriptWith(world, "PrintOut");
    world.printers.clear();
    world.openWindow();
    world.window->start();
    CHECK(QTest::qWaitFor([&] { return !world.messages.empty(); }));
    CHECK(world.messages ==
          std::vector<QString>{QStringLiteral("使えるプリンターがありません。PDF に保存することはできます。")});
    CHECK(world.window->isVisible());
}

TEST_CASE("a script that requests a preview opens only the window")
{
    WindowWorld world(differentRows(3));
    endScriptWith(world, "ShowWindow,2");
    world.openWindow();
    world.window->start();
    QTest::qWait(100);
    CHECK(world.window->findChild<QDialog *>(QStringLiteral("printDialog")) == nullptr);
    CHECK(world.jobs == 0);
    CHECK(world.window->isVisible());
}
