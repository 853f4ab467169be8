#include "viewer/window/window_world.h"

#include <QApplication>
#include <QStatusBar>
#include <QTimer>
#include <doctest/doctest.h>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

/// Enough letters for the print to be still running when the window is closed.
constexpr int kMany = 120;

struct Closing : WindowWorld {
    Closing() : WindowWorld(differentRows(kMany)) { openWindow(); }

    void printAndClose(CloseAnswer answer)
    {
        closeAnswers = {answer};
        QTimer::singleShot(0, window.get(), [this] { window->close(); });
        window->print(order());
        QApplication::processEvents();
    }
};

} // namespace

TEST_CASE("closing during a print asks, and the answer to stay prints all and keeps the window open")
{
    Closing world;
    world.printAndClose(CloseAnswer::keepPrinting);
    REQUIRE(world.closeStates.size() == 1);
    CHECK(world.closeStates[0].startsWith(QStringLiteral("印刷しています（")));
    CHECK(world.closeStates[0].endsWith(QStringLiteral("／120通）。")));
    CHECK(world.window->isVisible());
    CHECK(pageCount(world.jobPath(0)) == kMany);
    CHECK(world.window->statusBar()->currentMessage() == QStringLiteral("120通をプリンターに送りました。"));
}

TEST_CASE("closing when the print is done loses no page")
{
    Closing world;
    world.printAndClose(CloseAnswer::closeWhenDone);
    CHECK(world.closeStates.size() == 1);
    CHECK(!world.window->isVisible());
    CHECK(pageCount(world.jobPath(0)) == kMany);
    CHECK(world.messages.empty());
}

TEST_CASE("a print that is cancelled by closing reports which letters were sent, then the window closes")
{
    Closing world;
    world.printAndClose(CloseAnswer::cancelAndClose);
    CHECK(!world.window->isVisible());
    const std::size_t pages = pageCount(world.jobPath(0));
    CHECK(pages < kMany);
    REQUIRE(world.messages.size() == 1);
    const QString range = pages == 1 ? QStringLiteral("1") : QStringLiteral("1-%1").arg(pages);
    CHECK(world.messages[0] ==
          QStringLiteral("印刷を中止しました。\n\nプリンターに送った番号：%1\n送っていない番号：%2-120")
              .arg(range)
              .arg(pages + 1));
}

TEST_CASE("a refusal keeps the window open although it was to close after the print")
{
    Closing world;
    world.pagesPerJob = 90;
    world.printAndClose(CloseAnswer::closeWhenDone);
    CHECK(world.window->isVisible());
    REQUIRE(world.messages.size() == 1);
    CHECK(world.messages[0].contains(QStringLiteral("プリンター「紙」が印刷を受け付けませんでした。")));
    CHECK(world.messages[0].contains(QStringLiteral("送っていない番号：1-120")));
    CHECK(world.messages[0].endsWith(
        QStringLiteral("送っていない番号も、途中まで印刷されていないか用紙を確認してください。")));
}

TEST_CASE("a window without a task closes without a question and saves its position")
{
    WindowWorld world(differentRows(2));
    world.openWindow();
    CHECK(world.window->close());
    CHECK(world.closeStates.empty());
    CHECK(!ViewerSettings(QString::fromStdString(world.folder / "settings.ini")).windowPlace().isEmpty());
}

TEST_CASE("a second print waits for the first")
{
    Closing world;
    QTimer::singleShot(0, world.window.get(), [&] { world.window->print(world.order()); });
    world.window->print(world.order());
    CHECK(world.jobs == 1);
}
