#include "viewer/window/ledger_world.h"

#include "viewer/window/changes_pane.h"
#include "viewer/window/link_line.h"
#include "viewer/window/notice_bar.h"

#ifndef _WIN32
#include "support/small_disk.h"
#endif

#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QTest>
#include <QTreeWidget>
#include <doctest/doctest.h>

#include <filesystem>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

using States = std::vector<std::string>;

std::string lineOf(const LedgerWorld &world, const char *name)
{
    const auto *const line = dynamic_cast<LinkLine *>(world.find<QLabel>(name));
    REQUIRE(line != nullptr);
    return line->isVisible() ? line->plainText().toStdString() : "";
}

void follow(const LedgerWorld &world, const char *name, const char *target)
{
    emit world.find<QLabel>(name)->linkActivated(QString::fromLatin1(target));
}

/// The texts of the pane under the list, cells joined by "|".
std::vector<std::string> changes(const LedgerWorld &world)
{
    const auto *const table = world.find<QTreeWidget>("changesTable");
    std::vector<std::string> rows;
    for (int row = 0; row < table->topLevelItemCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < table->columnCount(); ++column) cells << table->topLevelItem(row)->text(column);
        rows.push_back(cells.join(u'|').toStdString());
    }
    return rows;
}

/// Five letters of which the second has moved, the fourth is gone and one is new.
std::vector<Row> nextRows()
{
    std::vector<Row> rows = differentRows(5);
    rows[1]["利用者住所"] = "香川県丸亀市";
    rows.erase(rows.begin() + 3);
    rows.insert(rows.begin(), ordinaryRow());
    rows[0]["利用者氏名"] = "新田";
    return rows;
}

} // namespace

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

TEST_CASE("printed letters count as sent, and a bar asks for the sheets until all have come out")
{
    LedgerWorld world(differentRows(3));
    world.openWindow();
    CHECK(!world.isShown("paperBar"));
    world.print("1,3");
    CHECK(world.states() == States{"送信済み", "未印刷", "送信済み"});
    CHECK(world.isShown("paperBar"));
    CHECK(world.textOf("paperText") == "2通をプリンターに送りました。紙を確認してください。");
    world.click("paperAll");
    CHECK(world.states() == States{"紙で確認済み", "未印刷", "紙で確認済み"});
    CHECK(!world.isShown("paperBar"));
    CHECK(world.window->statusBar()->currentMessage() == QStringLiteral("2通を紙で確認済みにしました。"));
}

TEST_CASE("a paper jam: the last good number confirms the letters up to it, and the rest is printed from the next one")
{
    LedgerWorld world(differentRows(6));
    world.openWindow();
    world.print("1-6");
    world.click("paperPartly");
    auto *const number = world.find<QSpinBox>("paperNumber");
    CHECK(number->hasFocus());
    CHECK(number->value() == 6);
    number->setValue(4);
    QTest::keyClick(number, Qt::Key_Return);
    CHECK(world.states() == States{"紙で確認済み", "紙で確認済み", "紙で確認済み", "紙で確認済み", "未印刷", "未印刷"});
    CHECK(world.textOf("paperText") == "4番までの4通を紙で確認済みにしました。");
    CHECK(world.find<QPushButton>("paperRest")->text() == QStringLiteral("5番から印刷(&P)…"));
    world.window->letters().ticks.setText("1");
    world.inPrintDialog([](QDialog &dialog) { CHECK(dialog.windowTitle() == QStringLiteral("印刷（残りの2通）")); });
    world.click("paperRest");
    CHECK(pageCount(world.jobPath(1)) == 2);
    CHECK(world.ticks() == "1");
    CHECK(world.textOf("paperText") == "2通をプリンターに送りました。紙を確認してください。");
    CHECK(world.states() ==
          States{"紙で確認済み", "紙で確認済み", "紙で確認済み", "紙で確認済み", "送信済み", "送信済み"});
}

