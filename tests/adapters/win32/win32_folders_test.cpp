#include "adapters/win32/win32_platform.h"

#include "runtime/runtime_error.h"
#include "temp_folder.h"

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
try {
    (void)makeWin32Folders()->open(path);
    return 0;
} catch (const RuntimeError &error) {
    return error.number();
}

} // namespace

TEST_CASE("the drives are the letters that are there")
{
    const auto drives = makeWin32Folders()->drives();
    CHECK(std::ranges::count(drives, "C:\\") == 1);
    CHECK(std::ranges::count(drives, "Q:\\") == 0);
}

TEST_CASE("a folder tells the folders in it by name, and neither its files nor hidden ones")
{
    const TempFolder folder;
    for (const char *name : {"b", "A", "委任状", "hidden"}) std::filesystem::create_directory(pathOf(folder / name));
    REQUIRE(SetFileAttributesA((folder / "hidden").c_str(), FILE_ATTRIBUTE_HIDDEN) != 0);
    folder.put("file", "");

    const FolderContents contents = makeWin32Folders()->open(folder.path() + "\\");

    CHECK(namesOf(contents.inside) == std::vector<std::string>{"A", "b", "委任状"});
    CHECK(contents.inside[2].path == win32Path(folder / "委任状"));
    CHECK(contents.drive == "C:\\");
    CHECK(contents.above.front().path == "C:\\");
    CHECK(contents.above.back().path == win32Path(folder.path()));
}

TEST_CASE("a drive by itself is its root")
{
    const FolderContents contents = makeWin32Folders()->open("C:");
    CHECK(namesOf(contents.above) == std::vector<std::string>{"C:\\"});
    CHECK(std::ranges::count(namesOf(contents.inside), "windows") == 1);
}

TEST_CASE("a folder that is not there, or a file, is error 76")
{
    const TempFolder folder;
    folder.put("file", "");
    CHECK(openError(folder / "missing") == 76);
    CHECK(openError(folder / "file") == 76);
    CHECK(openError("Q:\\x") == 76);
}
