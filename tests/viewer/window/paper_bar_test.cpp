#include "viewer/window/ledger_world.h"

#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QTest>
#include <doctest/doctest.h>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

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

TEST_CASE("the offer to print the rest stays while another run is compared, and ends with the letters")
{
    LedgerWorld world(differentRows(5));
    world.openWindow();
    world.print("1-5");
    world.openAgain(differentRows(4));
    world.print("1-4");
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
