#include "viewer/window/window_world.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QStatusBar>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <doctest/doctest.h>

#include <filesystem>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

struct Opened : WindowWorld {
    explicit Opened(int count) : WindowWorld(differentRows(count)) { openWindow(); }
};

QString copied()
{
    return QGuiApplication::clipboard()->text();
}

} // namespace

TEST_CASE("the selected letters of the list are copied as listed, one per line")
{
    Opened world(4);
    auto *const list = world.find<QTableView>("letterList");
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(list, Qt::Key_C, Qt::ControlModifier);
    const QString insurer = QString::fromStdString(ordinaryRow()["保険者名"]);
    CHECK(copied() == QStringLiteral("2\t%1\t甲2\t\n3\t%1\t甲3\t").arg(insurer));
}

TEST_CASE("a typed and entered range can be undone")
{
    Opened world(6);
    auto *const box = world.find<QLineEdit>("rangeBox");
    box->setFocus();
    box->selectAll();
    QTest::keyClicks(box, QStringLiteral("2-4"));
    QTest::keyClick(box, Qt::Key_Return);
    for (int step = 0; step < 5 && box->text() != QStringLiteral("1-6"); ++step)
        QTest::keyClick(box, Qt::Key_Z, Qt::ControlModifier);
    CHECK(box->text() == QStringLiteral("1-6"));
    CHECK(world.window->letters().ticks.text() == "1-6");
}

TEST_CASE("saving a PDF offers the last folder, and the user's documents when that folder no longer exists")
{
    Opened world(2);
    const inin::TempFolder other;
    std::filesystem::create_directory(other / "月");
    world.pdfFile = QString::fromStdString(other / "月/a.pdf");
    world.window->savePdf({false, false, {}});
    world.pdfFolder = QString::fromStdString(other.path());
    world.window->savePdf({false, true, QStringLiteral("{{番号}}")});
    world.window->savePdf({false, false, {}});
    std::filesystem::remove_all(other / "月");
    world.window->savePdf({false, false, {}});
    const QString month = QString::fromStdString(other / "月");
    CHECK(world.offeredFolders == std::vector<QString>{{}, month, world.pdfFolder, {}});
}

TEST_CASE("cancelling the file dialog for a PDF keeps the remembered folder")
{
    Opened world(2);
    const inin::TempFolder other;
    world.pdfFile = QString::fromStdString(other / "a.pdf");
    world.window->savePdf({false, false, {}});
    world.pdfFile.clear();
    world.window->savePdf({false, false, {}});
    world.window->savePdf({false, false, {}});
    CHECK(world.offeredFolders.back() == QString::fromStdString(other.path()));
}

TEST_CASE("changed letters cannot be loaded during a print, and the notice stays")
{
    Opened world(120);
    writeBytes(world.folder / "委任状.csv", csvOf({ordinaryRow()}));
    world.window->checkFiles();
    world.window->checkFiles();
    auto *const action = world.find<QPushButton>("noticeAction");
    QString said;
    QTimer::singleShot(0, [&] {
        action->click();
        said = world.window->statusBar()->currentMessage();
    });
    world.window->print(world.order());
    CHECK(said == QStringLiteral("終わってから読み込んでください。"));
    CHECK(pageCount(world.jobPath(0)) == 120);
    CHECK(world.window->letters().set.size() == 120);
    REQUIRE(action->isVisible());
    action->click();
    CHECK(world.window->letters().set.size() == 1);
    CHECK(!action->isVisible());
}

TEST_CASE("marked letters can be unticked before the check has finished")
{
    std::vector<Row> rows = differentRows(3);
    rows[1]["口座名義"] = "";
    WindowWorld world(rows);
    world.window =
        std::make_unique<ViewerWindow>(world.script, std::make_unique<OpenLetters>(world.script), world.services());
    world.window->show();
    world.find<QAction>("untickMarked")->trigger();
    CHECK(world.window->letters().ticks.text() == "1,3");
}

TEST_CASE("an unreadable box prevents the PDF dialog and gets the focus")
{
    Opened world(3);
    auto *const box = world.find<QLineEdit>("rangeBox");
    box->selectAll();
    QTest::keyClicks(box, QStringLiteral("9"));
    bool wasAsked = false;
    QTimer::singleShot(50, world.window.get(), [&] {
        auto *const dialog = world.window->findChild<QDialog *>(QStringLiteral("pdfDialog"));
        wasAsked = dialog != nullptr;
        if (dialog != nullptr) dialog->reject();
    });
    world.window->askPdf();
    QTest::qWait(100);
    CHECK(!wasAsked);
    CHECK(world.window->focusWidget() == box);
    CHECK(box->selectedText() == QStringLiteral("9"));
}

TEST_CASE("a window stays open after a later print when its print dialog was cancelled")
{
    Opened world(3);
    QTimer::singleShot(50, world.window.get(),
                       [&] { world.window->findChild<QDialog *>(QStringLiteral("printDialog"))->reject(); });
    world.window->start();
    REQUIRE(
        QTest::qWaitFor([&] { return world.window->findChild<QDialog *>(QStringLiteral("printDialog")) == nullptr; }));
    QTest::qWait(100);
    world.window->print(world.order());
    QTest::qWait(50);
    CHECK(pageCount(world.jobPath(0)) == 3);
    CHECK(world.window->isVisible());
}

TEST_CASE("a window whose print was refused stays open after a later successful print")
{
    Opened world(3);
    world.pagesPerJob = 1;
    QTimer::singleShot(50, world.window.get(), [&] {
        auto *const dialog = world.window->findChild<QDialog *>(QStringLiteral("printDialog"));
        dialog->findChild<QPushButton *>(QStringLiteral("printNow"))->click();
    });
    world.window->start();
    REQUIRE(QTest::qWaitFor([&] { return !world.messages.empty(); }));
    world.pagesPerJob = 100;
    world.window->print(world.order());
    QTest::qWait(50);
    CHECK(pageCount(world.jobPath(1)) == 3);
    CHECK(world.window->isVisible());
}

TEST_CASE("a window can be destroyed while the box of numbers has the focus")
{
    Opened world(3);
    auto *const box = world.find<QLineEdit>("rangeBox");
    REQUIRE(QTest::qWaitForWindowActive(world.window.get()));
    box->setFocus();
    box->selectAll();
    QTest::keyClicks(box, QStringLiteral("1,2"));
    bool isRead = false;
    QObject::connect(box, &QLineEdit::editingFinished, box, [&] { isRead = true; });
    world.window.reset();
    CHECK(isRead);
}
