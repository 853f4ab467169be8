// Keys and the busy flag of both search lists.

#include "search/search_fixture.h"

#include "runtime/runtime_error.h"

#include <doctest/doctest.h>

using namespace inin;

#define BOTH_LISTS PatientList, StaffList

TEST_CASE_TEMPLATE("F4 and its menu entry search like the button", List, BOTH_LISTS)
{
    ListFixture<List> list;
    list.opened();
    list.window.key(&list.window.txt_SiboriName, kF4Key);
    press(list.window.mnF04);
    CHECK(list.statements().size() == 4);
}

TEST_CASE_TEMPLATE("F12 closes the window even if its menu entry is disabled", List, BOTH_LISTS)
{
    ListFixture<List> list;
    list.opened();
    list.window.mnF12.Enabled = false;
    list.window.key(&list.window.txt_SiboriName, kF12Key);
    CHECK_FALSE(list.window.isLoaded());
    CHECK_FALSE(list.window.isChosen());
}

TEST_CASE_TEMPLATE("the return key acts like Tab in these controls and does nothing in the others", List, BOTH_LISTS)
{
    struct Row {
        Control &(*control)(typename List::Window &window);
        bool goesOn;
    };
    const Row rows[] = {
        {[](auto &window) -> Control & { return window.txt_SiboriName; }, true},
        {[](auto &window) -> Control & { return window.txt_SiboriKana; }, true},
        {[](auto &window) -> Control & { return window.in_SiboriID; }, true},
        {[](auto &window) -> Control & {
             return *window.find(window.name() == "frm患者検索" ? "chkEndKanja" : "chkEndSejutsuha");
         },
         true},
        {[](auto &window) -> Control & { return window.but_Read; }, false},
        {[](auto &window) -> Control & { return window.but_Act(1); }, false},
        {[](auto &window) -> Control & { return window.spr_1ran; }, false},
    };
    for (const Row &row : rows) {
        ListFixture<List> list;
        list.opened();
        Control &control = row.control(list.window);
        CAPTURE(control.name());
        int presses = 0;
        control.onKeyPress = [&](std::int16_t) { ++presses; };
        list.world.windows.active = &control;
        list.world.windows.log.clear();
        list.window.key(&control, kReturnKey);
        using Log = std::vector<std::string>;
        CHECK(list.world.windows.log == (row.goesOn ? Log{"tab", "time"} : Log{}));
        CHECK(presses == 0); // the key was handled
        CHECK(list.window.isLoaded());
    }
}

TEST_CASE_TEMPLATE("the return key without a focused control does nothing", List, BOTH_LISTS)
{
    ListFixture<List> list;
    list.opened();
    list.world.windows.active = nullptr;
    list.window.key(nullptr, kReturnKey);
    CHECK(list.count("tab") == 0);
}

TEST_CASE_TEMPLATE("other keys reach their control", List, BOTH_LISTS)
{
    ListFixture<List> list;
    list.opened();
    int code = 0;
    list.window.txt_SiboriName.onKeyPress = [&](std::int16_t KeyCode) { code = KeyCode; };
    list.window.key(&list.window.txt_SiboriName, 65);
    CHECK(code == 65);
    CHECK(list.count("tab") == 0);
}

