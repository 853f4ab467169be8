#include "support/errors.h"
#include "viewer/document/growing_file.h"
#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>

#include <filesystem>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

/// A file, and the changes that another program makes to it in each pause of the reader.
struct Written {
    TempFolder folder;
    std::string path = folder / "a.csv";
    std::vector<std::function<void()>> steps;
    std::size_t pauses = 0;

    void then(const std::string &bytes)
    {
        steps.push_back([this, bytes] { writeBytes(path, bytes); });
    }
    [[nodiscard]] ReadFile read()
    {
        return readGrowingFile(path, 1000, [this] {
            if (pauses < steps.size()) steps[pauses]();
            ++pauses;
        });
    }
};

} // namespace

TEST_CASE("a file that ends at a line end is read at once")
{
    Written file;
    writeBytes(file.path, "a\r\n");
    CHECK(file.read().bytes == "a\r\n");
    CHECK(file.pauses == 0);
}

TEST_CASE("an empty or unfinished file that grows is read again until it ends at a line end")
{
    Written file;
    writeBytes(file.path, "");
    file.then("a\r");
    file.then("a\r\nb");
    file.steps.emplace_back([] {});
    file.then("a\r\nbc\r\n");
    const ReadFile whole = file.read();
    CHECK(whole.bytes == "a\r\nbc\r\n");
    CHECK(whole.stamp == stampOf(file.path));
    CHECK(file.pauses == 4);
}

TEST_CASE("an unfinished file that does not change is read after ten checks")
{
    Written file;
    writeBytes(file.path, "a\r");
    CHECK(file.read().bytes == "a\r");
    CHECK(file.pauses == 10);
}

TEST_CASE("an unfinished file that never stops growing is read after fifty checks")
{
    Written file;
    writeBytes(file.path, "");
    for (std::size_t i = 1; i <= 60; ++i) file.then(std::string(i, 'a'));
    CHECK(file.read().bytes == std::string(50, 'a'));
    CHECK(file.pauses == 50);
}

TEST_CASE("an unfinished file that is deleted and rewritten is read again")
{
    Written file;
    writeBytes(file.path, "old");
    file.steps.emplace_back([&] { std::filesystem::remove(file.path); });
    file.then("new\n");
    CHECK(file.read().bytes == "new\n");
}

TEST_CASE("a missing or too large file is refused without a pause")
{
    Written file;
    CHECK(errorWordsOf([&] { return file.read(); }) == "ファイル「" + file.path + "」が見つかりません。");
    writeBytes(file.path, std::string(1001, 'a'));
    CHECK(errorWordsOf([&] { return file.read(); }) == "ファイル「" + file.path + "」は大きすぎます。");
    CHECK(file.pauses == 0);
}

TEST_CASE("a file that is expected is waited for during at most thirty checks")
{
    Written file;
    file.steps.assign(2, [] {});
    file.then("x");
    const auto pause = [&] {
        if (file.pauses < file.steps.size()) file.steps[file.pauses]();
        ++file.pauses;
    };
    CHECK(waitForFile(file.path, 1000, pause).bytes == "x");
    CHECK(file.pauses == 3);
    std::filesystem::remove(file.path);
    CHECK_THROWS((void)waitForFile(file.path, 1000, pause));
    CHECK(file.pauses == 33);
}
