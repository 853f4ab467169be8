#include "platform/controls.h"

#include <doctest/doctest.h>

#include <vector>

using namespace inin;

namespace {

struct OptionFixture {
    OptionGroup options{"optTgtDate", 3};
    std::vector<std::int16_t> clicks;
    OptionFixture()
    {
        options.onClick = [this](std::int16_t Index) { clicks.push_back(Index); };
    }
    std::vector<bool> values() const
    {
        return {options(0).Value.get(), options(1).Value.get(), options(2).Value.get()};
    }
};

} // namespace

TEST_CASE("no option of a new group is selected")
{
    OptionFixture fixture;
    CHECK(fixture.options.count() == 3);
    CHECK(fixture.options.marked() == -1);
    CHECK(fixture.values() == std::vector<bool>{false, false, false});
}

TEST_CASE("selecting an option deselects the others and fires its click once")
{
    OptionFixture fixture;
    fixture.options(0).Value = true;

    fixture.options(2).Value = true;

    CHECK(fixture.values() == std::vector<bool>{false, false, true});
    CHECK(fixture.options.marked() == 2);
    CHECK(fixture.clicks == std::vector<std::int16_t>{0, 2});
}

TEST_CASE("selecting the selected option fires nothing")
{
    OptionFixture fixture;
    fixture.options(1).Value = true;

    fixture.options(1).Value = true;

    CHECK(fixture.clicks == std::vector<std::int16_t>{1});
}

TEST_CASE("deselecting an option fires nothing and leaves none selected")
{
    OptionFixture fixture;
    fixture.options(1).Value = true;

    fixture.options(1).Value = false;

    CHECK(fixture.clicks == std::vector<std::int16_t>{1});
    CHECK(fixture.options.marked() == -1);
}

TEST_CASE("the other options are deselected before the click runs")
{
    OptionFixture fixture;
    fixture.options(0).Value = true;
    std::int16_t seen = -1;
    bool firstStillMarked = true;
    fixture.options.onClick = [&](std::int16_t) {
        seen = fixture.options.marked();
        firstStillMarked = fixture.options(0).Value;
    };

    fixture.options(2).Value = true;

    CHECK(seen == 2);
    CHECK_FALSE(firstStillMarked);
}

TEST_CASE("a click handler may select another option of its group")
{
    OptionFixture fixture;
    fixture.options.onClick = [&](std::int16_t Index) {
        fixture.clicks.push_back(Index);
        if (Index == 2) fixture.options(0).Value = true;
    };

    fixture.options(2).Value = true;

    CHECK(fixture.clicks == std::vector<std::int16_t>{2, 0});
    CHECK(fixture.values() == std::vector<bool>{true, false, false});
}

TEST_CASE("option groups do not affect each other")
{
    OptionGroup optObject("optObject", 3), optTrust("optTrust", 2);
    optObject(1).Value = true;

    optTrust(0).Value = true;

    CHECK(optObject.marked() == 1);
    CHECK(optTrust.marked() == 0);
}

TEST_CASE("an assignment fires the click of an option even while it is disabled or hidden")
{
    OptionFixture fixture;
    fixture.options(2).Visible = false;
    fixture.options(2).Enabled = false;

    fixture.options(2).Value = true;

    CHECK(fixture.clicks == std::vector<std::int16_t>{2});
}
