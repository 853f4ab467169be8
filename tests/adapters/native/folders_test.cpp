#include "adapters/native/native_platform.h"
#include "support/errors.h"
#include "support/temp_folder.h"
#include "system/file_path.h"

#include <string>
#include <vector>

#include <doctest/doctest.h>

using namespace inin;

// Behaviour of folders on every system. Differences of one system are tested in its own folder.

namespace {

using Texts = std::vector<std::string>;

Texts namesOf(const std::vector<FolderPlace> &places)
{
    Texts names;
    for (const FolderPlace &place : places) names.push_back(place.name);
    return names;
}

} // namespace

TEST_CASE("a folder has the path from its drive and its subfolders by name, without files")
{
    const TempFolder folder;
    for (const char *name : {"写真", "写真/b", "写真/A", "写真/令和"})
        std::filesystem::create_directory(pathOf(folder / name));
    folder.put("写真/file.txt", "");

    const FolderContents contents = makeSystemFolders()->open(folder / "写真");

    CHECK(namesOf(contents.inside) == Texts{"A", "b", "令和"});
    CHECK(contents.inside[2].path == systemPath(folder / "写真/令和"));
    CHECK(contents.above.front().path == contents.drive);
    CHECK(contents.above.back().name == "写真");
    CHECK(contents.above.back().path == systemPath(folder / "写真"));
}

TEST_CASE("a folder is found by a path with backslashes and with a trailing separator")
{
    const TempFolder folder;
    std::filesystem::create_directories(pathOf(folder / "disk/inner"));
    const std::string inner = systemPath(folder / "disk/inner");
    for (const char *path : {"\\disk\\inner", "/disk/inner/", "\\disk\\inner\\", "/disk/./inner/../inner"}) {
        CAPTURE(path);
        CHECK(makeSystemFolders()->open(folder.path() + path).above.back().path == inner);
    }
}

TEST_CASE("a path without a root is relative to the current folder")
{
    const TempFolder folder;
    std::filesystem::create_directory(pathOf(folder / "inner"));
    const CurrentFolder current(folder.folder());
    CHECK(makeSystemFolders()->open("inner").above.back().path == systemPath(folder / "inner"));
}

TEST_CASE("the path of the root is the root itself, and its folders are listed")
{
    const TempFolder folder;
    const std::string root = textOf(folder.folder().root_path());
    const FolderContents contents = makeSystemFolders()->open(root);
    CHECK(namesOf(contents.above) == Texts{root});
    CHECK(contents.drive == root);
    REQUIRE_FALSE(contents.inside.empty());
    CHECK(contents.inside[0].path == root + contents.inside[0].name);
}

TEST_CASE("opening anything but a folder is error 76")
{
    const TempFolder folder;
    folder.put("file", "");
    CHECK(errorOf([&] { return makeSystemFolders()->open(folder / "file"); }) == 76);
    CHECK(errorOf([&] { return makeSystemFolders()->open(folder / "none"); }) == 76);
}
