#include "adapters/native/native_platform.h"

#include "common/folder_form.h"
#include "support/errors.h"
#include "support/fake_platform.h"
#include "support/temp_folder.h"

#include <algorithm>

#include <doctest/doctest.h>
#include <windows.h>

using namespace inin;

namespace {

std::vector<std::string> namesOf(const std::vector<FolderPlace> &places)
{
    std::vector<std::string> names;
    for (const FolderPlace &place : places) names.push_back(place.name);
    return names;
}

std::int32_t openError(const std::string &path)
{
    return errorOf([&] { return makeSystemFolders()->open(path); });
}

/// A drive letter without a target, like a drive without a medium.
class DriveWithoutMedium {
public:
    DriveWithoutMedium() { REQUIRE(DefineDosDeviceW(0, L"Y:", L"C:\\no such folder") != 0); }
    DriveWithoutMedium(const DriveWithoutMedium &) = delete;
    DriveWithoutMedium &operator=(const DriveWithoutMedium &) = delete;
    ~DriveWithoutMedium() { DefineDosDeviceW(DDD_REMOVE_DEFINITION, L"Y:", nullptr); }
};

} // namespace

TEST_CASE("the drives are the existing letters")
{
    const auto drives = makeSystemFolders()->drives();
    CHECK(std::ranges::count(drives, "C:\\") == 1);
    CHECK(std::ranges::count(drives, "Q:\\") == 0);
}

TEST_CASE("a hidden folder is not listed")
{
    const TempFolder folder;
    for (const char *name : {"seen", "hidden"}) std::filesystem::create_directory(pathOf(folder / name));
    REQUIRE(SetFileAttributesA((folder / "hidden").c_str(), FILE_ATTRIBUTE_HIDDEN) != 0);

    const FolderContents contents = makeSystemFolders()->open(folder.path());

    CHECK(namesOf(contents.inside) == std::vector<std::string>{"seen"});
    CHECK(contents.drive == "C:\\");
}

TEST_CASE("a drive alone means its root")
{
    const FolderContents contents = makeSystemFolders()->open("C:");
    CHECK(namesOf(contents.above) == std::vector<std::string>{"C:\\"});
    CHECK(std::ranges::count(namesOf(contents.inside), "windows") == 1);
}

TEST_CASE("a folder on a missing drive is error 76")
{
    CHECK(openError("Q:\\x") == 76);
}

TEST_CASE("a drive without a medium is listed and is error 71, without a box of the system")
{
    const DriveWithoutMedium drive;
    SetThreadErrorMode(0, nullptr);
    const auto folders = makeSystemFolders();
    CHECK(std::ranges::count(folders->drives(), "Y:\\") == 1);
    CHECK(openError("Y:\\") == 71);
    CHECK(openError("y:") == 71);
    CHECK(openError("Y:\\x") == 76);
    CHECK((GetThreadErrorMode() & SEM_FAILCRITICALERRORS) != 0);
}

TEST_CASE_FIXTURE(
    FakeWorld,
    "choosing a drive without a medium is reported in the program's words, and the list returns to the previous drive")
{
    const DriveWithoutMedium drive;
    const auto folders = makeSystemFolders();
    files.makeFolder("C:\\windows");
    files.changeFolder("C:\\windows");
    clsSelectFolder select(platform, *folders);
    windows.acts.emplace_back([](Form &form) {
        auto &window = dynamic_cast<frmSelFolder &>(form);
        const std::int16_t before = window.drlDrive.ListIndex;
        CHECK(window.drlDrive.items()[static_cast<std::size_t>(before)].text == "C:\\");
        window.setDrive("Y:\\");
        CHECK(window.drlDrive.ListIndex == before);
        CHECK(window.dilFolder.Path() == "C:\\windows");
        window.setDrive("Z:\\");
        CHECK(window.dilFolder.Path() == "Z:\\");
        window.cmdOK_Click();
    });
    CHECK(select.iSelFolder() == 0);
    CHECK(select.SelFolder() == "Z:");
    CHECK(boxes.shown == std::vector<ShownBox>{{"ドライブの準備が出来ていません。", Icon::critical, "警告！"}});
}
