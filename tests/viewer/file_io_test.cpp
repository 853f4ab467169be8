#include "runtime/runtime_error.h"
#include "support/errors.h"
#include "viewer/io/file_io.h"
#include "viewer/io/file_stamp.h"
#include "viewer/io/mapped_file.h"
#include "viewer/viewer_world.h"

#include <doctest/doctest.h>

#include <algorithm>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;
namespace fs = std::filesystem;

namespace {

std::string refusal(const std::string &path)
{
    return errorWordsOf([&] { return readWholeFile(path, 10); });
}

void write(const std::string &path, const std::string &bytes)
{
    FinishedFile file(path);
    file.write(bytes);
    file.finish();
}

/// A path beyond the classic limit of Windows.
std::string deepPath(const Folder &folder)
{
    std::string path = folder.path().string();
    for (int level = 0; level < 6; ++level) path += "/" + std::string(48, static_cast<char>('a' + level));
    return path;
}

} // namespace

TEST_CASE("a file is not seen under its name until it is whole, and an unfinished one leaves nothing")
{
    Folder folder;
    {
        FinishedFile file(folder.file("a"));
        file.write(std::string(200'000, 'x'));
        CHECK_FALSE(fs::exists(folder.file("a")));
        file.finish();
    }
    CHECK(fs::file_size(folder.file("a")) == 200'000);
    CHECK((fs::status(folder.file("a")).permissions() & fs::perms::owner_read) != fs::perms::none);
    {
        FinishedFile file(folder.file("b"));
        file.write("half");
    }
    CHECK(folder.names() == std::vector<std::string>{"a"});
}

TEST_CASE("an older file is replaced as a whole, or stays")
{
    Folder folder;
    writeBytes(folder.file("委任状.pdf"), "an older and longer file");
    {
        FinishedFile file(folder.file("委任状.pdf"));
        file.write("new");
        CHECK(bytesOf(folder.file("委任状.pdf")) == "an older and longer file");
        file.finish();
    }
    CHECK(bytesOf(folder.file("委任状.pdf")) == "new");
    CHECK(folder.names().size() == 1);
}

TEST_CASE("a folder is never read as a file or replaced by one")
{
    Folder folder;
    fs::create_directory(folder.path() / "taken");
    CHECK(refusal(folder.file("taken")) == "ファイル「" + folder.file("taken") + "」は読めるファイルではありません。");
    CHECK_THROWS_AS(FinishedFile{folder.file("taken")}, RuntimeError);
    CHECK(folder.names() == std::vector<std::string>{"taken"});
}

TEST_CASE("a file that is missing or too large is refused with its path, an empty one is read")
{
    Folder folder;
    CHECK(refusal(folder.file("x")) == "ファイル「" + folder.file("x") + "」が見つかりません。");
    CHECK(refusal(folder.file("x") + "/y") == "ファイル「" + folder.file("x") + "/y」が見つかりません。");
    writeBytes(folder.file("x"), "eleven byte");
    CHECK(refusal(folder.file("x")) == "ファイル「" + folder.file("x") + "」は大きすぎます。");
    writeBytes(folder.file("x"), "");
    CHECK(readWholeFile(folder.file("x")).empty());
    CHECK(MappedFile(folder.file("x")).bytes().empty());
    CHECK(MappedFile(folder.file("y")).bytes().empty());
}

TEST_CASE("a path is taken with either slash, in any case, beyond 260 characters and in Japanese")
{
    Folder folder;
    const std::string deep = deepPath(folder);
    REQUIRE(deep.size() > 300);
    makeFolder(deep);
    write(deep + "/髙橋𠮷.csv", "whole");

    std::string path = deep + "/髙橋𠮷.CSV";
    CHECK(readWholeFile(path) == "whole");
    std::ranges::replace(path, '/', '\\');
    CHECK(readWholeFile(path) == "whole");
    CHECK(MappedFile(systemPathOf(path)).bytes() == "whole");
    CHECK(stampOf(path).exists);
    CHECK(stampOf(path).size == 5);
    CHECK_FALSE(stampOf(deep + "/x").exists);
    // What removes whole folders keeps to the limit everywhere: it finds the rest.
    std::error_code error;
    for (fs::path rest = pathOf(deep + "/髙橋𠮷.csv"); rest != folder.path(); rest = rest.parent_path())
        fs::remove(unlimitedPath(rest), error);
    CHECK(folder.names().empty());
}

TEST_CASE("a folder where a file stands in the way is told")
{
    Folder folder;
    writeBytes(folder.file("taken"), "x");
    CHECK_THROWS_AS(makeFolder(folder.file("taken")), RuntimeError);
    makeFolder(folder.file("a") + "/b/c");
    makeFolder(folder.file("a") + "/b/c");
    CHECK(fs::is_directory(folder.path() / "a" / "b" / "c"));
}
