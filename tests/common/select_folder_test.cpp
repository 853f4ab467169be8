
#include "common/folder_form.h"
#include "platform/key_codes.h"
#include "runtime/runtime_error.h"
#include "support/fake_folders.h"
#include "support/fake_platform.h"

#include <doctest/doctest.h>

#include <functional>
#include <string>
#include <vector>

using namespace inin;

namespace {

struct FolderFixture : FakeWorld {
    FolderFixture()
    {
        for (const std::string &path : folders.paths) files.makeFolder(path);
        files.changeFolder("C:\\SUITE");
    }
    FakeFolders folders;
    clsSelectFolder select{platform, folders};

    /// The user's actions in the window. They must close the window.
    void act(const std::function<void(frmSelFolder &)> &act)
    {
        windows.acts.emplace_back([act](Form &form) { act(dynamic_cast<frmSelFolder &>(form)); });
    }
    /// The same for actions that leave the window open: its control box closes it afterwards.
    void actAndLeave(const std::function<void(frmSelFolder &)> &steps)
    {
        act(steps);
        windows.closeByControlBox();
    }
};

std::vector<std::string> textsOf(const ListBox &list)
{
    std::vector<std::string> texts;
    for (const ListBox::Item &item : list.items()) texts.push_back(item.text);
    return texts;
}

using Texts = std::vector<std::string>;
const ShownBox kNotReady{"ドライブの準備が出来ていません。", Icon::critical, "警告！"};

struct Selection {
    const char *name;
    std::int16_t (clsSelectFolder::*run)();
};
constexpr Selection kSelections[] = {{"iSelFolder", &clsSelectFolder::iSelFolder},
                                     {"iSelFolder_New", &clsSelectFolder::iSelFolder_New}};

} // namespace

TEST_CASE("title, folder and error text are initially empty")
{
    FolderFixture fixture;
    CHECK(fixture.select.CsErrStr().empty());
    CHECK(fixture.select.SelFolder().empty());
    fixture.actAndLeave([](frmSelFolder &window) { CHECK(window.Caption.get() == "フォルダの選択"); });
    CHECK(fixture.select.iSelFolder() == 0);
}

TEST_CASE("the window starts in the current folder if no folder is given")
{
    for (const Selection &each : kSelections) {
        CAPTURE(each.name);
        FolderFixture fixture;
        fixture.actAndLeave([](frmSelFolder &window) {
            CHECK(window.dilFolder.Path() == "C:\\SUITE");
            CHECK(textsOf(window.drlDrive) == Texts{"c:", "d:"});
            CHECK(window.drlDrive.ListIndex == 0);
            CHECK(window.csStartPath.empty());
            CHECK_FALSE(window.isChosen());
        });
        CHECK((fixture.select.*each.run)() == 0);
        CHECK(fixture.windows.acts.empty());
    }
}

TEST_CASE("the title becomes the window's caption")
{
    for (const Selection &each : kSelections) {
        CAPTURE(each.name);
        FolderFixture fixture;
        fixture.select.SetWindowTitle("写真の保存先");
        fixture.actAndLeave([](frmSelFolder &window) {
            CHECK(window.Caption.get() == "写真の保存先");
            CHECK(window.cmdOK.Caption.get() == "OK");
            CHECK(window.cmdCancel.Caption.get() == "キャンセル");
        });
        CHECK((fixture.select.*each.run)() == 0);
    }
}

TEST_CASE("the window starts in the given folder, and only the newer operation sets its drive list")
{
    struct StartCase {
        Selection selection;
        std::int16_t drive;
    };
    for (const StartCase &each : {StartCase{kSelections[0], 0}, StartCase{kSelections[1], 1}}) {
        CAPTURE(each.selection.name);
        FolderFixture fixture;
        fixture.select.SelFolder("D:\\写真");
        fixture.actAndLeave([&each](frmSelFolder &window) {
            CHECK(window.csStartPath == "D:\\写真");
            CHECK(window.dilFolder.Path() == "D:\\写真");
            CHECK(window.drlDrive.ListIndex == each.drive);
        });
        CHECK((fixture.select.*each.selection.run)() == 0);
        CHECK(fixture.select.SelFolder() == "D:\\写真");
    }
}

TEST_CASE("the newer operation sets the drive before the folder")
{
    FolderFixture fixture;
    fixture.select.SelFolder("D:\\写真");
    fixture.windows.closeByControlBox();
    CHECK(fixture.select.iSelFolder_New() == 0);
    CHECK(fixture.folders.opened == Texts{"C:\\SUITE", "D:\\写真", "d:", "D:\\写真"});
}

TEST_CASE("a start folder that is missing or a file leaves the window on the current one")
{
    for (const Selection &each : kSelections) {
        for (const char *folder : {"C:\\NONE", "C:\\SUITE\\Massage.ini"}) {
            CAPTURE(each.name);
            CAPTURE(folder);
            FolderFixture fixture;
            fixture.select.SelFolder(folder);
            fixture.actAndLeave([](frmSelFolder &window) {
                CHECK(window.dilFolder.Path() == "C:\\SUITE");
                CHECK(window.csStartPath.empty());
            });
            CHECK((fixture.select.*each.run)() == 0);
            CHECK(fixture.select.SelFolder() == folder);
            CHECK(fixture.boxes.shown.empty());
        }
    }
}