TEST_CASE_TEMPLATE("events that arrive during a search do nothing", List, BOTH_LISTS)
{
    struct Row {
        const char *event;
        void (*raise)(typename List::Window &window);
    };
    const Row rows[] = {
        {"search", [](typename List::Window &window) { press(window.but_Read); }},
        {"choose", [](typename List::Window &window) { press(window.but_Act(0)); }},
        {"leave", [](typename List::Window &window) { press(window.but_Act(1)); }},
        {"double click", [](typename List::Window &window) { window.spr_1ran.onDblClick(1); }},
        {"F4", [](typename List::Window &window) { window.key(nullptr, kF4Key); }},
        {"F5", [](typename List::Window &window) { window.key(nullptr, kF5Key); }},
        {"F12", [](typename List::Window &window) { window.key(nullptr, kF12Key); }},
        {"control box", [](typename List::Window &window) { CHECK_FALSE(window.unload(true)); }},
    };
    for (const Row &row : rows) {
        CAPTURE(row.event);
        ListFixture<List> list;
        list.opened();
        list.window.spr_1ran.ActiveRow = 1;
        int raised = 0;
        list.world.windows.onTime = [&] {
            if (++raised == 1) row.raise(list.window);
        };
        press(list.window.but_Read);
        CHECK(raised == 1);
        CHECK(list.window.isLoaded());
        CHECK_FALSE(list.window.isChosen());
        CHECK(list.statements().size() == 3); // staff, first list, this search
        CHECK(list.world.boxes.shown.empty());
    }
}

TEST_CASE_TEMPLATE("a key that arrives during a search is ignored", List, BOTH_LISTS)
{
    ListFixture<List> list;
    list.opened();
    int presses = 0;
    list.window.txt_SiboriName.onKeyPress = [&](std::int16_t) { ++presses; };
    list.world.windows.onTime = [&] {
        list.world.windows.onTime = nullptr;
        list.window.key(&list.window.txt_SiboriName, 65);
        list.world.windows.active = &list.window.txt_SiboriName;
        list.window.key(&list.window.txt_SiboriName, kReturnKey);
    };
    press(list.window.but_Read);
    CHECK(presses == 0);
    CHECK(list.count("tab") == 0);
    list.window.key(&list.window.txt_SiboriName, 65);
    CHECK(presses == 1);
}

TEST_CASE_TEMPLATE("the first search also sets the busy flag", List, BOTH_LISTS)
{
    ListFixture<List> list;
    list.init();
    list.world.windows.onTime = [&] {
        list.world.windows.onTime = nullptr;
        CHECK_FALSE(list.window.unload(true));
        press(list.window.but_Read);
    };
    open(list.window);
    CHECK(list.window.isLoaded());
    CHECK(list.statements().size() == 2);
    CHECK(list.window.unload(true));
}

TEST_CASE_TEMPLATE("after a search the control box closes the window again", List, BOTH_LISTS)
{
    ListFixture<List> list;
    list.opened();
    press(list.window.but_Read);
    CHECK(list.window.unload(true));
}

TEST_CASE_TEMPLATE("a failure while reporting a failure is reported under the name of the shortcut", List, BOTH_LISTS)
{
    struct Row {
        std::int16_t key;
        bool menuIsUsable;
        int failingBoxes; ///< those of the step and of its trap
        const char *text;
    };
    const Row rows[] = {
        {kF4Key, true, 2, "mnF04_Click()でエラー\r\n7\r\nメモリが不足しています。"},
        {kF5Key, true, 2, "mnF05_Click()でエラー\r\n7\r\nメモリが不足しています。"},
        {kF12Key, true, 1, "mnF12_Click()でエラー\r\n7\r\nメモリが不足しています。"},
        {kF12Key, false, 1, "フォームKeyDown()でエラー\r\n7\r\nメモリが不足しています。"},
    };
    for (const Row &row : rows) {
        CAPTURE(row.text);
        ListFixture<List> list;
        list.opened();
        list.answer(List::found, failure());
        list.window.mnF12.Enabled = row.menuIsUsable;
        list.window.watch([&] {
            if (!list.window.isLoaded()) throw RuntimeError(error_number::outOfMemory);
        });
        int boxes = 0;
        list.world.boxes.onShow = [&](const ShownBox &) {
            if (++boxes <= row.failingBoxes) throw RuntimeError(error_number::outOfMemory);
        };
        list.window.key(nullptr, row.key);
        REQUIRE_FALSE(list.world.boxes.shown.empty());
        CHECK(list.world.boxes.shown.back() == ShownBox{row.text, Icon::critical, ""});
        CHECK(boxes == row.failingBoxes + 1);
    }
}
