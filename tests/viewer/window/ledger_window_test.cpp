#include "viewer/window/ledger_world.h"

#ifndef _WIN32
#include "support/small_disk.h"
#endif

#include <QStatusBar>
#include <QTest>
#include <doctest/doctest.h>

#include <filesystem>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

TEST_CASE("a window whose services name no ledger creates none and shows no states")
{
    WindowWorld world(differentRows(2));
    world.openWindow();
    world.window->print(world.order());
    CHECK(world.find<QTableView>("letterList")->isColumnHidden(LetterListModel::state));
    CHECK(world.find<QComboBox>("filter")->count() == kFiltersWithoutLedger);
    CHECK(!world.find<QAction>("tickSent")->isEnabled());
    CHECK(!world.find<QWidget>("paperBar")->isVisible());
    for (const auto &entry : std::filesystem::recursive_directory_iterator(world.folder.path()))
        CHECK(entry.path().extension() != ".db");
}

TEST_CASE("looking at letters records no run")
{
    LedgerWorld world(differentRows(3));
    world.openWindow();
    CHECK(world.states() == States{"未印刷", "未印刷", "未印刷"});
    CHECK(!world.find<QTableView>("letterList")->isColumnHidden(LetterListModel::state));
    world.window.reset();
    CHECK(world.ledger().runs().empty());
}

TEST_CASE("a saved PDF is recorded and leaves the states as they are")
{
    LedgerWorld world(differentRows(2));
    world.openWindow();
    world.pdfFile = QString::fromStdString(world.folder / "o.pdf");
    world.window->savePdf({true, false, {}});
    CHECK(world.states() == States{"未印刷", "未印刷"});
    CHECK(!world.isShown("paperBar"));
    CHECK(world.ledger().runs().size() == 1);
}

TEST_CASE("another window's answer is shown when the user returns to this one")
{
    LedgerWorld world(differentRows(2));
    world.openWindow();
    world.print("1-2");
    {
        Ledger other = world.ledger();
        REQUIRE(other.confirmAll(other.openOutputs(other.runs().at(0).id).at(0).id));
    }
    QWidget elsewhere;
    elsewhere.show();
    elsewhere.activateWindow();
    REQUIRE(QTest::qWaitForWindowActive(&elsewhere));
    world.window->activateWindow();
    REQUIRE(QTest::qWaitForWindowActive(world.window.get()));
    CHECK(world.states() == States{"紙で確認済み", "紙で確認済み"});
    CHECK(!world.isShown("paperBar"));
}

TEST_CASE("letters are listed and ticked by their state")
{
    LedgerWorld world(differentRows(4));
    world.openWindow();
    world.print("1-2");
    world.click("paperAll");
    world.print("4");
    world.window->setFilter(ListFilter::onPaper);
    CHECK(world.listed() == "1 2");
    world.window->setFilter(ListFilter::sent);
    CHECK(world.listed() == "4");
    world.window->setFilter(ListFilter::unprinted);
    CHECK(world.listed() == "3");
    world.act("tickUnprinted");
    CHECK(world.ticks() == "3");
    world.act("tickOnPaper");
    CHECK(world.ticks() == "1-2");
    world.act("tickReturned");
    CHECK(world.ticks() == "1-2");
    CHECK(world.window->statusBar()->currentMessage() ==
          QStringLiteral("「返送済み」の委任状がありません。チェックはそのままです。"));
}

TEST_CASE("a damaged ledger is reported in the notice bar, and letters print all the same")
{
    LedgerWorld world(differentRows(2));
    writeBytes(world.ledgerFile, std::string(5000, 'x'));
    world.openWindow();
    CHECK(world.isShown("noticeBar"));
    CHECK(!world.textOf("noticeText").empty());
    world.print("1-2");
    CHECK(pageCount(world.jobPath(0)) == 2);
}

TEST_CASE("a ledger in a place that cannot be reached is reported, and letters print all the same")
{
    LedgerWorld world(differentRows(2));
    writeBytes(world.folder / "file", "");
    world.ledgerFile = world.folder / "file/台帳.db";
    world.openWindow();
    CHECK(world.isShown("noticeBar"));
    CHECK(world.find<QTableView>("letterList")->isColumnHidden(LetterListModel::state));
    world.print("1-2");
    CHECK(pageCount(world.jobPath(0)) == 2);
    CHECK(!world.isShown("paperBar"));
}

#ifndef _WIN32
TEST_CASE("letters open and print while the disk of the ledger is full, and one sentence reports what is not recorded")
{
    const TempFolder place;
    const SmallDisk disk(place.path(), 400);
    if (!disk.fault().empty()) {
        MESSAGE("skipped: ", disk.fault());
        return;
    }
    for (const bool isNew : {false, true}) {
        CAPTURE(isNew);
        LedgerWorld world(differentRows(200));
        world.ledgerFile = disk / (isNew ? "new.db" : "old.db");
        if (!isNew) (void)world.ledger();
        disk.fill();
        world.openWindow();
        CHECK(world.listed().starts_with("1 2 3"));
        world.print("1-2");
        CHECK(pageCount(world.jobPath(0)) == 2);
        CHECK(world.messages.empty());
        CHECK(world.isShown("noticeBar"));
        CHECK(world.textOf("noticeText") == "台帳のあるディスクに空きがないため、印刷や返送は台帳に記録されません。");
        CHECK(!world.isShown("paperBar"));
        disk.clear();
        world.print("3-4");
        CHECK(!world.isShown("noticeBar"));
        CHECK(world.isShown("paperBar"));
        CHECK(!world.find<QTableView>("letterList")->isColumnHidden(LetterListModel::state));
        CHECK(world.states()[0] == "未印刷");
        CHECK(world.states()[2] == "送信済み");
    }
}
#endif

TEST_CASE("the notice of the ledger does not displace the warnings about the letters")
{
    LedgerWorld world(differentRows(2));
    std::string csv = csvOf(differentRows(2));
    writeBytes(world.folder / "委任状.csv", csv.substr(0, csv.size() - 4));
    writeBytes(world.ledgerFile, std::string(5000, 'x'));
    world.openWindow();
    CHECK(contains(world.textOf("noticeText"), "途中で切れている"));
    CHECK(contains(world.textOf("noticeText"), "台帳"));
}