TEST_CASE("a start folder that cannot be opened is no failure")
{
    for (const Selection &each : kSelections) {
        CAPTURE(each.name);
        FolderFixture fixture;
        fixture.folders.errors["D:\\写真"] = error_number::pathAccess;
        fixture.select.SelFolder("D:\\写真");
        fixture.actAndLeave([](frmSelFolder &window) { CHECK(window.dilFolder.Path() == "C:\\SUITE"); });
        CHECK((fixture.select.*each.run)() == 0);
        CHECK(fixture.select.CsErrStr().empty());
    }
}

TEST_CASE("a start folder whose drive is not in the list is opened all the same")
{
    for (const Selection &each : kSelections) {
        CAPTURE(each.name);
        FolderFixture fixture;
        fixture.folders.letters = {"c:"};
        fixture.select.SelFolder("D:\\写真");
        fixture.actAndLeave([](frmSelFolder &window) {
            CHECK(window.dilFolder.Path() == "D:\\写真");
            CHECK(window.drlDrive.ListIndex == 0);
        });
        CHECK((fixture.select.*each.run)() == 0);
    }
}

TEST_CASE("a current folder whose drive is not in the list leaves the drive list without a choice")
{
    FolderFixture fixture;
    fixture.folders.letters = {"d:"};
    fixture.actAndLeave([](frmSelFolder &window) {
        CHECK(window.dilFolder.Path() == "C:\\SUITE");
        CHECK(window.drlDrive.ListIndex == -1);
    });
    CHECK(fixture.select.iSelFolder() == 0);
}

TEST_CASE("the chosen folder is returned without its closing backslash")
{
    struct PathCase {
        const char *opened;
        const char *kept;
    };
    for (const PathCase &path : {PathCase{"C:\\SUITE\\TMP", "C:\\SUITE\\TMP"}, PathCase{"C:\\", "C:"}}) {
        CAPTURE(path.opened);
        FolderFixture fixture;
        fixture.act([&path](frmSelFolder &window) {
            window.dilFolder.setPath(path.opened);
            window.cmdOK.onClick();
        });
        CHECK(fixture.select.iSelFolder() == 0);
        CHECK(fixture.select.SelFolder() == path.kept);
    }
}

TEST_CASE("the root of a tree without drives remains a path")
{
    FolderFixture fixture;
    fixture.folders.paths.emplace_back("/");
    fixture.act([](frmSelFolder &window) {
        window.dilFolder.setPath("/");
        window.cmdOK.onClick();
    });
    CHECK(fixture.select.iSelFolder() == 0);
    CHECK(fixture.select.SelFolder() == "/");
}

TEST_CASE("closing without a choice succeeds and keeps the folder")
{
    const std::vector<std::function<void(frmSelFolder &)>> ways = {
        [](frmSelFolder &window) { window.cmdCancel.onClick(); },
        [](frmSelFolder &window) { window.key(nullptr, kF12Key); },
        [](frmSelFolder &window) { window.key(nullptr, kEscapeKey); },
        [](frmSelFolder &window) { window.unload(true); },
    };
    for (std::size_t way = 0; way < ways.size(); ++way) {
        CAPTURE(way);
        FolderFixture fixture;
        fixture.select.SelFolder("C:\\SUITE\\DATA");
        fixture.act([&](frmSelFolder &window) {
            window.dilFolder.setPath("C:\\SUITE\\TMP");
            ways[way](window);
            CHECK_FALSE(window.isLoaded());
        });
        CHECK(fixture.select.iSelFolder() == 0);
        CHECK(fixture.select.SelFolder() == "C:\\SUITE\\DATA");
    }
}

TEST_CASE("selecting another drive opens its folders")
{
    FolderFixture fixture;
    fixture.act([](frmSelFolder &window) {
        window.drlDrive.ListIndex = 1;
        CHECK(window.dilFolder.Path() == "D:\\");
        CHECK(textsOf(window.dilFolder) == Texts{"D:\\", "写真"});
        window.cmdOK.onClick();
    });
    CHECK(fixture.select.iSelFolder() == 0);
    CHECK(fixture.select.SelFolder() == "D:");
}

TEST_CASE("selecting the drive already shown keeps the open folder")
{
    FolderFixture fixture;
    fixture.act([](frmSelFolder &window) {
        window.drlDrive.pick(0);
        CHECK(window.dilFolder.Path() == "C:\\SUITE");
        window.drlDrive.pick(1);
        CHECK(window.dilFolder.Path() == "D:\\");
        window.cmdCancel.onClick();
    });
    CHECK(fixture.select.iSelFolder() == 0);
}

