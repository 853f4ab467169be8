#include "adapters/native/native_platform.h"

#include "support/temp_folder.h"
#include "system/file_path.h"

#include <filesystem>

#include <doctest/doctest.h>

using namespace inin;

namespace {

struct Tree {
    Tree()
    {
        std::filesystem::create_directories(folder / "Suite/Tmp");
        folder.put("Suite/Tmp/委任状.CSV", "");
        folder.put("Suite/ＭＡＳＳＡＧＥ.ini", "");
    }
    TempFolder folder;
};

} // namespace

TEST_CASE("backslashes become slashes")
{
    CHECK(systemPath("\\no\\such\\folder") == "/no/such/folder");
    CHECK(systemPath("no\\such/folder\\") == "no/such/folder/");
    CHECK(systemPath("") == "");
}

TEST_CASE("each part of a path is found in any case")
{
    const Tree tree;
    const std::string &root = tree.folder.path();
    CHECK(systemPath(root + "\\SUITE\\TMP\\委任状.csv") == root + "/Suite/Tmp/委任状.CSV");
    CHECK(systemPath(root + "\\suite\\tmp\\") == root + "/Suite/Tmp/");
    CHECK(systemPath(root + "\\Suite\\ｍａｓｓａｇｅ.INI") == root + "/Suite/ＭＡＳＳＡＧＥ.ini");
    CHECK(systemPath(root + "\\\\suite\\\\.\\tmp\\..\\TMP") == root + "//Suite//./Tmp/../Tmp");
}

TEST_CASE("a relative path is searched in the current folder")
{
    const Tree tree;
    const CurrentFolder current(tree.folder.path());
    CHECK(systemPath("suite\\TMP") == "Suite/Tmp");
    CHECK(systemPath(".\\suite\\TMP") == "./Suite/Tmp");
}

TEST_CASE("the missing rest of a path is kept unchanged after its existing part")
{
    const Tree tree;
    const std::string &root = tree.folder.path();
    CHECK(systemPath(root + "\\SUITE\\TMP\\New.Csv") == root + "/Suite/Tmp/New.Csv");
    CHECK(systemPath(root + "\\SUITE\\NONE\\TMP") == root + "/Suite/NONE/TMP");
}

TEST_CASE("the exact name has priority over the same name in another case")
{
    const TempFolder folder;
    for (const char *name : {"A.ini", "a.ini", "a.INI"}) folder.put(name, "");
    CHECK(systemPath(folder / "a.ini") == folder / "a.ini");
    CHECK(systemPath(folder / "A.INI") == folder / "A.ini");
}

TEST_CASE("trailing blanks and dots of a name are ignored")
{
    const Tree tree;
    const std::string &root = tree.folder.path();
    CHECK(systemPath(root + "\\suite. \\tmp ") == root + "/Suite/Tmp");
    CHECK(systemPath(root + "\\Suite\\Tmp\\委任状.CSV..") == root + "/Suite/Tmp/委任状.CSV");
}

TEST_CASE("a full path has no links if it exists, and no dots in any case")
{
    const Tree tree;
    const std::string &root = tree.folder.path();
    std::filesystem::create_directory_symlink(root + "/Suite", root + "/link");
    const CurrentFolder current(tree.folder.path());
    CHECK(fullPath("link/Tmp/") == root + "/Suite/Tmp");
    CHECK(fullPath(".") == root);
    CHECK(fullPath("none/./x/../y") == root + "/none/y");
}
