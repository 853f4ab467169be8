#include "adapters/posix/posix_platform.h"

#include "ordinary_user.h"
#include "runtime/runtime_error.h"
#include "small_disk.h"
#include "support/temp_folder.h"

#include <filesystem>
#include <functional>
#include <vector>

#include <doctest/doctest.h>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>

using namespace inin;
using namespace std::string_literals;

namespace {

/// The number of the RuntimeError that `body` throws, 0 for none.
std::int32_t errorOf(const std::function<void()> &body)
try {
    body();
    return 0;
} catch (const RuntimeError &error) {
    return error.number();
}

std::int32_t openOutputError(const std::string &path)
{
    return errorOf([&] { (void)makePosixFiles("/")->openForOutput(path); });
}

std::int32_t openInputError(const std::string &path)
{
    return errorOf([&] { (void)makePosixFiles("/")->openForInput(path); });
}

std::int32_t removeError(const std::string &path)
{
    return errorOf([&] { makePosixFiles("/")->remove(path); });
}

} // namespace

TEST_CASE("an output file replaces the old one and holds every byte")
{
    const TempFolder folder;
    folder.put("委任状.csv", std::string(100000, 'x'));
    const auto files = makePosixFiles("/");
    std::string expected;

    const auto file = files->openForOutput(folder.path() + "\\委任状.CSV");
    for (int line = 0; line < 20000; ++line) {
        file->write("line\0\r\n"s);
        expected += "line\0\r\n"s;
    }
    file->write(std::string(200000, 'y'));
    file->close();

    CHECK(folder.bytes("委任状.csv") == expected + std::string(200000, 'y'));
    CHECK(folder.entries() == 1);
}

TEST_CASE("an opened output file is empty at once")
{
    const TempFolder folder;
    folder.put("x", "old");
    const auto file = makePosixFiles("/")->openForOutput(folder / "x");
    CHECK(folder.bytes("x") == "");
}

TEST_CASE("an output file that is not closed is whole once it is gone")
{
    const TempFolder folder;
    makePosixFiles("/")->openForOutput(folder / "x")->write("abc");
    CHECK(folder.bytes("x") == "abc");
}

TEST_CASE("an input file gives its bytes piece by piece and then nothing")
{
    const TempFolder folder;
    folder.put("x", "abc\0d"s);
    const auto file = makePosixFiles("/")->openForInput(folder / "x");
    CHECK(file->read(2) == "ab");
    CHECK(file->read(10) == "c\0d"s);
    CHECK(file->read(10) == "");
    CHECK(file->read(10) == "");
}

TEST_CASE("a file that cannot be opened for output is told by the runtime's number")
{
    const TempFolder folder;
    chmod(folder.put("readonly", "old").c_str(), 0444);
    folder.put("file", "");
    CHECK(openOutputError(folder / "readonly") == 70);
    CHECK(openOutputError(folder.path()) == 75);
    CHECK(openOutputError(folder.path() + "\\") == 75);
    CHECK(openOutputError(folder / "missing/x") == 76);
    CHECK(openOutputError(folder / "file/x") == 76);
    CHECK(openOutputError(folder / std::string(300, 'x')) == 52);
    CHECK(openOutputError("") == 52);
    CHECK(openOutputError(folder / "a\0b"s) == 52);
    CHECK(openOutputError(folder / "a?b") == 52);
    CHECK(folder.bytes("readonly") == "old");
    CHECK(folder.entries() == 2);
}

TEST_CASE("a file that cannot be opened for input is told by the runtime's number")
{
    const TempFolder folder;
    folder.put("file", "");
    CHECK(openInputError(folder / "missing") == 53);
    CHECK(openInputError(folder / "missing/x") == 76);
    CHECK(openInputError(folder / "file/x") == 76);
    CHECK(openInputError(folder.path()) == 75);
    CHECK(openInputError(folder.path() + "\\") == 75);
    CHECK(openInputError(folder / std::string(300, 'x')) == 52);
    CHECK(openInputError("") == 52);
    CHECK(openInputError(folder / "*") == 52);
    CHECK(openInputError(folder / "file") == 0);
}

TEST_CASE("a file that cannot be deleted is told by the runtime's number")
{
    const TempFolder folder;
    chmod(folder.put("readonly", "").c_str(), 0444);
    std::filesystem::create_directory(folder / "sub");
    CHECK(removeError(folder / "missing") == 53);
    CHECK(removeError(folder / "missing/x") == 76);
    CHECK(removeError(folder / "sub") == 75);
    CHECK(removeError(folder / "readonly") == 70);
    CHECK(removeError("") == 52);
    CHECK(folder.entries() == 2);
}

