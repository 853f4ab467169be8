#include "viewer/window/window_world.h"

#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <doctest/doctest.h>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

TEST_CASE("the shown letter can be printed alone, and the ticks stay as they are")
{
    WindowWorld world(differentRows(4));
    world.openWindow();
    world.window->letters().ticks.setText("1-2");
    world.window->showLetter(2);
    world.inPrintDialog([](const QDialog &dialog) {
        CHECK(dialog.windowTitle().contains(QStringLiteral("3番")));
        CHECK(dialog.findChild<QLineEdit *>(QStringLiteral("rangeBox"))->text() == QStringLiteral("3"));
    });
    world.press(Qt::Key_P, Qt::ControlModifier | Qt::ShiftModifier);
    REQUIRE(world.jobs == 1);
    const std::vector<std::string> pages = pagesOf(world.jobPath(0));
    REQUIRE(pages.size() == 1);
    CHECK(contains(packed(pages[0]), "甲3"));
    CHECK(world.window->letters().ticks.text() == "1-2");
    CHECK(world.window->isVisible());
}

TEST_CASE("a letter that is printed or saved alone has no cover, and the setting stays for the others")
{
    WindowWorld world(differentRows(3));
    world.folder.put("settings.ini", "[output]\ncovers=true\norder=insurer\n");
    world.openWindow();
    world.window->showLetter(1);
    world.inPrintDialog([](const QDialog &dialog) {
        CHECK(!dialog.findChild<QWidget *>(QStringLiteral("bundleCovers"))->isVisible());
    });
    world.press(Qt::Key_P, Qt::ControlModifier | Qt::ShiftModifier);
    REQUIRE(world.jobs == 1);
    CHECK(pageCount(world.jobPath(0)) == 1);
    const LetterArrangement covered{LetterSort::insurer, true};
    CHECK(ViewerSettings(QString::fromStdString(world.folder / "settings.ini")).arrangement() == covered);

    world.pdfFile = QString::fromStdString(world.folder / "o.pdf");
    world.window->letters().ticks.setText("2");
    PdfOrder order;
    order.onlyTicked = true;
    order.arrangement = covered;
    world.window->savePdf(order);
    CHECK(pageCount(world.folder / "o.pdf") == 1);
    world.window->letters().ticks.setText("2-3");
    world.window->savePdf(order);
    CHECK(pageCount(world.folder / "o.pdf") == 3);
}

TEST_CASE("the shown letter can be printed alone while the range box is unreadable")
{
    WindowWorld world(differentRows(3));
    world.openWindow();
    QTest::keyClicks(world.find<QLineEdit>("rangeBox"), QStringLiteral("x"));
    world.inPrintDialog([](const QDialog &) {});
    world.find<QAction>("printThis")->trigger();
    CHECK(world.jobs == 1);
    CHECK(pageCount(world.jobPath(0)) == 1);
}

TEST_CASE("a PDF of all letters is offered under the title and the month")
{
    WindowWorld world(differentRows(3));
    world.openWindow();
    world.pdfFile = QString::fromStdString(world.folder / "o.pdf");
    world.window->savePdf({true, false, {}});
    const QString title = QString::fromStdString(world.window->letters().set.shownTitle());
    CHECK(world.offeredNames == std::vector<QString>{title + QStringLiteral("_R6.05.pdf")});
}