TEST_CASE("the bar for the sheets is answered by the keyboard, with letters that no menu or box has")
{
    LedgerWorld world(differentRows(3));
    world.openWindow();
    world.print("1-3");
    const auto checkLetters = [&] {
        QStringList letters;
        const auto add = [&](const QString &text) {
            if (const QKeySequence key = QKeySequence::mnemonic(text); !key.isEmpty()) letters << key.toString();
        };
        for (const QAction *const menu : world.window->menuBar()->actions()) add(menu->text());
        for (const QAbstractButton *const button : world.window->findChildren<QAbstractButton *>())
            if (button->isVisible()) add(button->text());
        for (const QLabel *const label : world.window->findChildren<QLabel *>())
            if (label->isVisible() && label->buddy() != nullptr) add(label->text());
        CHECK(letters.size() > 6);
        CHECK(letters.removeDuplicates() == 0);
    };
    checkLetters();
    world.press(Qt::Key_T, Qt::AltModifier);
    auto *const number = world.find<QSpinBox>("paperNumber");
    REQUIRE(QTest::qWaitFor([&] { return number->hasFocus(); })); // a button that a key presses is shown pressed first
    checkLetters();
    QTest::keyClicks(number, QStringLiteral("1"));
    QTest::keyClick(number, Qt::Key_Return);
    CHECK(world.states() == States{"紙で確認済み", "未印刷", "未印刷"});
    checkLetters();
    world.inPrintDialog([](const QDialog &) {});
    REQUIRE(world.find<QPushButton>("paperRest")->hasFocus());
    QTest::keyClick(world.find<QPushButton>("paperRest"), Qt::Key_Return);
    CHECK(world.states() == States{"紙で確認済み", "送信済み", "送信済み"});
}

TEST_CASE("without a good sheet all letters count as not printed again")
{
    LedgerWorld world(differentRows(2));
    world.openWindow();
    world.print("1-2");
    world.click("paperPartly");
    world.find<QSpinBox>("paperNumber")->setValue(0);
    world.click("paperSet");
    CHECK(world.states() == States{"未印刷", "未印刷"});
    CHECK(world.find<QPushButton>("paperRest")->text() == QStringLiteral("1番から印刷(&P)…"));
    world.click("paperClose");
    CHECK(!world.isShown("paperBar"));
}

TEST_CASE("a number that was not sent is refused, and the question stays")
{
    LedgerWorld world(differentRows(5));
    world.openWindow();
    world.print("1-2,5");
    world.click("paperPartly");
    world.find<QSpinBox>("paperNumber")->setValue(3);
    world.click("paperSet");
    CHECK(world.window->statusBar()->currentMessage() == QStringLiteral("3番は、この印刷で送っていません。"));
    CHECK(world.states()[0] == "送信済み");
    CHECK(world.isShown("paperNumber"));
    world.click("paperBack");
    CHECK(world.isShown("paperAll"));
}

TEST_CASE("letters that were printed in reverse order are confirmed from the last number down")
{
    LedgerWorld world(differentRows(4));
    world.openWindow();
    PrintOrder order = world.order();
    order.letterOrder = LetterOrder::reversed;
    world.window->print(order);
    world.click("paperPartly");
    CHECK(world.find<QSpinBox>("paperNumber")->value() == 1);
    world.find<QSpinBox>("paperNumber")->setValue(3);
    world.click("paperSet");
    CHECK(world.states() == States{"未印刷", "未印刷", "紙で確認済み", "紙で確認済み"});
    CHECK(world.find<QPushButton>("paperRest")->text() == QStringLiteral("2番から印刷(&P)…"));
}

TEST_CASE("the question for the sheets comes back at the next opening until it is answered")
{
    LedgerWorld world(differentRows(2));
    world.openWindow();
    world.print("1-2");
    world.openAgain();
    CHECK(world.isShown("paperBar"));
    CHECK(world.textOf("paperText") == "5月20日 10:32 に2通をプリンターに送りました。紙を確認してください。");
    world.click("paperAll");
    world.openAgain();
    CHECK(!world.isShown("paperBar"));
    CHECK(world.states() == States{"紙で確認済み", "紙で確認済み"});
}

TEST_CASE("a refused print leaves no letter as sent and asks for no sheet")
{
    LedgerWorld world(differentRows(2));
    world.outputFolder = world.folder / "gone";
    world.openWindow();
    world.print("1-2");
    CHECK(world.states() == States{"未印刷", "未印刷"});
    CHECK(!world.isShown("paperBar"));
}

