#include "viewer/window/window_world.h"

#include "viewer/window/notice_bar.h"

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <doctest/doctest.h>

#include <filesystem>
#include <fstream>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

struct Watching {
    Watching()
    {
        writeBytes(path, "a");
        watch.watch({{path, stampOf(path)}});
        watch.onChanged = [this](const std::string &file) { changed.push_back(file); };
    }
    void check(int times)
    {
        for (int i = 0; i < times; ++i) watch.check();
    }
    TempFolder folder;
    std::string path = folder / "a.csv";
    FileWatch watch;
    std::vector<std::string> changed;
};

QString patientAt(const WindowWorld &world, int row)
{
    const auto *const list = world.find<QTableView>("letterList");
    return list->model()->index(row, 2).data().toString();
}

} // namespace

TEST_CASE("an unchanged file is not reported")
{
    Watching world;
    world.check(3);
    CHECK(world.changed.empty());
}

TEST_CASE("a changed file is reported once, when two checks see the same state")
{
    Watching world;
    writeBytes(world.path, "ab");
    world.check(1);
    CHECK(world.changed.empty());
    world.check(3);
    CHECK(world.changed == std::vector<std::string>{world.path});
}

TEST_CASE("a file that is still being written is not reported")
{
    Watching world;
    for (const char *bytes : {"ab", "abc", "abcd"}) {
        writeBytes(world.path, bytes);
        world.check(1);
    }
    CHECK(world.changed.empty());
    world.check(1);
    CHECK(world.changed.size() == 1);
}

TEST_CASE("a deleted file is not reported until it exists again")
{
    Watching world;
    std::filesystem::remove(world.path);
    world.check(3);
    CHECK(world.changed.empty());
    writeBytes(world.path, "new");
    world.check(2);
    CHECK(world.changed.size() == 1);
}

TEST_CASE("a file that changes again is reported again")
{
    Watching world;
    writeBytes(world.path, "ab");
    world.check(2);
    writeBytes(world.path, "abc");
    world.check(2);
    CHECK(world.changed.size() == 2);
}

TEST_CASE("a changed file leaves the open letters as they are, and a notice offers to load it")
{
    WindowWorld world(differentRows(2));
    world.openWindow();
    world.folder.put("委任状.csv", csvOf({ordinaryRow(), ordinaryRow(), ordinaryRow()}));
    world.window->checkFiles();
    world.window->checkFiles();
    const auto *const notice = world.find<QWidget>("noticeBar");
    CHECK(notice->isVisible());
    CHECK(world.find<QLabel>("noticeText")->text() ==
          QStringLiteral("「委任状.csv」が書き換えられました。いま表示しているのは、開いたときの内容です。"));
    CHECK(world.window->letters().set.size() == 2);
    CHECK(patientAt(world, 0) == QStringLiteral("甲1"));
}

TEST_CASE("the notice's button loads the new letters, ticks them all and checks them")
{
    WindowWorld world(differentRows(2));
    world.openWindow();
    world.window->letters().ticks.setAll(false);
    world.folder.put("委任状.csv", csvOf({ordinaryRow(), ordinaryRow(), ordinaryRow()}));
    world.window->checkFiles();
    world.window->checkFiles();
    world.find<QPushButton>("noticeAction")->click();
    world.settle();
    CHECK(world.window->letters().set.size() == 3);
    CHECK(world.window->letters().ticks.text() == "1-3");
    CHECK(patientAt(world, 2) == QString::fromStdString(ordinaryRow()["利用者氏名"]));
    CHECK(world.window->findings().size() == 3);
    CHECK(!world.find<QWidget>("noticeBar")->isVisible());
}

TEST_CASE("letters that cannot be loaded leave the open ones in place and show an error sentence")
{
    WindowWorld world(differentRows(2));
    world.openWindow();
    world.folder.put("委任状.csv", "");
    world.window->reload();
    REQUIRE(world.messages.size() == 1);
    CHECK(world.messages[0].contains(QStringLiteral("ファイルが空です。")));
    CHECK(world.messages[0].endsWith(QStringLiteral("前の内容をそのまま表示しています。")));
    CHECK(patientAt(world, 1) == QStringLiteral("甲2"));
}

namespace {

/// Letters whose run record counts one letter more.
struct OneLetterLost : WindowWorld {
    OneLetterLost() : WindowWorld(differentRows(2))
    {
        folder.put("委任状.run",
                   "PrintInin run 1\r\ncsv " + std::to_string(folder.bytes("委任状.csv").size()) + "\r\nletters 3\r\n");
    }
};
const QString kOneLost = QStringLiteral("に書き出された委任状は3通ですが、読み込んだ行は2行です。");

} // namespace

TEST_CASE("a difference from the run record is shown above the page, among the notices and before printing")
{
    OneLetterLost world;
    world.openWindow();
    CHECK(world.find<QWidget>("noticeBar")->isVisible());
    CHECK(world.find<QLabel>("noticeText")->text().contains(kOneLost));
    CHECK(!world.find<QPushButton>("noticeAction")->isVisible());
    REQUIRE(world.window->letters().notices.size() == 1);
    CHECK(QString::fromStdString(world.window->letters().notices[0]).contains(kOneLost));
    CHECK(world.printNotices().contains(kOneLost));
}

TEST_CASE("the notice about lost letters disappears when the complete letters are loaded")
{
    OneLetterLost world;
    world.openWindow();
    world.folder.put("委任状.run", "PrintInin run 1\r\n");
    world.window->reload();
    CHECK(!world.find<QWidget>("noticeBar")->isVisible());
}

TEST_CASE("a window that prints at once stays open when letters may be lost")
{
    OneLetterLost world;
    std::string script = bytesOf(world.script);
    const std::string dialog = "PrintOutFromDialog";
    writeBytes(world.script, script.replace(script.find(dialog), dialog.size(), "PrintOut"));
    world.openWindow();
    world.window->start();
    CHECK(QTest::qWaitFor([&] { return world.jobs == 1; }));
    QApplication::processEvents();
    CHECK(pageCount(world.jobPath(0)) == 2);
    CHECK(world.window->isVisible());
    CHECK(world.find<QWidget>("noticeBar")->isVisible());
}
