#include "viewer/window/task_bar.h"
#include "viewer/window/window_world.h"

#include <QProgressBar>
#include <QPushButton>
#include <doctest/doctest.h>

#include <stdexcept>
#include <thread>

using namespace inin::viewer;

namespace {

using SetDone = std::function<bool(std::size_t)>;

void rest()
{
    std::this_thread::sleep_for(std::chrono::milliseconds(35));
}

} // namespace

TEST_CASE("a short task shows no progress")
{
    TaskBar bar;
    bool wasSeen = false;
    bar.run(QStringLiteral("短い"), 3, [&](const SetDone &setDone) {
        for (std::size_t i = 1; i <= 3; ++i) wasSeen = !setDone(i) || bar.isVisible() || wasSeen;
    });
    CHECK(!wasSeen);
    CHECK(!bar.isRunning());
}

TEST_CASE("a long task shows its progress, and the bar is hidden at its end")
{
    TaskBar bar;
    int value = 0;
    bar.run(QStringLiteral("長い"), 1000, [&](const SetDone &setDone) {
        for (std::size_t i = 1; i <= 1000 && !bar.isVisible(); ++i) {
            rest();
            (void)setDone(i);
            value = bar.findChild<QProgressBar *>()->value();
        }
        CHECK(bar.isVisible());
    });
    CHECK(value > 0);
    CHECK(!bar.isVisible());
}

TEST_CASE("the cancel button ends a task")
{
    TaskBar bar;
    std::size_t done = 0;
    bar.run(QStringLiteral("長い"), 1000, [&](const SetDone &setDone) {
        while (done < 1000 && setDone(done)) {
            if (++done == 3) bar.findChild<QPushButton *>()->click();
        }
    });
    CHECK(done == 3);
}

TEST_CASE("a failed task leaves the bar ready for the next")
{
    TaskBar bar;
    int changes = 0;
    bar.onRunningChanged = [&] { ++changes; };
    CHECK_THROWS_AS(bar.run(QStringLiteral("だめ"), 1, [](const SetDone &) { throw std::runtime_error("x"); }),
                    std::runtime_error);
    CHECK(!bar.isRunning());
    CHECK(changes == 2);
}