TEST_CASE("each job of a print is recorded with the queue's number, and the bar asks once for all of them")
{
    LedgerWorld world(differentRows(5));
    int job = 100;
    world.spool = [&](const SpoolJob &, const std::function<bool()> &) {
        return SpoolResult{SpoolResult::End::taken, {}, std::to_string(job++)};
    };
    world.openWindow();
    PrintOrder order = world.order();
    order.lettersPerJob = 2;
    world.window->print(order);
    CHECK(world.textOf("paperText") == "5通をプリンターに送りました。紙を確認してください。");
    Ledger ledger = world.ledger();
    const std::vector<OpenOutput> open = ledger.openOutputs(ledger.runs().at(0).id);
    REQUIRE(open.size() == 1);
    CHECK(open[0].queueNumbers == std::vector<std::string>{"100", "101", "102"});
    CHECK(open[0].printer == "紙");
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

TEST_CASE("letters that were printed before are reported as the same")
{
    LedgerWorld world(differentRows(3));
    world.openWindow();
    CHECK(lineOf(world, "comparedLine").empty());
    world.print("1-3");
    world.openAgain();
    CHECK(lineOf(world, "comparedLine") == "5月20日 10:32 の3通と同じ内容です。");
}

TEST_CASE("a run is compared with the last printed one, and each part of the line filters the list")
{
    LedgerWorld world(differentRows(5));
    world.openWindow();
    world.print("1-5");
    world.click("paperAll");
    world.openAgain(nextRows());
    CHECK(lineOf(world, "comparedLine") == "前回（5月20日）から：新しい 1通、変わった 1通、なくなった 1通");
    CHECK(world.states() == States{"未印刷 新", "未印刷", "未印刷 変更", "未印刷", "未印刷"});
    follow(world, "comparedLine", "added");
    CHECK(world.listed() == "1");
    follow(world, "comparedLine", "changed");
    CHECK(world.listed() == "3");
    follow(world, "comparedLine", "gone");
    CHECK(world.textOf("changesHeading") == "なくなった委任状：1通");
    CHECK(changes(world) == std::vector<std::string>{"4|高松市|甲4"});
}

TEST_CASE("a changed letter shows field, old and new text, and its field is marked on the page")
{
    LedgerWorld world(differentRows(5));
    world.openWindow();
    world.print("1-5");
    world.openAgain(nextRows());
    auto *const page = dynamic_cast<PageView *>(world.find<QWidget>("pageView"));
    CHECK(page->marks().empty());
    CHECK(world.textOf("changesHeading") == "1番：新しい委任状です。");
    world.window->showLetter(2);
    CHECK(world.textOf("changesHeading") == "3番：変わった欄");
    CHECK(changes(world) == std::vector<std::string>{"利用者住所|香川県高松市番町2|香川県丸亀市"});
    CHECK(page->marks().size() == 1);
    const QModelIndex patient = world.find<QTableView>("letterList")->model()->index(2, LetterListModel::patient);
    CHECK(patient.data(Qt::ToolTipRole).toString() ==
          QStringLiteral("甲2\n利用者住所：「香川県高松市番町2」から「香川県丸亀市」に変わりました。"));
    world.window->showLetter(3);
    CHECK(page->marks().empty());
    CHECK(world.textOf("changesHeading") == "4番：変わっていません。");
}

TEST_CASE("the table of changes takes no room while no letter has changed")
{
    LedgerWorld world(differentRows(5));
    world.openWindow();
    world.print("1-5");
    world.openAgain(differentRows(4));
    CHECK(!world.isShown("changesPane"));
    follow(world, "comparedLine", "gone");
    CHECK(world.isShown("changesTable"));
    world.window->showLetter(1);
    CHECK(!world.isShown("changesPane"));
}

TEST_CASE("the mark of a changed field is on the screen and not on paper")
{
    LedgerWorld world(differentRows(5));
    world.openWindow();
    world.print("1-5");
    world.openAgain(nextRows());
    world.window->showLetter(2);
    const auto *const page = dynamic_cast<PageView *>(world.find<QWidget>("pageView"));
    REQUIRE(page->marks().size() == 1);
    const auto orangePixels = [](const QImage &image) {
        int count = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x) count += image.pixel(x, y) == qRgb(0xC8, 0x50, 0x00);
        return count;
    };
    CHECK(orangePixels(page->viewport()->grab().toImage()) > 10);
    OpenLetters &letters = world.window->letters();
    CHECK(orangePixels(pageImage(letters.renderer, 2, 96, letters.glyphs)) == 0);
}

