#include "viewer/window/page_view.h"
#include "viewer/window/window_world.h"

#include <QScrollBar>
#include <QTest>
#include <doctest/doctest.h>

using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

/// A page that is larger than its view.
struct LargePage : WindowWorld {
    LargePage() : WindowWorld(differentRows(3)), letters(script)
    {
        view.resize(600, 700);
        view.showLetters(&letters);
        view.onTurn = [this](int by) {
            view.showLetter(static_cast<std::size_t>(static_cast<std::ptrdiff_t>(view.letter()) + by));
        };
        view.setZoom(2);
        view.show();
    }
    [[nodiscard]] QScrollBar &bar() const { return *view.verticalScrollBar(); }
    /// The middle of the view as a fraction of the paper's height, from 0 to 1.
    [[nodiscard]] double middle() const
    {
        const QRect paper = view.paperPlace();
        return (view.viewport()->height() / 2.0 - paper.top()) / paper.height();
    }
    OpenLetters letters;
    PageView view;
};

} // namespace

TEST_CASE("zooming keeps the middle of the view in place")
{
    LargePage page;
    page.bar().setValue(page.bar().maximum() * 2 / 3);
    const double before = page.middle();
    REQUIRE(before > 0.55);
    page.view.setZoom(4);
    CHECK(page.middle() == doctest::Approx(before).epsilon(0.02));
    page.view.setZoom(1.5);
    CHECK(page.middle() == doctest::Approx(before).epsilon(0.02));
}

TEST_CASE("a view at the top of the page stays there when its size changes")
{
    LargePage page;
    page.bar().setValue(0);
    page.view.resize(600, 300);
    CHECK(page.bar().value() == 0);
    page.view.resize(500, 600);
    CHECK(page.bar().value() == 0);
}

TEST_CASE("the page keys continue in the next letter at its top and in the previous one at its end")
{
    LargePage page;
    page.view.showLetter(1);
    page.bar().setValue(page.bar().maximum());
    QTest::keyClick(&page.view, Qt::Key_PageDown);
    CHECK(page.view.letter() == 2);
    CHECK(page.bar().value() == 0);
    QTest::keyClick(&page.view, Qt::Key_PageUp);
    CHECK(page.view.letter() == 1);
    CHECK(page.bar().value() == page.bar().maximum());
}

TEST_CASE("the page keys do nothing at the end of the last letter")
{
    LargePage page;
    page.view.showLetter(2);
    page.bar().setValue(page.bar().maximum());
    page.view.onTurn = [](int) {};
    QTest::keyClick(&page.view, Qt::Key_PageDown);
    CHECK(page.bar().value() == page.bar().maximum());
}

namespace {

/// Turns the wheel over the page, downwards for a negative angle; 120 is one notch.
void turnWheel(LargePage &page, int angle, Qt::KeyboardModifiers keys = Qt::NoModifier,
               Qt::ScrollPhase phase = Qt::NoScrollPhase)
{
    const QPointF place(100, 100);
    QWheelEvent event(place, page.view.viewport()->mapToGlobal(place), {}, QPoint(0, angle), Qt::NoButton, keys, phase,
                      false);
    QCoreApplication::sendEvent(page.view.viewport(), &event);
}

} // namespace

TEST_CASE("the wheel scrolls, and with Ctrl it zooms")
{
    LargePage page;
    page.bar().setValue(0);
    turnWheel(page, -120);
    CHECK(page.view.zoom() == 2);
    CHECK(page.bar().value() > 0);
    turnWheel(page, -120, Qt::ControlModifier);
    CHECK(page.view.zoom() == 1.5);
}

TEST_CASE("the wheel turns to the next letter at the end of the page and to the previous one at its beginning")
{
    LargePage page;
    page.bar().setValue(page.bar().maximum() - 1);
    turnWheel(page, -120);
    CHECK(page.view.letter() == 0);
    REQUIRE(page.bar().value() == page.bar().maximum());
    turnWheel(page, -120);
    CHECK(page.view.letter() == 1);
    CHECK(page.bar().value() == 0);
    turnWheel(page, 120);
    CHECK(page.view.letter() == 0);
    CHECK(page.bar().value() == page.bar().maximum());
}

TEST_CASE("a touch pad turns one letter for each notch and none by its momentum")
{
    LargePage page;
    page.bar().setValue(page.bar().maximum());
    for (int i = 0; i < 3; ++i) turnWheel(page, -30);
    CHECK(page.view.letter() == 0);
    turnWheel(page, 30);
    page.bar().setValue(page.bar().maximum());
    for (int i = 0; i < 3; ++i) turnWheel(page, -30);
    CHECK(page.view.letter() == 0);
    turnWheel(page, -30, Qt::NoModifier, Qt::ScrollMomentum);
    CHECK(page.view.letter() == 0);
    turnWheel(page, -30);
    CHECK(page.view.letter() == 1);
}

TEST_CASE("where the whole page would be too small to read, the width is used and the page scrolls")
{
    LargePage page;
    page.view.setFit(PageView::Fit::page);
    CHECK(!page.view.usesWidthForPage());
    CHECK(page.bar().maximum() == 0);
    page.view.resize(600, 400);
    CHECK(page.view.usesWidthForPage());
    CHECK(page.view.zoom() > PageView::kReadableZoom);
    CHECK(page.bar().maximum() > 0);
    CHECK(page.view.horizontalScrollBar()->maximum() == 0);
}
