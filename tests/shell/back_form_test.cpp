#include "shell/start.h"

#include "support/errors.h"
#include "support/fake_platform.h"

#include <doctest/doctest.h>

#include <string>
#include <vector>

using namespace inin;

namespace {

struct BackFixture : FakeWorld {
    BackFixture()
    {
        app.gcsAppPath.clear();
        app.iKyotenCd = 0;
        app.iKyotenEb = 0;
        back.onMousePointer = [this](std::int16_t kind) { files.log.push_back("pointer " + std::to_string(kind)); };
    }
    void settings(const std::string &baseLine, const std::string &wallpaperLine = "WALLPAPER=wall.bmp\n")
    {
        files.putText("C:\\SUITE\\Massage.ini", "SYSTEM_ICON=\\ICON\n" + wallpaperLine + baseLine);
    }
    /// The error number that ends the load, 0 for a successful load.
    std::int32_t loadError()
    {
        return errorOf([this] { back.load(); });
    }
    frmBack back{app};
};

} // namespace

TEST_CASE("the background window has its name, its caption and the picture as its only control")
{
    BackFixture fixture;
    CHECK(fixture.back.name() == "frmBack");
    CHECK(fixture.back.Caption.get() == "Sorvin総合システム");
    REQUIRE(fixture.back.controls().size() == 1);
    CHECK(fixture.back.controls()[0]->name() == "ImgWall");
}

TEST_CASE("the load of the background window fills the process-wide values")
{
    BackFixture fixture;
    REQUIRE(fixture.loadError() == 0);
    CHECK(fixture.app.gcsAppPath == "C:\\SUITE");
    CHECK(fixture.app.iKyotenCd == 1);
    CHECK(fixture.app.iKyotenEb == 2);
    CHECK(fixture.back.ImgWall.Picture.get() == "C:\\SUITE\\ICON\\wall.bmp");
    CHECK(fixture.boxes.shown.empty());
}

TEST_CASE("the load sets hourglass, folder, icon folder, wallpaper, base twice, picture and pointer in this order")
{
    BackFixture fixture;
    REQUIRE(fixture.loadError() == 0);
    const std::string search = "search C:\\SUITE\\Massage.ini", open = "open <C:\\SUITE\\Massage.ini";
    CHECK(fixture.files.log == std::vector<std::string>{"pointer 11", "chdrive C:\\SUITE", "chdir C:\\SUITE", search,
                                                        open, search, open, search, open, search, open,
                                                        "search C:\\SUITE\\ICON\\wall.bmp", "pointer 0"});
}

TEST_CASE("the wallpaper is read before the base: its warning is shown although the base ends the load")
{
    BackFixture fixture;
    fixture.files.putText("C:\\SUITE\\Massage.ini", "[Sorvin]\n");
    CHECK(fixture.loadError() == 13);
    CHECK(fixture.boxes.shown ==
          std::vector<ShownBox>{
              {"システム設定ファイルに、指定の項目が見つかりません。\r[SYSTEM_ICON]", Icon::critical, "警告！"},
              {"システム設定ファイルに、指定の項目が見つかりません。\r[WALLPAPER]", Icon::critical, "警告！"}});
}

TEST_CASE("a missing wallpaper file leaves the window empty without a message")
{
    BackFixture fixture;
    fixture.settings("BASEID=0102\n", "WALLPAPER=none.bmp\n");
    CHECK(fixture.loadError() == 0);
    CHECK(fixture.back.ImgWall.Picture.get().empty());
    CHECK(fixture.boxes.shown.empty());
    CHECK(fixture.windows.log.empty());
}

TEST_CASE("a missing wallpaper setting warns once and checks the icon folder itself")
{
    BackFixture fixture;
    fixture.settings("BASEID=0102\n", "");
    fixture.files.remove("C:\\SUITE\\ICON\\wall.bmp");
    CHECK(fixture.loadError() == 0);
    REQUIRE(fixture.boxes.shown.size() == 1);
    CHECK(fixture.boxes.shown[0].text == "システム設定ファイルに、指定の項目が見つかりません。\r[WALLPAPER]");
    CHECK(fixture.back.ImgWall.Picture.get().empty());
}