TEST_CASE("another run can be picked for the comparison")
{
    LedgerWorld world(differentRows(5));
    world.openWindow();
    world.print("1-5");
    world.openAgain(nextRows());
    world.print("1-5");
    world.openAgain(differentRows(6));
    CHECK(lineOf(world, "comparedLine") ==
          "前回（5月21日）から：新しい 2通、変わった 1通、なくなった 1通　比べる相手…");
    follow(world, "comparedLine", "runs");
    auto *const menu = world.find<QMenu>("comparedRunMenu");
    CHECK(menu->isVisible());
    REQUIRE(menu->actions().size() == 2);
    CHECK(menu->actions()[1]->text() == QStringLiteral("5月20日 10:32　5通"));
    menu->actions()[1]->trigger();
    CHECK(lineOf(world, "comparedLine") == "5月20日 10:32 の5通から：新しい 1通　比べる相手…");
    CHECK(world.states()[5] == "未印刷 新");
    follow(world, "comparedLine", "added");
    CHECK(world.listed() == "6");
}

TEST_CASE("Tab reaches the links of the line above the list, and Enter follows them")
{
    LedgerWorld world(differentRows(5));
    world.openWindow();
    world.print("1-5");
    world.openAgain(nextRows());
    auto *const line = world.find<QLabel>("comparedLine");
    line->setFocus(Qt::TabFocusReason);
    QTest::keyClick(line, Qt::Key_Tab);
    QTest::keyClick(line, Qt::Key_Tab);
    QTest::keyClick(line, Qt::Key_Return);
    CHECK(world.listed() == "3");
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

TEST_CASE("the offer to print the rest stays while another run is compared, and ends with the letters")
{
    LedgerWorld world(differentRows(5));
    world.openWindow();
    world.print("1-5");
    world.openAgain(nextRows());
    world.print("1-5");
    world.click("paperPartly");
    CHECK(world.textOf("paperText") == "最後に正しく出た番号を入れてください。");
    world.find<QSpinBox>("paperNumber")->setValue(1);
    world.click("paperSet");
    auto *const menu = world.find<QMenu>("comparedRunMenu");
    emit menu->aboutToShow();
    menu->actions().at(0)->trigger();
    CHECK(world.isShown("paperRest"));
    writeBytes(world.folder / "委任状.csv", csvOf(differentRows(1)));
    world.window->reload();
    CHECK(!world.isShown("paperBar"));
}

TEST_CASE("persons with a printed letter of the same period are counted, listed and unticked")
{
    LedgerWorld world(differentRows(5));
    world.openWindow();
    CHECK(lineOf(world, "printedLine").empty());
    world.print("1-3");
    world.openAgain(nextRows());
    CHECK(lineOf(world, "printedLine") == "この期間の委任状を印刷済みの人が3通あります。表示　チェックを外す");
    follow(world, "printedLine", "printed");
    CHECK(world.listed() == "2 3 4");
    follow(world, "printedLine", "untick");
    CHECK(world.ticks() == "1,5");
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
    const SmallDisk disk(400);
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

TEST_CASE("the print dialog counts the letters to be printed that are printed already")
{
    LedgerWorld world(differentRows(4));
    world.openWindow();
    world.print("1-3");
    world.openAgain();
    const auto printedOf = [&](const char *numbers) {
        world.window->letters().ticks.setText(numbers);
        return world.printNotices().section(u'\n', -1).toStdString();
    };
    CHECK(printedOf("1-4") == "この期間の委任状を印刷済みの人が3通あります。");
    CHECK(printedOf("2,4") == "この期間の委任状を印刷済みの人が1通あります。");
    CHECK(printedOf("4").find("印刷済み") == std::string::npos);
}
