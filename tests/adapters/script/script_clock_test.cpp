#include "adapters/script/script_platform.h"
#include "adapters/script/script_player.h"

#include <doctest/doctest.h>

using namespace inin;
using namespace inin::script;

TEST_CASE("a moment is read to the second")
{
    const auto moment = readMoment("2024-06-15 10:20:30");
    REQUIRE(moment.has_value());
    const DateParts parts = partsOf(*moment);
    CHECK(parts.year == 2024);
    CHECK(parts.month == 6);
    CHECK(parts.day == 15);
    CHECK(parts.hour == 10);
    CHECK(parts.minute == 20);
    CHECK(parts.second == 30);
    CHECK(readMoment("2024-02-29 23:59:59").has_value());
}

TEST_CASE("a text other than an existing moment is refused")
{
    for (const std::string text :
         {"", "2024-06-15", "2024-06-15 10:20", "2024/06/15 10:20:30", "2024-6-15 10:20:30", "2024-06-15T10:20:30",
          "2024-06-15 10:20:30 ", "2023-02-29 00:00:00", "2024-13-01 00:00:00", "2024-00-01 00:00:00",
          "2024-06-31 00:00:00", "2024-06-15 24:00:00", "2024-06-15 10:60:00", "2024-06-15 10:20:60",
          "-024-06-15 10:20:30", "0099-06-15 10:20:30", "2024-+6-15 10:20:30"}) {
        CAPTURE(text);
        CHECK_FALSE(readMoment(text).has_value());
    }
}

TEST_CASE("a stopped clock does not advance, but its timer does")
{
    StoppedClock clock(*readMoment("2024-06-15 01:00:01"));
    const Date first = clock.now();
    const double start = clock.timer();
    CHECK(start >= 3601.0);
    CHECK(start < 3660.0);
    double later = clock.timer();
    while (later <= start) later = clock.timer();
    CHECK(clock.now() == first);
    CHECK(clock.today() == DateSerial(2024, 6, 15));
}

TEST_CASE("the timer of a stopped clock restarts at midnight")
{
    StoppedClock clock(*readMoment("2024-06-15 23:59:59"));
    CHECK(clock.timer() < 86400.0);
    while (clock.timer() >= 86399.0) {
    }
    CHECK(clock.timer() < 60.0);
}
