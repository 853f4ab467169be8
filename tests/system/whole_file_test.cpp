#include "runtime/runtime_error.h"
#include "support/errors.h"
#include "support/temp_folder.h"
#include "system/file_path.h"
#include "system/whole_file.h"

#include <doctest/doctest.h>

#include <algorithm>

using namespace inin;
namespace fs = std::filesystem;

namespace {

std::string readRefusal(const std::string &path)
{
    return errorWordsOf([&] { return readWholeFile(path, 10); });
}

void write(const std::string &path, const std::string &bytes)
{
    writeWholeFile(pathOf(path), bytes, NewFile::ownerOnly);
}

/// A path beyond the 260 characters of the classic Windows limit.
std::string deepPath(const TempFolder &folder)
{
    std::string path = folder.path();
    for (int level = 0; level < 6; ++level) path += "/" + std::string(48, static_cast<char>('a' + level));
    return path;
}

} // namespace

TEST_CASE("a file gets its name only on commit, and without a commit nothing is left")
{
    TempFolder folder;
    {
        AtomicFile file(folder / "a");
        file.write(std::string(200'000, 'x'));
        CHECK_FALSE(folder.has("a"));
        file.commit();
    }
    CHECK(fs::file_size(folder / "a") == 200'000);
    CHECK((fs::status(folder / "a").permissions() & fs::perms::owner_read) != fs::perms::none);
    {
        AtomicFile file(folder / "b");
        file.write("half");
    }
    CHECK(folder.names() == std::vector<std::string>{"a"});
}

TEST_CASE("an older file is replaced completely or stays unchanged")
{
    TempFolder folder;
    folder.put("委任状.pdf", "an older and longer file");
    {
        AtomicFile file(folder / "委任状.pdf");
        file.write("new");
        CHECK(folder.bytes("委任状.pdf") == "an older and longer file");
        file.commit();
    }
    CHECK(folder.bytes("委任状.pdf") == "new");
    CHECK(folder.names().size() == 1);
}

TEST_CASE("a folder is not read as a file or replaced by one")
{
    TempFolder folder;
    fs::create_directory(folder.folder() / "taken");
    CHECK(readRefusal(folder / "taken") == "ファイル「" + folder / "taken" + "」は読めるファイルではありません。");
    CHECK_THROWS_AS(AtomicFile{folder / "taken"}, RuntimeError);
    CHECK(folder.names() == std::vector<std::string>{"taken"});
}

TEST_CASE("a missing or too large file is refused with its path, and an empty file is read")
{
    TempFolder folder;
    CHECK(readRefusal(folder / "x") == "ファイル「" + folder / "x" + "」が見つかりません。");
    CHECK(readRefusal(folder / "x" + "/y") == "ファイル「" + folder / "x" + "/y」が見つかりません。");
    folder.put("x", "eleven byte");
    CHECK(readRefusal(folder / "x") == "ファイル「" + folder / "x" + "」は大きすぎます。");
    folder.put("x", "");
    CHECK(readWholeFile(folder / "x").empty());
}

TEST_CASE("reading without an error returns nothing for a missing file or a folder")
{
    TempFolder folder;
    folder.put("a", "rows");
    fs::create_directory(folder.folder() / "taken");
    CHECK(tryReadWholeFile(folder.folder() / "a") == "rows");
    CHECK_FALSE(tryReadWholeFile(folder.folder() / "x"));
    CHECK_FALSE(tryReadWholeFile(folder.folder() / "taken"));
    CHECK(startOfFile(folder.folder() / "a", 3) == "row");
    CHECK(startOfFile(folder.folder() / "a", 9) == "rows");
    CHECK(startOfFile(folder.folder() / "x", 9).empty());
}

TEST_CASE("a path may have either slash, any case, more than 260 characters and Japanese characters")
{
    TempFolder folder;
    const std::string deep = deepPath(folder);
    REQUIRE(deep.size() > 300);
    makeFolder(deep);
    write(deep + "/髙橋𠮷.csv", "whole");

    std::string path = deep + "/髙橋𠮷.CSV";
    CHECK(readWholeFile(path) == "whole");
    std::ranges::replace(path, '/', '\\');
    CHECK(readWholeFile(path) == "whole");
    CHECK(tryReadWholeFile(pathOf(absoluteSystemPath(path))) == "whole");
    CHECK(fileInfo(systemPath(path)).size == 5);
    // The removal of whole folders obeys the limit, so remove the deep part here.
    std::error_code error;
    for (fs::path rest = pathOf(deep + "/髙橋𠮷.csv"); rest != folder.path(); rest = rest.parent_path())
        fs::remove(longPathOf(textOf(rest)), error);
    CHECK(folder.names().empty());
}

TEST_CASE("a folder that cannot be created because of a file is reported")
{
    TempFolder folder;
    folder.put("taken", "x");
    CHECK_THROWS_AS(makeFolder(folder / "taken"), RuntimeError);
    makeFolder(folder / "a" + "/b/c");
    makeFolder(folder / "a" + "/b/c");
    CHECK(fs::is_directory(folder.folder() / "a" / "b" / "c"));
}
