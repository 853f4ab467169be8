#include "viewer/window/page_view.h"
#include "viewer/window/window_world.h"

#include <QApplication>
#include <QScrollBar>
#include <QTest>
#include <doctest/doctest.h>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

struct Page : WindowWorld {
    Page() : WindowWorld(differentRows(3)), letters(script)
    {
        view.resize(600, 700);
        view.showLetters(&letters);
        view.show();
    }
    OpenLetters letters;
    PageView view;
};

} // namespace

TEST_CASE("the whole page fits into the view at first and has the sheet's proportions")
{
    Page world;
    const QRect place = world.view.paperPlace();
    CHECK(world.view.viewport()->rect().contains(place));
    CHECK(std::abs(place.height() * 210.0 / 297.0 - place.width()) < 1.5);
    CHECK(!world.view.verticalScrollBar()->isVisible());
}

TEST_CASE("the sheet has its real size at 100 percent")
{
    Page world;
    world.view.setZoom(1);
    // A4 at 96 dots per inch, or at the screen's own resolution.
    CHECK(world.view.paperPlace().width() == std::lround(210 / 25.4 * world.view.logicalDpiX()));
    CHECK(world.view.paperPlace().height() == std::lround(297 / 25.4 * world.view.logicalDpiY()));
}

TEST_CASE("zooming steps through round scales and stops at both ends")
{
    Page world;
    world.view.setZoom(1);
    world.view.zoomIn();
    CHECK(world.view.zoom() == doctest::Approx(1.25));
    world.view.zoomOut();
    world.view.zoomOut();
    CHECK(world.view.zoom() == doctest::Approx(0.75));
    for (int i = 0; i < 20; ++i) world.view.zoomIn();
    CHECK(world.view.zoom() == doctest::Approx(4));
    for (int i = 0; i < 20; ++i) world.view.zoomOut();
    CHECK(world.view.zoom() == doctest::Approx(0.25));
}

TEST_CASE("fitting the width leaves no scroll bar below the page")
{
    Page world;
    world.view.setFit(PageView::Fit::width);
    CHECK(world.view.horizontalScrollBar()->maximum() == 0);
    CHECK(world.view.verticalScrollBar()->maximum() > 0);
}

TEST_CASE("the page is black on white under a dark palette")
{
    Page world;
    QPalette dark(QColor(0x3C, 0x3F, 0x43), QColor(0x2B, 0x2D, 0x30));
    world.view.setPalette(dark);
    const QImage image = world.view.viewport()->grab().toImage();
    const QRect place = world.view.paperPlace();
    CHECK(image.pixelColor(place.topLeft() + QPoint(3, 3)) == QColor(Qt::white));
    CHECK(image.pixelColor(2, 2).lightness() < 80);
    int darkest = 255;
    for (int x = place.left(); x < place.right(); ++x)
        for (int y = place.top(); y < place.bottom(); ++y) darkest = std::min(darkest, qGray(image.pixel(x, y)));
    CHECK(darkest < 60);
}

TEST_CASE("the view shows the same pixels as a picture of the letter")
{
    Page world;
    world.view.setZoom(1);
    world.view.resize(world.view.paperPlace().size() + QSize(40, 40));
    QApplication::processEvents();
    const QImage shown = world.view.viewport()->grab(world.view.paperPlace()).toImage();
    const QImage picture = pageImage(world.letters.renderer, 0, world.view.logicalDpiX(), world.letters.glyphs);
    CHECK(difference(shown, picture) < 1);
}

TEST_CASE("the page keys scroll to the end of the page and then request the next letter")
{
    Page world;
    std::vector<int> turns;
    world.view.onTurn = [&](int step) { turns.push_back(step); };
    QTest::keyClick(&world.view, Qt::Key_PageDown);
    CHECK(turns == std::vector<int>{1});
    world.view.setZoom(4);
    world.view.verticalScrollBar()->setValue(0);
    QTest::keyClick(&world.view, Qt::Key_PageDown);
    CHECK(turns.size() == 1);
    CHECK(world.view.verticalScrollBar()->value() > 0);
    world.view.verticalScrollBar()->setValue(0);
    QTest::keyClick(&world.view, Qt::Key_PageUp);
    CHECK(turns == std::vector<int>{1, -1});
}

TEST_CASE("a screen reader gets the letter and its texts")
{
    Page world;
    world.view.showLetter(1);
    const QString text = world.view.accessibleDescription();
    CHECK(text.startsWith(QStringLiteral("2番　")));
    CHECK(text.contains(QStringLiteral("\n利用者氏名：甲2\n")));
}

namespace {

/// The view as painted on a screen with this many dots per pixel.
QImage onScreen(const PageView &view, double ratio)
{
    QImage screen((view.viewport()->size().toSizeF() * ratio).toSize(), QImage::Format_RGB32);
    screen.setDevicePixelRatio(ratio);
    view.viewport()->render(&screen);
    screen.setDevicePixelRatio(1);
    return screen;
}

} // namespace

TEST_CASE("the page matches the letter's picture dot for dot at every screen resolution")
{
    Page world;
    for (const double ratio : {1.0, 1.25, 1.5, 2.0}) {
        CAPTURE(ratio);
        world.view.showLetter(world.view.letter() == 1 ? 2 : 1);
        const QImage screen = onScreen(world.view, ratio);
        const QPointF corner = QPointF(world.view.paperPlace().topLeft()) * ratio;
        const double dots = world.view.zoom() * world.view.logicalDpiY() * ratio;
        const QImage letter = pageImage(world.letters.renderer, world.view.letter(), dots, world.letters.glyphs);
        const QImage shown = screen.copy(QRect(QPoint(qRound(corner.x()), qRound(corner.y())), letter.size()));
        // The last row and column may contain half a pixel of the paper's edge.
        const QRect inside = letter.rect().adjusted(2, 2, -2, -2);
        CHECK(shown.copy(inside) == letter.copy(inside));
    }
}

TEST_CASE("the pages before and after the current one are painted while the user reads")
{
    Page world;
    REQUIRE(QTest::qWaitForWindowExposed(&world.view));
    world.view.showLetter(1);
    const LetterPictures &pictures = world.letters.pictures;
    CHECK(QTest::qWaitFor([&] { return pictures.has(0) && pictures.has(1) && pictures.has(2); }));
}

TEST_CASE("the view shows a letter at a scale too large for cached pictures")
{
    Page world;
    world.view.setZoom(4);
    const QImage screen = onScreen(world.view, 2);
    int dark = 0;
    for (int y = 0; y < screen.height(); ++y)
        for (int x = 0; x < screen.width(); ++x) dark += qGray(screen.pixel(x, y)) < 100 ? 1 : 0;
    CHECK(dark > 1000);
    CHECK(!world.letters.pictures.has(0));
}
