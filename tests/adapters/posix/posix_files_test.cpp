#include "adapters/system/system_platform.h"

#include "ordinary_user.h"
#include "small_disk.h"
#include "support/errors.h"
#include "support/temp_folder.h"

#include <filesystem>
#include <vector>

#include <doctest/doctest.h>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>

using namespace inin;
using namespace std::string_literals;

namespace {

std::int32_t openOutputError(const std::string &path)
{
    return errorOf([&] { return makeSystemFiles("/")->openForOutput(path); });
}

std::int32_t openInputError(const std::string &path)
{
    return errorOf([&] { return makeSystemFiles("/")->openForInput(path); });
}

std::int32_t removeError(const std::string &path)
{
    return errorOf([&] { makeSystemFiles("/")->remove(path); });
}

} // namespace

TEST_CASE("a name that is longer than the system's names is told as 52")
{
    const TempFolder folder;
    CHECK(openOutputError(folder / std::string(300, 'x')) == 52);
    CHECK(openInputError(folder / std::string(300, 'x')) == 52);
    CHECK(folder.entries() == 0);
}

TEST_CASE("a change to the folder without a name is told as 76")
{
    CHECK(errorOf([] { makeSystemFiles("/")->changeFolder(""); }) == 76);
}

TEST_CASE("a folder that refuses is told as 75, a file that refuses as 70")
{
    const TempFolder folder;
    chmod(folder.put("x", "old").c_str(), 0444);
    folder.put("secret", "old");
    chmod((folder / "secret").c_str(), 0000);
    chmod(folder.path().c_str(), 0555);
    const std::string told = asOrdinaryUser([&] {
        return std::to_string(openOutputError(folder / "new")) + " " + std::to_string(removeError(folder / "x")) + " " +
               std::to_string(openInputError(folder / "secret")) + " " +
               std::to_string(openOutputError(folder / "secret"));
    });
    CHECK(told == "75 70 70 70");
}

TEST_CASE("a folder that lets nobody delete a writable file is told as 75")
{
    const TempFolder folder;
    chmod(folder.put("x", "old").c_str(), 0666);
    chmod(folder.path().c_str(), 0555);
    CHECK(asOrdinaryUser([&] { return std::to_string(removeError(folder / "x")); }) == "75");
}

TEST_CASE("too many open files are told as 67")
{
    const TempFolder folder;
    const std::string file = folder.put("x", "");
    const std::string told = asOrdinaryUser([&] {
        rlimit before{};
        getrlimit(RLIMIT_NOFILE, &before);
        const rlimit few{16, before.rlim_max};
        setrlimit(RLIMIT_NOFILE, &few);
        const auto files = makeSystemFiles("/");
        std::vector<std::unique_ptr<InputFile>> open;
        const std::int32_t number = errorOf([&] {
            while (open.size() < 100) open.push_back(files->openForInput(file));
        });
        setrlimit(RLIMIT_NOFILE, &before); // a sanitizer looks at what is closed by a file of its own
        return std::to_string(number);
    });
    CHECK(told == "67");
}

TEST_CASE("a full device is told as 61 by the write that fills the buffer, and by the close")
{
    const auto files = makeSystemFiles("/");
    const auto written = files->openForOutput("/dev/full");
    CHECK(errorOf([&] { written->write(std::string(70000, 'x')); }) == 61);
    const auto closed = files->openForOutput("/dev/full");
    CHECK(errorOf([&] { closed->write("x"); }) == 0);
    CHECK(errorOf([&] { closed->close(); }) == 61);
    CHECK(errorOf([&] { closed->close(); }) == 0); // it is closed by now
}

TEST_CASE("a full disk is told as 61 and the file stays as far as it was written")
{
    const TempFolder folder;
    const SmallDisk disk(folder.path());
    if (!disk.isThere()) {
        MESSAGE("no small disk can be mounted here: not run");
        return;
    }
    const auto file = makeSystemFiles("/")->openForOutput(folder / "x");
    CHECK(errorOf([&] {
              for (int piece = 0; piece < 100; ++piece) file->write(std::string(1000, 'x'));
              file->close();
          }) == 61);
    CHECK(folder.bytes("x").size() > 30000);
    CHECK(folder.bytes("x").find_first_not_of('x') == std::string::npos);
}

TEST_CASE("a pipe that bears a file's name keeps nobody waiting: it reads as empty and takes nothing")
{
    const TempFolder folder;
    REQUIRE(mkfifo((folder / "Massage.ini").c_str(), 0600) == 0);

    CHECK(makeSystemFiles("/")->openForInput(folder.path() + "\\Massage.ini")->read(10) == "");
    CHECK(openOutputError(folder.path() + "\\Massage.ini") == 71);
}

TEST_CASE("a device under a file's name cannot be read: 71")
{
    const TempFolder folder;
    std::filesystem::create_symlink("/dev/zero", folder / "Massage.ini");
    CHECK(errorOf([&] { (void)makeSystemFiles("/")->openForInput(folder.path() + "\\Massage.ini"); }) == 71);
}

TEST_CASE("a directory search finds the first file that fits the pattern")
{
    const TempFolder folder;
    for (const char *name : {"b.csv", "A.csv", "c.txt", "plain", "委任状.csv", ".hidden"}) folder.put(name, "");
    std::filesystem::create_directory(folder / "a0.csv");
    const auto files = makeSystemFiles("/");
    const auto search = [&](const std::string &pattern) {
        return files->directorySearch(folder.path() + "\\" + pattern);
    };
    CHECK(search("*.csv") == "A.csv");
    CHECK(search("?.CSV") == "A.csv");
    CHECK(search("B*") == "b.csv");
    CHECK(search("???.csv") == "委任状.csv");
    CHECK(search("??.csv") == "");
    CHECK(search("p*n") == "plain");
    CHECK(search("*l*i*") == "plain");
    CHECK(search("*.*") == ".hidden");
    CHECK(search("*.doc") == "");
    CHECK(files->directorySearch(folder / "none/*") == "");
}

TEST_CASE("a pattern of many stars is answered at once")
{
    const TempFolder folder;
    folder.put(std::string(200, 'a'), "");
    std::string pattern;
    for (int star = 0; star < 40; ++star) pattern += "*a";
    CHECK(makeSystemFiles("/")->directorySearch(folder / (pattern + "b")) == "");
}

TEST_CASE("a current folder that was taken away is told as 76")
{
    const TempFolder folder;
    const CurrentFolder back(folder.path());
    std::filesystem::create_directory(folder / "sub");
    const auto files = makeSystemFiles("/");
    files->changeFolder(folder / "sub");
    std::filesystem::remove(folder / "sub");
    CHECK(errorOf([&] { (void)files->currentFolder(); }) == 76);
}