TEST_CASE("an unreadable drive shows an error, and the drive list is set back")
{
    for (const std::int32_t error :
         {error_number::diskNotReady, error_number::pathNotFound, error_number::deviceIo, error_number::pathAccess}) {
        CAPTURE(error);
        FolderFixture fixture;
        fixture.folders.errors["d:"] = error;
        fixture.actAndLeave([](frmSelFolder &window) {
            window.drlDrive.ListIndex = 1;
            CHECK(window.drlDrive.ListIndex == 0);
            CHECK(window.dilFolder.Path() == "C:\\SUITE");
            CHECK(window.isLoaded());
        });
        CHECK(fixture.select.iSelFolder() == 0);
        CHECK(fixture.boxes.shown == std::vector<ShownBox>{kNotReady});
    }
}

TEST_CASE("the folder list shows the path to the open folder and its contents, by depth")
{
    FolderFixture fixture;
    fixture.actAndLeave([](frmSelFolder &window) {
        CHECK(textsOf(window.dilFolder) == Texts{"C:\\", "SUITE", "TMP", "DATA"});
        CHECK(window.dilFolder.ItemData(0) == 0);
        CHECK(window.dilFolder.ItemData(1) == 1);
        CHECK(window.dilFolder.ItemData(2) == 2);
        CHECK(window.dilFolder.ItemData(3) == 2);
        CHECK(window.dilFolder.ListIndex == 1);
    });
    CHECK(fixture.select.iSelFolder() == 0);
}

TEST_CASE("selecting a folder does not open it; return and a double click do")
{
    FolderFixture fixture;
    fixture.actAndLeave([](frmSelFolder &window) {
        window.dilFolder.ListIndex = 2;
        CHECK(window.dilFolder.Path() == "C:\\SUITE");
        window.key(&window.dilFolder, kReturnKey);
        CHECK(window.dilFolder.Path() == "C:\\SUITE\\TMP");
        window.dilFolder.ListIndex = 0;
        window.dilFolder.onDblClick();
        CHECK(window.dilFolder.Path() == "C:\\");
        window.dilFolder.ListIndex = -1;
        window.dilFolder.onDblClick();
        CHECK(window.dilFolder.Path() == "C:\\");
    });
    CHECK(fixture.select.iSelFolder() == 0);
}

TEST_CASE("a folder that cannot be opened shows the system's error text, and the list stays")
{
    FolderFixture fixture;
    fixture.folders.errors["C:\\SUITE\\TMP"] = error_number::pathAccess;
    fixture.actAndLeave([](frmSelFolder &window) {
        window.dilFolder.ListIndex = 2;
        window.dilFolder.onDblClick();
        CHECK(window.dilFolder.Path() == "C:\\SUITE");
    });
    CHECK(fixture.select.iSelFolder() == 0);
    CHECK(fixture.boxes.shown == std::vector<ShownBox>{{"パス名が無効です。", Icon::critical, "警告！"}});
}

TEST_CASE("a window that cannot be loaded is a failure with its number and text")
{
    for (const Selection &each : kSelections) {
        CAPTURE(each.name);
        FolderFixture fixture;
        fixture.folders.errors["C:\\SUITE"] = error_number::diskNotReady;
        fixture.select.SelFolder("D:\\写真");
        CHECK((fixture.select.*each.run)() == -1);
        CHECK(fixture.select.CsErrStr() == "Error No:71\rディスクが準備されていません。");
        CHECK(fixture.select.SelFolder() == "D:\\写真");
    }
}

TEST_CASE("a failure while the window is open is a failure too")
{
    FolderFixture fixture;
    fixture.act([](frmSelFolder &) { throw RuntimeError(error_number::outOfMemory); });
    CHECK(fixture.select.iSelFolder() == -1);
    CHECK(fixture.select.CsErrStr() == "Error No:7\rメモリが不足しています。");
}

TEST_CASE("a failure of F12 shows a box")
{
    FolderFixture fixture;
    frmSelFolder window(fixture.platform, fixture.folders);
    window.load();
    window.watch([] { throw RuntimeError(error_number::invalidCall); });
    window.key(nullptr, kF12Key);
    CHECK(fixture.boxes.shown ==
          std::vector<ShownBox>{{"フォームKeyDown()でエラー\r\n5\r\nプロシージャの呼び出し、または引数が不正です。",
                                 Icon::critical, ""}});
}

TEST_CASE("a window that is shown again starts without a choice")
{
    FolderFixture fixture;
    frmSelFolder window(fixture.platform, fixture.folders);
    window.load();
    window.cmdOK.onClick();
    CHECK(window.isChosen());
    window.load();
    CHECK_FALSE(window.isChosen());
    CHECK(textsOf(window.drlDrive) == Texts{"c:", "d:"});
}

TEST_CASE("a folder with more subfolders than a list can count shows as many as fit")
{
    class ManyFolders : public Folders {
    public:
        std::vector<std::string> drives() override { return {"c:"}; }
        FolderContents open(const std::string &) override
        {
            FolderContents contents{"c:", {{"C:\\", "C:\\"}}, {}};
            for (int number = 0; number < 40000; ++number) contents.inside.push_back({"x", "C:\\x"});
            return contents;
        }
    };
    ManyFolders folders;
    FolderList list("dilFolder", folders);
    list.setPath("C:\\");
    CHECK(list.ListCount() == 32767);
    list.ListIndex = 32766;
    list.openChosen();
    CHECK(list.Path() == "C:\\");
}
