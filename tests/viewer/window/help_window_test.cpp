#include "system/program_version.h"
#include "viewer/window/help_page.h"
#include "viewer/window/help_window.h"
#include "viewer/window/window_world.h"

#include <QAction>
#include <QScrollBar>
#include <QShortcut>
#include <QTextBlock>
#include <QTextBrowser>
#include <QUrl>
#include <doctest/doctest.h>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

QTextBrowser *manualIn(const QWidget &help)
{
    return help.findChild<QTextBrowser *>();
}

/// The heading that the manual of a window shows; empty without a manual.
std::string shownHeading(const QWidget &window)
{
    const auto *const help = window.findChild<QWidget *>(QStringLiteral("helpWindow"));
    return help == nullptr ? std::string() : manualIn(*help)->textCursor().block().text().toStdString();
}

} // namespace

TEST_CASE("the manual has each heading that a place in the windows leads to")
{
    QWidget owner;
    HelpWindow help(&owner);
    for (const QString &heading : helpHeadings()) CHECK_MESSAGE(help.showHeading(heading), heading.toStdString());
    CHECK_FALSE(help.showHeading(QStringLiteral("そのような章はありません")));
}

TEST_CASE("each link of the manual to itself leads to a heading")
{
    QWidget owner;
    HelpWindow help(&owner);
    int links = 0;
    const QTextDocument &document = *manualIn(help)->document();
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
            const QUrl link(piece.fragment().charFormat().anchorHref());
            if (link.fragment().isEmpty() || !link.path().isEmpty()) continue;
            ++links;
            CHECK_MESSAGE(help.follow(link), link.toString().toStdString());
        }
    }
    CHECK(links > 10);
}

TEST_CASE("the manual's pictures are part of the program")
{
    QWidget owner;
    HelpWindow help(&owner);
    const QVariant picture =
        manualIn(help)->loadResource(QTextDocument::ImageResource, QUrl(QStringLiteral("pictures/conditions.png")));
    CHECK(picture.toByteArray().size() > 1000);
}

TEST_CASE("the manual needs no horizontal scroll bar")
{
    QWidget owner;
    HelpWindow help(&owner);
    help.resize(900, 700);
    help.show();
    CHECK(manualIn(help)->document()->idealWidth() <= 900);
    CHECK_FALSE(manualIn(help)->horizontalScrollBar()->isVisible());
}

TEST_CASE("F1 opens the manual at the page about the place with the focus")
{
    WindowWorld world(differentRows(3));
    world.openWindow();
    world.find<QWidget>("letterList")->setFocus();
    world.press(Qt::Key_F1);
    CHECK(shownHeading(*world.window) == "委任状を選ぶ、探す");
    world.find<QWidget>("pageView")->setFocus();
    world.find<QAction>("help")->trigger();
    CHECK(shownHeading(*world.window) == "プレビューと印刷");
    CHECK(world.window->findChildren<QWidget *>(QStringLiteral("helpWindow")).size() == 1);
}

TEST_CASE("F1 in a dialog opens a manual that the dialog owns, so that it can be read while the dialog is open")
{
    WindowWorld world(differentRows(3));
    world.openWindow();
    std::string heading;
    world.inPrintDialog([&](QDialog &dialog) {
        auto *const key = dialog.findChild<QShortcut *>();
        REQUIRE(key != nullptr);
        CHECK(key->key() == QKeySequence(QKeySequence::HelpContents));
        emit key->activated();
        heading = shownHeading(dialog);
    });
    world.window->askPrint();
    CHECK(heading == "印刷する");
}

TEST_CASE("the help menu shows the version of the program")
{
    WindowWorld world(differentRows(1));
    world.openWindow();
    world.find<QAction>("version")->trigger();
    REQUIRE(world.messages.size() == 1);
    CHECK(world.messages[0].toStdString() == "form viewer " + std::string(programVersion()));
}

TEST_CASE("the heading is at the top of the manual's window")
{
    QWidget owner;
    HelpWindow help(&owner);
    help.show();
    CHECK(help.showHeading(QStringLiteral("印刷の前の点検")));
    CHECK(manualIn(help)->verticalScrollBar()->value() > 1000);
    CHECK(manualIn(help)->cursorRect().top() < 50);
}

TEST_CASE("a line break between Japanese characters is no blank, others stay")
{
    CHECK(joinedLines(QStringLiteral("印刷を\n押します。\n\n次の段落")) ==
          QStringLiteral("印刷を押します。\n\n次の段落"));
    CHECK(joinedLines(QStringLiteral("- 一つ目の\n  続き\n- 二つ目")) == QStringLiteral("- 一つ目の続き\n- 二つ目"));
    CHECK(joinedLines(QStringLiteral("| 表 |\n|---|\n")) == QStringLiteral("| 表 |\n|---|\n"));
    CHECK(joinedLines(QStringLiteral("the first\nline")) == QStringLiteral("the first\nline"));
}

TEST_CASE("a heading's anchor has no punctuation, and its blanks are hyphens")
{
    CHECK(headingAnchor(QStringLiteral("委任状を選ぶ、探す")) == QStringLiteral("委任状を選ぶ探す"));
    CHECK(headingAnchor(QStringLiteral("PDF に保存する")) == QStringLiteral("pdf-に保存する"));
}
