#include "viewer/window/window_world.h"

#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QFontDatabase>
#include <QFontInfo>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <doctest/doctest.h>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

TEST_CASE("the windows use a Japanese font, large enough to distinguish 療 from 瘡")
{
    const QFont font = QApplication::font();
    CHECK(font.pointSizeF() >= 9.75);
    CHECK(QFontDatabase::writingSystems(QFontInfo(font).family()).contains(QFontDatabase::Japanese));
}

TEST_CASE("a changed file is detected at once when the user returns to the window")
{
    WindowWorld world(differentRows(2));
    world.openWindow();
    REQUIRE(QTest::qWaitForWindowActive(world.window.get()));
    writeBytes(world.folder / "委任状.csv", csvOf({ordinaryRow()}));
    // Two checks: a file that is still being written is ignored.
    for (int timer = 0; timer < 2; ++timer) {
        QEvent back(QEvent::ActivationChange);
        QApplication::sendEvent(world.window.get(), &back);
    }
    CHECK(world.find<QWidget>("noticeBar")->isVisible());
}

TEST_CASE("a form whose own text has a character that every font lacks is reported among the window's notices")
{
    const TempFolder folder;
    writeBytes(folder / "f.svg", svgPage("<text x='9' y='9'>\U0010FFFD</text>"));
    writeBytes(folder / "d.csv", "\"a\"\r\n\"1\"\r\n");
    const std::string form = folder / "f.svg", script = folder / "s.dat";
    writeBytes(script, "FileName,\"" + form + "\"\r\nSetDataText,\"d\",\"" + folder / "d.csv" + "\"\r\n");
    const OpenLetters letters(script);
    CHECK(letters.notices ==
          std::vector<std::string>{"「" + form +
                                   "」：帳票の文字のうち、フォントにないものがあります：「\U0010FFFD」（U+10FFFD）"});
}

TEST_CASE("a dialog that a script requests waits until the window is placed")
{
    WindowWorld world(differentRows(2));
    world.window =
        std::make_unique<ViewerWindow>(world.script, std::make_unique<OpenLetters>(world.script), world.services());
    const auto dialog = [&] { return world.window->findChild<QDialog *>(QStringLiteral("printDialog")); };
    QTimer timer;
    bool wasSeen = false;
    timer.callOnTimeout([&] {
        if (dialog() == nullptr) return;
        wasSeen = true;
        CHECK(world.window->isVisible());
        dialog()->reject();
    });
    timer.start(5);
    world.window->start();
    QTest::qWait(100);
    CHECK(!wasSeen);
    world.window->show();
    CHECK(QTest::qWaitFor([&] { return wasSeen; }));
}

TEST_CASE("Ctrl+C copies the text of a message")
{
    QGuiApplication::clipboard()->clear();
    QTimer::singleShot(0, [] {
        QWidget *const box = QApplication::activeModalWidget();
        if (box == nullptr || !QTest::qWaitForWindowActive(box)) return;
        QTest::keyClick(box, Qt::Key_C, Qt::ControlModifier);
        box->findChild<QPushButton *>()->click();
    });
    realServices().showMessage(nullptr, QMessageBox::Warning, QStringLiteral("送っていない番号：3-5"));
    CHECK(QGuiApplication::clipboard()->text() == QStringLiteral("送っていない番号：3-5"));
}
