#include "shell/start.h"

#include "printing/print_form.h"
#include "runtime/runtime_error.h"
#include "support/fake_platform.h"
#include "support/list_answers.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <string>
#include <vector>

using namespace inin;

namespace {

const ShownBox kCannotStart{"起動できません！", Icon::critical, ""};

/// A branch with a staff member, without which no screen opens.
struct StaffedWorld : FakeWorld {
    StaffedWorld() { database.resultsByText.emplace_back(kStaffSql, staffMembers({{std::int32_t{11}, "佐藤 花子"}})); }
};

} // namespace

TEST_CASE("the start shows the background first, then the screen, and closing the screen ends the process")
{
    StaffedWorld world;
    world.windows.closeByControlBox();
    CHECK_THROWS_AS(Main(world.app), ProcessEnded);
    const auto &log = world.windows.log;
    CHECK(std::ranges::find(log, "show frmBack") < std::ranges::find(log, "show frmPrintInin"));
    CHECK(std::ranges::count(log, "show frmPrintInin") == 1);
    CHECK(world.processes.started == std::vector<std::string>{"1 C:\\SUITE\\Main.exe 2"});
}

TEST_CASE("every way to close the screen returns to the menu program and ends the process")
{
    struct Row {
        const char *claim;
        std::function<void(Form &)> act;
    };
    const Row rows[] = {
        {"the control box", [](Form &form) { static_cast<void>(form.unload(true)); }},
        {"F12", [](Form &form) { form.key(nullptr, 123); }},
        {"the escape key", [](Form &form) { form.key(nullptr, 27); }},
        {"the menu entry", [](Form &form) { dynamic_cast<frmPrintInin &>(form).mnF12.onClick(); }},
        {"the button", [](Form &form) { dynamic_cast<frmPrintInin &>(form).btnPrint.onClick(6); }},
    };
    for (const Row &row : rows) {
        CAPTURE(row.claim);
        StaffedWorld world;
        world.windows.acts.push_back(row.act);
        CHECK_THROWS_AS(Main(world.app), ProcessEnded);
        CHECK(std::ranges::count(world.windows.log, "show frmPrintInin") == 1);
        CHECK(world.processes.started == std::vector<std::string>{"1 C:\\SUITE\\Main.exe 2"});
    }
}

TEST_CASE("a branch without staff shows a message and returns to the menu program before the screen is visible")
{
    FakeWorld world;
    CHECK_THROWS_AS(Main(world.app), ProcessEnded);
    CHECK(world.boxes.shown ==
          std::vector<ShownBox>{{"スタッフが存在しません。メイン画面に戻ります", Icon::critical, "委任状印刷"}});
    CHECK(std::ranges::count(world.windows.log, "show frmPrintInin") == 0);
    CHECK(world.processes.started == std::vector<std::string>{"1 C:\\SUITE\\Main.exe 2"});
}

TEST_CASE("a run-time error in the load of the background shows one box and starts no menu program")
{
    StaffedWorld world;
    world.files.putText("C:\\SUITE\\Massage.ini", "SYSTEM_ICON=\\ICON\nWALLPAPER=wall.bmp\nBASEID=xx\n");
    CHECK_THROWS_AS(Main(world.app), ProcessEnded);
    CHECK(world.boxes.shown == std::vector<ShownBox>{kCannotStart});
    CHECK(world.processes.started.empty());
    CHECK(world.processes.ended);
    CHECK(world.windows.log.empty());
}

TEST_CASE("a wallpaper that is not a picture prevents the start")
{
    StaffedWorld world;
    world.windows.pictureError = 481;
    CHECK_THROWS_AS(Main(world.app), ProcessEnded);
    CHECK(world.boxes.shown == std::vector<ShownBox>{kCannotStart});
}

TEST_CASE("a missing wallpaper setting with files in the icon folder warns, and the start fails")
{
    StaffedWorld world;
    world.files.putText("C:\\SUITE\\Massage.ini", "SYSTEM_ICON=\\ICON\nBASEID=0102\n");
    world.windows.pictureError = 75;
    CHECK_THROWS_AS(Main(world.app), ProcessEnded);
    CHECK(world.boxes.shown ==
          std::vector<ShownBox>{
              {"システム設定ファイルに、指定の項目が見つかりません。\r[WALLPAPER]", Icon::critical, "警告！"},
              kCannotStart});
}

TEST_CASE("a missing settings file ends the process with only its own box")
{
    StaffedWorld world;
    world.files.remove("C:\\SUITE\\Massage.ini");
    CHECK_THROWS_AS(Main(world.app), ProcessEnded);
    CHECK(world.boxes.shown ==
          std::vector<ShownBox>{{"システム設定ファイルが見つかりません。", Icon::critical, "警告！"}});
    CHECK(world.processes.started.empty());
}

TEST_CASE("a run-time error in the load of the screen shows the start's box")
{
    StaffedWorld world;
    world.clock.current = Date(1e9);
    CHECK_THROWS_AS(Main(world.app), ProcessEnded);
    CHECK(world.boxes.shown.back() == kCannotStart);
    CHECK(world.processes.started.empty());
}

TEST_CASE("a menu program that cannot be started is an unhandled error, not a failed start")
{
    StaffedWorld world;
    world.processes.startError = 53;
    world.windows.closeByControlBox();
    CHECK_THROWS_AS(Main(world.app), UnhandledError);
    CHECK(std::ranges::count(world.boxes.shown, kCannotStart) == 0);
    CHECK_FALSE(world.processes.ended);
}

TEST_CASE("the screen opens without a connection, and closing it still returns to the menu program")
{
    StaffedWorld world;
    world.database.connectError = -2147467259;
    world.windows.closeByControlBox();
    CHECK_THROWS_AS(Main(world.app), ProcessEnded);
    CHECK(std::ranges::count(world.windows.log, "show frmPrintInin") == 1);
    CHECK(world.processes.started == std::vector<std::string>{"1 C:\\SUITE\\Main.exe 2"});
}