TEST_CASE("a deleted file is gone, whatever the case of its name")
{
    const TempFolder folder;
    folder.put("x.csv", "");
    CHECK(removeError(folder / "X.CSV") == 0);
    CHECK(folder.entries() == 0);
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
    const std::string told = asOrdinaryUser([&] {
        const rlimit few{16, 16};
        setrlimit(RLIMIT_NOFILE, &few);
        const auto files = makePosixFiles("/");
        std::vector<std::unique_ptr<InputFile>> open;
        return std::to_string(errorOf([&] {
            while (open.size() < 100) open.push_back(files->openForInput("/dev/null"));
        }));
    });
    CHECK(told == "67");
}

TEST_CASE("a full device is told as 61 by the write that fills the buffer, and by the close")
{
    const auto files = makePosixFiles("/");
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
    const auto file = makePosixFiles("/")->openForOutput(folder / "x");
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

    CHECK(makePosixFiles("/")->openForInput(folder.path() + "\\Massage.ini")->read(10) == "");
    CHECK(openOutputError(folder.path() + "\\Massage.ini") == 71);
}

TEST_CASE("a directory search finds one file by its name")
{
    const TempFolder folder;
    folder.put("委任状.CSV", "");
    std::filesystem::create_directory(folder / "sub");
    const auto files = makePosixFiles("/");
    CHECK(files->directorySearch(folder.path() + "\\委任状.csv") == "委任状.CSV");
    CHECK(files->directorySearch(folder.path() + "\\委任状.CSV") == "委任状.CSV");
    CHECK(files->directorySearch(folder / "none") == "");
    CHECK(files->directorySearch(folder / "none/委任状.CSV") == "");
    CHECK(files->directorySearch(folder / "sub") == "");
    CHECK(files->directorySearch("") == "");
}

TEST_CASE("a directory search finds the first file that fits the pattern")
{
    const TempFolder folder;
    for (const char *name : {"b.csv", "A.csv", "c.txt", "plain", "委任状.csv", ".hidden"}) folder.put(name, "");
    std::filesystem::create_directory(folder / "a0.csv");
    const auto files = makePosixFiles("/");
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

TEST_CASE("a directory search of a folder with a backslash behind it finds its first file")
{
    const TempFolder folder;
    const auto files = makePosixFiles("/");
    std::filesystem::create_directory(folder / "sub");
    CHECK(files->directorySearch(folder.path() + "\\") == "");
    folder.put("b", "");
    folder.put("A", "");
    CHECK(files->directorySearch(folder.path() + "\\") == "A");
    CHECK(files->directorySearch(folder.path() + "\\SUB\\") == "");
}

TEST_CASE("a pattern of many stars is answered at once")
{
    const TempFolder folder;
    folder.put(std::string(200, 'a'), "");
    std::string pattern;
    for (int star = 0; star < 40; ++star) pattern += "*a";
    CHECK(makePosixFiles("/")->directorySearch(folder / (pattern + "b")) == "");
}

TEST_CASE("only a folder is a folder")
{
    const TempFolder folder;
    folder.put("x", "");
    std::filesystem::create_directory(folder / "Sub");
    const auto files = makePosixFiles("/");
    CHECK(files->isFolder(folder.path() + "\\SUB\\"));
    CHECK_FALSE(files->isFolder(folder / "x"));
    CHECK_FALSE(files->isFolder(folder / "none"));
}

TEST_CASE("the current folder is what the operating system reports after a change")
{
    const TempFolder folder;
    const CurrentFolder back(folder.path());
    std::filesystem::create_directory(folder / "Sub");
    folder.put("file", "");
    const auto files = makePosixFiles("/");

    files->changeDrive(folder.path());
    files->changeFolder(folder.path() + "\\sub");
    CHECK(files->currentFolder() == std::filesystem::canonical(folder / "Sub").string());

    CHECK(errorOf([&] { files->changeFolder(folder / "none"); }) == 76);
    CHECK(errorOf([&] { files->changeFolder(folder / "file"); }) == 76);
    CHECK(errorOf([&] { files->changeFolder(""); }) == 76);
    CHECK(files->currentFolder() == std::filesystem::canonical(folder / "Sub").string());
}

TEST_CASE("a current folder that was taken away is told as 76")
{
    const TempFolder folder;
    const CurrentFolder back(folder.path());
    std::filesystem::create_directory(folder / "sub");
    const auto files = makePosixFiles("/");
    files->changeFolder(folder / "sub");
    std::filesystem::remove(folder / "sub");
    CHECK(errorOf([&] { (void)files->currentFolder(); }) == 76);
}

TEST_CASE("the application folder bears no separator behind it")
{
    CHECK(makePosixFiles("/opt/suite/")->applicationFolder() == "/opt/suite");
    CHECK(makePosixFiles("/opt/suite")->applicationFolder() == "/opt/suite");
    CHECK(makePosixFiles("/")->applicationFolder() == "/");
}
