#include "adapters/native/native_platform.h"

#include <chrono>
#include <cmath>
#include <cstdlib>
#include <ctime>

#include <doctest/doctest.h>

using namespace inin;

namespace {

/// Sets a time zone for one test.
class Zone {
public:
    explicit Zone(const char *name)
    {
        setenv("TZ", name, 1);
        tzset();
    }
    ~Zone()
    {
        unsetenv("TZ");
        tzset();
    }
    Zone(const Zone &) = delete;
    Zone &operator=(const Zone &) = delete;
};

/// Days since 1899-12-30 in Japan, from the system's seconds since 1970-01-01.
double japaneseDays()
{
    return (static_cast<double>(std::time(nullptr)) + 9 * 3600) / 86400 + 25569;
}

} // namespace

TEST_CASE("now is the local time to the second")
{
    const Zone japan("JST-9");
    const double days = makeSystemClock()->now().days();
    CHECK(std::abs(days - japaneseDays()) < 2.0 / 86400);
    CHECK(std::abs(days * 86400 - std::round(days * 86400)) < 0.001);
}

TEST_CASE("the timer returns the seconds since midnight with their fraction")
{
    const Zone japan("JST-9");
    const auto clock = makeSystemClock();
    const double expected = std::fmod(japaneseDays(), 1.0) * 86400;
    const double first = clock->timer();
    if (expected < 86390) CHECK(std::abs(first - expected) < 2);
    bool fraction = false;
    for (int look = 0; look < 100 && !fraction; ++look) {
        const double seconds = clock->timer();
        fraction = seconds != std::floor(seconds);
        CHECK(seconds >= 0);
        CHECK(seconds < 86401);
    }
    CHECK(fraction);
}

TEST_CASE("the short date format is the Japanese one in every environment")
{
    setenv("LANG", "en_US.UTF-8", 1);
    CHECK(makeSystemLocale()->regional().shortDate == "yyyy/MM/dd");
}

TEST_CASE("the locale's code page is 932")
{
    const auto locale = makeSystemLocale();
    CHECK(locale->toCodePage("委任状é") == "\x88\xCF\x94\x43\x8F\xF3?");
    CHECK(locale->fromCodePage("\x88\xCF\x94\x43\x8F\xF3\xFF") == "委任状\uFFFD");
}