TEST_CASE("an icon folder that contains a file counts as the wallpaper, and loading it ends the load")
{
    BackFixture fixture;
    fixture.settings("BASEID=0102\n", "");
    fixture.windows.pictureError = 75;
    CHECK(fixture.loadError() == 75);
    CHECK(fixture.windows.log == std::vector<std::string>{"picture C:\\SUITE\\ICON\\"});
    CHECK(fixture.back.ImgWall.Picture.get().empty());
}

TEST_CASE("a missing icon folder setting warns and the load continues")
{
    BackFixture fixture;
    fixture.files.putText("C:\\SUITE\\Massage.ini", "WALLPAPER=wall.bmp\nBASEID=0304\n");
    CHECK(fixture.loadError() == 0);
    REQUIRE(fixture.boxes.shown.size() == 1);
    CHECK(fixture.boxes.shown[0] ==
          ShownBox{"システム設定ファイルに、指定の項目が見つかりません。\r[SYSTEM_ICON]", Icon::critical, "警告！"});
    CHECK(fixture.app.iKyotenCd == 3);
}

TEST_CASE("a wallpaper file that is not a picture ends the load and leaves the window empty")
{
    BackFixture fixture;
    fixture.windows.pictureError = 481;
    CHECK(fixture.loadError() == 481);
    CHECK(fixture.back.ImgWall.Picture.get().empty());
}

TEST_CASE("the branch is the first four characters of the base setting")
{
    struct Row {
        const char *claim;
        const char *line;
        std::int16_t code;
        std::int16_t sub;
    };
    const Row rows[] = {
        {"four digits", "BASEID=1234\n", 12, 34},
        {"what follows them is not read", "BASEID=0102abc\n", 1, 2},
        {"a blank beside a digit converts", "BASEID= 1 2\n", 1, 2},
        {"a sign converts", "BASEID=-1+2\n", -1, 2},
    };
    for (const Row &row : rows) {
        CAPTURE(row.claim);
        BackFixture fixture;
        fixture.settings(row.line);
        CHECK(fixture.loadError() == 0);
        CHECK(fixture.app.iKyotenCd == row.code);
        CHECK(fixture.app.iKyotenEb == row.sub);
    }
}

TEST_CASE("a base setting without two numbers ends the load with error 13")
{
    struct Row {
        const char *claim;
        const char *line;
    };
    const Row rows[] = {
        {"missing", ""},
        {"empty", "BASEID=\n"},
        {"one character", "BASEID=1\n"},
        {"two characters", "BASEID=01\n"},
        {"three characters", "BASEID=010\n"},
        {"letters in the first place", "BASEID=ab02\n"},
        {"letters in the second place", "BASEID=01xy\n"},
        {"blanks only", "BASEID=    \n"},
        {"Japanese text", "BASEID=本社東京\n"},
    };
    for (const Row &row : rows) {
        CAPTURE(row.claim);
        BackFixture fixture;
        fixture.settings(row.line);
        CHECK(fixture.loadError() == 13);
    }
}

TEST_CASE("a load that fails at the sub-code has already set the code and searches for no wallpaper")
{
    BackFixture fixture;
    fixture.settings("BASEID=07xx\n");
    CHECK(fixture.loadError() == 13);
    CHECK(fixture.app.iKyotenCd == 7);
    CHECK(fixture.files.log.back() == "open <C:\\SUITE\\Massage.ini");
    CHECK(fixture.back.MousePointer() == 11);
}

TEST_CASE("a missing settings file ends the process in the load")
{
    BackFixture fixture;
    fixture.files.remove("C:\\SUITE\\Massage.ini");
    CHECK_THROWS_AS(fixture.back.load(), ProcessEnded);
    REQUIRE(fixture.boxes.shown.size() == 1);
    CHECK(fixture.boxes.shown[0].text == "システム設定ファイルが見つかりません。");
}

TEST_CASE("the picture is set to the window's width, then to its height")
{
    BackFixture fixture;
    fixture.back.Width = 12000;
    fixture.back.Height = 9000;
    std::vector<std::string> steps;
    fixture.back.ImgWall.watch([&] {
        steps.push_back(std::to_string(fixture.back.ImgWall.Width) + "x" + std::to_string(fixture.back.ImgWall.Height));
    });

    fixture.back.Form_Resize();

    CHECK(steps == std::vector<std::string>{"12000x0", "12000x9000"});
}
