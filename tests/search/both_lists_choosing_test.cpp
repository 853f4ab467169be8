// Choosing a row in either search list, and closing the windows without a choice.

#include "search/search_fixture.h"

#include <doctest/doctest.h>

using namespace inin;

#define BOTH_LISTS PatientList, StaffList

namespace {
const ShownBox kNoRowChosen{"有効な行が選択されていません！", Icon::exclamation, ""};
} // namespace

TEST_CASE_TEMPLATE("F5 in an empty list still calls its handler, which beeps and shows the warning", List, BOTH_LISTS)
{
    ListFixture<List> list;
    list.answer(List::found, List::rows({}));
    list.init();
    open(list.window);
    list.world.boxes.shown.clear();
    list.window.key(&list.window.spr_1ran, kF5Key);
    CHECK(list.world.boxes.shown == std::vector{kNoRowChosen});
    CHECK(list.count("beep") == 1);
    CHECK(list.window.isLoaded());
}

TEST_CASE_TEMPLATE("the choice button without a chosen row shows the warning and the window stays open", List,
                   BOTH_LISTS)
{
    ListFixture<List> list;
    list.opened();
    press(list.window.but_Act(0));
    CHECK(list.world.boxes.shown == std::vector{kNoRowChosen});
    CHECK(list.count("beep") == 1);
    CHECK(list.window.isLoaded());
}

TEST_CASE_TEMPLATE("each way to choose gives the row's number and name and closes the window", List, BOTH_LISTS)
{
    struct Row {
        const char *way;
        void (*choose)(typename List::Window &window);
    };
    const Row rows[] = {
        {"button", [](typename List::Window &window) { press(window.but_Act(0)); }},
        {"F5", [](typename List::Window &window) { window.key(nullptr, kF5Key); }},
        {"menu", [](typename List::Window &window) { press(window.mnF05); }},
        {"call", [](typename List::Window &window) { window.vWhenSeledOK(); }},
    };
    for (const Row &row : rows) {
        CAPTURE(row.way);
        ListFixture<List> list;
        list.opened();
        list.window.spr_1ran.ActiveRow = 2;
        row.choose(list.window);
        CHECK_FALSE(list.window.isLoaded());
        CHECK(list.window.isChosen());
        std::int32_t nSeledCD = 0;
        std::string csSeledName;
        list.window.vGetSeledInf(nSeledCD, csSeledName);
        CHECK(nSeledCD == List::numbers[1]);
        CHECK(csSeledName == list.window.spr_1ran.text(2, List::numberColumn + 1));
    }
}

TEST_CASE_TEMPLATE("a row of number 0 can be chosen", List, BOTH_LISTS)
{
    ListFixture<List> list;
    list.answer(List::found, List::nullRow());
    list.opened(List::numbers[0]);
    list.window.spr_1ran.onDblClick(1);
    CHECK(list.window.isChosen());
    std::int32_t nSeledCD = -1;
    std::string csSeledName = "前の人";
    list.window.vGetSeledInf(nSeledCD, csSeledName);
    CHECK(nSeledCD == 0);
    CHECK(csSeledName.empty());
}

TEST_CASE_TEMPLATE("a double click chooses the row under the pointer, whichever row is active", List, BOTH_LISTS)
{
    ListFixture<List> list;
    list.opened();
    list.window.spr_1ran.ActiveRow = 1;
    list.window.spr_1ran.onDblClick(2);
    CHECK(list.window.isChosen());
    std::int32_t nSeledCD = 0;
    std::string csSeledName;
    list.window.vGetSeledInf(nSeledCD, csSeledName);
    CHECK(nSeledCD == List::numbers[1]);
}

TEST_CASE_TEMPLATE("a double click on the header does nothing", List, BOTH_LISTS)
{
    ListFixture<List> list;
    list.opened();
    list.window.spr_1ran.ActiveRow = 1;
    list.window.spr_1ran.onDblClick(0);
    CHECK(list.window.isLoaded());
    CHECK(list.world.boxes.shown.empty());
    CHECK(list.count("beep") == 0);
}

TEST_CASE_TEMPLATE("a row missing from the list is a system error, and the window stays open", List, BOTH_LISTS)
{
    ListFixture<List> list;
    list.opened();
    list.window.spr_1ran.onDblClick(99);
    CHECK(list.world.boxes.shown ==
          std::vector{ShownBox{"システムエラーが発生しました！\r\r(9)インデックスが有効範囲にありません。",
                               Icon::critical, ""}});
    CHECK(list.window.isLoaded());
    CHECK_FALSE(list.window.isChosen());
}

TEST_CASE_TEMPLATE("a reopened window has nothing chosen and reads its staff and its list anew", List, BOTH_LISTS)
{
    ListFixture<List> list;
    list.opened();
    list.window.spr_1ran.onDblClick(1);
    REQUIRE(list.window.isChosen());
    open(list.window);
    CHECK(list.window.isLoaded());
    CHECK_FALSE(list.window.isChosen());
    CHECK(list.statements().size() == 4);
    CHECK(list.window.spr_1ran.RowCount() == static_cast<std::int32_t>(std::size(List::numbers)));
    if (auto *staff = dynamic_cast<ListBox *>(list.window.find("cbo_Sejutusha"))) CHECK(staff->ListCount() == 3);
}

TEST_CASE_TEMPLATE("each way to close without a choice leaves nothing chosen", List, BOTH_LISTS)
{
    struct Row {
        const char *way;
        void (*leave)(typename List::Window &window);
    };
    const Row rows[] = {
        {"button", [](typename List::Window &window) { press(window.but_Act(1)); }},
        {"F12", [](typename List::Window &window) { window.key(nullptr, kF12Key); }},
        {"menu", [](typename List::Window &window) { press(window.mnF12); }},
        {"control box", [](typename List::Window &window) { window.unload(true); }},
    };
    for (const Row &row : rows) {
        CAPTURE(row.way);
        ListFixture<List> list;
        list.opened();
        list.window.spr_1ran.ActiveRow = 1;
        row.leave(list.window);
        CHECK_FALSE(list.window.isLoaded());
        CHECK_FALSE(list.window.isChosen());
    }
}
