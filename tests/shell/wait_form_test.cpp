#include "shell/wait_form.h"

#include "runtime/runtime_error.h"
#include "support/fake_platform.h"

#include <doctest/doctest.h>

#include <functional>
#include <string>
#include <vector>

using namespace inin;

namespace {

/// Advances the clock at each processing of events, by default by a quarter of a second.
class TickingWindows : public FakeWindows {
public:
    explicit TickingWindows(FakeClock &clock) : m_clock(clock) {}
    std::function<void()> onTime;
    int passes = 0;
    double step = 0.25;
    void processWaitingEvents() override
    {
        ++passes;
        m_clock.seconds += step;
        if (m_clock.seconds >= 86400) m_clock.seconds -= 86400;
        if (onTime) onTime();
    }

private:
    FakeClock &m_clock;
};

struct WaitFixture {
    FakeWorld world;
    TickingWindows windows{world.clock};
    Platform platform{world.boxes,     windows,     world.database, world.profile,   world.files,
                      world.processes, world.clock, world.locale,   world.automation};
    App app{platform};
    frmWaitMsg form{app};
};

} // namespace

TEST_CASE("the notice has its caption, its button's text and four pictures")
{
    WaitFixture fixture;
    CHECK(fixture.form.Caption.get() == "  タイトル");
    CHECK(fixture.form.cmdOK.Caption.get() == "Ｏ  Ｋ");
    CHECK(fixture.form.find("laMsg") != nullptr);
    CHECK(fixture.form.find("imgInf(3)") == &fixture.form.imgInf[3]);
}

TEST_CASE("the load shows only the picture of the given number")
{
    for (const std::int16_t number : {std::int16_t{0}, std::int16_t{3}}) {
        CAPTURE(number);
        WaitFixture fixture;
        fixture.form.iImage = number;
        fixture.form.load();
        for (std::int16_t i = 0; i < 4; ++i)
            CHECK(fixture.form.imgInf[static_cast<std::size_t>(i)].Visible.get() == (i == number));
    }
}

TEST_CASE("a picture number that does not exist ends the load")
{
    for (const std::int16_t number : {std::int16_t{-1}, std::int16_t{4}}) {
        CAPTURE(number);
        WaitFixture fixture;
        fixture.form.iImage = number;
        CHECK_THROWS_AS(fixture.form.load(), RuntimeError);
    }
}

TEST_CASE("the notice unloads itself after its seconds and processes events in every pass")
{
    WaitFixture fixture;
    fixture.form.fSeconds = 1.5F;
    fixture.windows.show(fixture.form, Modality::modal);
    CHECK_FALSE(fixture.form.isLoaded());
    CHECK(fixture.windows.passes == 6);
}

TEST_CASE("a notice of zero seconds closes at once")
{
    WaitFixture fixture;
    fixture.windows.show(fixture.form, Modality::modal);
    CHECK_FALSE(fixture.form.isLoaded());
    CHECK(fixture.windows.passes == 0);
}

TEST_CASE("the wait returns the elapsed seconds")
{
    WaitFixture fixture;
    fixture.form.load();
    CHECK(fixture.form.wait(0.6F) == 0.75F);
}

TEST_CASE("a wait across midnight is as long as any other")
{
    WaitFixture fixture;
    fixture.form.load();
    fixture.world.clock.seconds = 86399.75;
    CHECK(fixture.form.wait(1.0F) == 1.0F);
}

TEST_CASE("a wait continues across a second midnight")
{
    WaitFixture fixture;
    fixture.form.load();
    fixture.windows.step = 43200;
    CHECK(fixture.form.wait(180000.0F) == 216000.0F);
    CHECK(fixture.windows.passes == 5);
}

TEST_CASE("a notice shown shortly before midnight unloads itself after its seconds")
{
    WaitFixture fixture;
    fixture.world.clock.seconds = 86399.5;
    fixture.form.fSeconds = 1.5F;
    fixture.windows.show(fixture.form, Modality::modal);
    CHECK_FALSE(fixture.form.isLoaded());
    CHECK(fixture.windows.passes == 6);
    CHECK(fixture.world.clock.seconds == 1.0);
}

TEST_CASE("the button closes the notice at once and ends its wait")
{
    WaitFixture fixture;
    fixture.form.fSeconds = 100;
    fixture.windows.onTime = [&] { fixture.form.cmdOK.onClick(); };
    fixture.windows.show(fixture.form, Modality::modal);
    CHECK_FALSE(fixture.form.isLoaded());
    CHECK(fixture.windows.passes == 1);
}

TEST_CASE("a notice unloads when its window loses the focus")
{
    WaitFixture fixture;
    fixture.form.load();
    fixture.form.Form_Deactivate();
    CHECK_FALSE(fixture.form.isLoaded());
}

TEST_CASE("the text is centred next to the picture and above the button")
{
    WaitFixture fixture;
    fixture.form.Width = 4600;
    fixture.form.cmdOK.Top = 1500;
    fixture.form.laMsg.Width = 2000;
    fixture.form.laMsg.Height = 300;
    fixture.form.Form_Resize();
    CHECK(fixture.form.laMsg.Left == 1600);
    CHECK(fixture.form.laMsg.Top == 600);
}

TEST_CASE(
    "a label wider than its area extends to the left of it, and one of exactly its width starts at the picture's edge")
{
    struct Place {
        std::int32_t width, labelWidth, left;
    };
    for (const Place &place : {Place{4600, 4000, 600}, Place{4600, 5000, 100}, Place{4603, 2000, 1602}}) {
        CAPTURE(place.labelWidth);
        WaitFixture fixture;
        fixture.form.Width = place.width;
        fixture.form.laMsg.Width = place.labelWidth;
        fixture.form.Form_Resize();
        CHECK(fixture.form.laMsg.Left == place.left);
    }
}

TEST_CASE("the button closes the notice even without a wait")
{
    WaitFixture fixture;
    fixture.form.load();
    fixture.form.cmdOK.onClick();
    CHECK_FALSE(fixture.form.isLoaded());
}
