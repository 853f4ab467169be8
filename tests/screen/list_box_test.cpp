#include "screen/controls.h"

#include "support/errors.h"

#include <doctest/doctest.h>

using namespace inin;

namespace {

struct ListFixture {
    ListBox list{"cmbHoken"};
    int clicks = 0;
    ListFixture()
    {
        list.AddItem("－ 指定なし －", -1);
        list.AddItem("国保", 7);
        list.onClick = [this] { ++clicks; };
    }
};

} // namespace

TEST_CASE("choosing another list entry fires the click, choosing the same fires nothing")
{
    ListFixture fixture;
    fixture.list.ListIndex = std::int16_t{1};
    fixture.list.ListIndex = std::int16_t{1};
    CHECK(fixture.clicks == 1);

    fixture.list.ListIndex = std::int16_t{-1};
    CHECK(fixture.clicks == 2);
}

TEST_CASE("a pick by hand fires the click, even of the chosen entry")
{
    ListFixture fixture;
    fixture.list.pick(1);
    CHECK(fixture.list.ListIndex == 1);
    CHECK(fixture.clicks == 1);

    fixture.list.pick(1);
    CHECK(fixture.clicks == 2);

    CHECK(errorOf([&] { fixture.list.pick(2); }) == 380);
    CHECK(fixture.clicks == 2);
}

TEST_CASE("a list index out of range is error 380 and keeps the choice")
{
    struct Row {
        std::int16_t index;
    };
    for (const Row row : {Row{2}, Row{-2}, Row{32767}}) {
        CAPTURE(row.index);
        ListFixture fixture;
        fixture.list.ListIndex = std::int16_t{1};
        int notifications = 0;
        fixture.list.watch([&] { ++notifications; });

        CHECK(errorOf([&] { fixture.list.ListIndex = row.index; }) == 380);

        CHECK(fixture.list.ListIndex == 1);
        CHECK(fixture.clicks == 1);
        CHECK(notifications == 0);
    }
}

TEST_CASE("the first item with a number from a given index is chosen; without one the choice is kept")
{
    ListFixture fixture;
    fixture.list.AddItem("社保", 7);
    fixture.list.AddItem("労災", -1);

    fixture.list.chooseItemData(7);
    CHECK(fixture.list.ListIndex == 1);
    fixture.list.chooseItemData(7, 2);
    CHECK(fixture.list.ListIndex == 2);
    fixture.list.chooseItemData(-1, 1);
    CHECK(fixture.list.ListIndex == 3);
    fixture.list.chooseItemData(-1);
    CHECK(fixture.list.ListIndex == 0);
    CHECK(fixture.clicks == 4);

    fixture.list.chooseItemData(99);
    fixture.list.chooseItemData(7, 3);
    CHECK(fixture.list.ListIndex == 0);
    CHECK(fixture.clicks == 4);
}

TEST_CASE("adding entries does not change the choice and fires nothing")
{
    ListFixture fixture;
    fixture.list.AddItem("社保", 8);
    CHECK(fixture.list.ListIndex == -1);
    CHECK(fixture.list.ListCount() == 3);
    CHECK(fixture.clicks == 0);
}

TEST_CASE("adding an entry notifies the watchers")
{
    ListFixture fixture;
    std::vector<std::int16_t> counts;
    fixture.list.watch([&] { counts.push_back(fixture.list.ListCount()); });
    fixture.list.AddItem("社保", 8);
    fixture.list.AddItem("後期", 9);
    CHECK(counts == std::vector<std::int16_t>{3, 4});
}

TEST_CASE("each list entry keeps its text and its number")
{
    ListFixture fixture;
    CHECK(fixture.list.items().at(1).text == "国保");
    CHECK(fixture.list.ItemData(0) == -1);
    CHECK(fixture.list.ItemData(1) == 7);
}

TEST_CASE("the number of an entry out of range is error 380")
{
    ListFixture fixture;
    CHECK(errorOf([&] { static_cast<void>(fixture.list.ItemData(2)); }) == 380);
    CHECK(errorOf([&] { static_cast<void>(fixture.list.ItemData(-1)); }) == 380);
}

TEST_CASE("clearing a list removes the entries and the choice and fires nothing")
{
    ListFixture fixture;
    fixture.list.ListIndex = std::int16_t{1};
    int notifications = 0;
    fixture.list.watch([&] { ++notifications; });

    fixture.list.Clear();

    CHECK(fixture.list.ListCount() == 0);
    CHECK(fixture.list.ListIndex == -1);
    CHECK(fixture.clicks == 1);
    CHECK(notifications == 1);
}

TEST_CASE("the first choice after a clear fires again")
{
    ListFixture fixture;
    fixture.list.ListIndex = std::int16_t{0};
    fixture.list.Clear();
    fixture.list.AddItem("－ 指定なし －", -1);

    fixture.list.ListIndex = std::int16_t{0};

    CHECK(fixture.clicks == 2);
}

TEST_CASE("a list has at most 32767 entries; one more is error 6")
{
    ListBox list("cbSejyutsu");
    for (int i = 0; i < 32767; ++i) list.AddItem("x", i);
    CHECK(list.ListCount() == 32767);
    CHECK(errorOf([&] { list.AddItem("x", 0); }) == 6);
    CHECK(list.ListCount() == 32767);
}
