#include "adapters/win32/win32_platform.h"

#include "support/errors.h"
#include "support/temp_folder.h"

#include <doctest/doctest.h>
#include <windows.h>

using namespace inin;
using namespace std::string_literals;

namespace {

std::int32_t openOutputError(const std::string &path)
{
    return errorOf([&] { (void)makeWin32Files("C:\\")->openForOutput(path); });
}

std::int32_t openInputError(const std::string &path)
{
    return errorOf([&] { (void)makeWin32Files("C:\\")->openForInput(path); });
}

std::int32_t removeError(const std::string &path)
{
    return errorOf([&] { makeWin32Files("C:\\")->remove(path); });
}

void setReadOnly(const std::string &path, bool readOnly)
{
    REQUIRE(SetFileAttributesA(path.c_str(), readOnly ? FILE_ATTRIBUTE_READONLY : FILE_ATTRIBUTE_NORMAL) != 0);
}

/// A program that has a file open and lets nobody in beside it.
class ClosedToOthers {
public:
    explicit ClosedToOthers(const std::string &path)
        : m_handle(CreateFileA(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr))
    {
        REQUIRE(m_handle != INVALID_HANDLE_VALUE);
    }
    ClosedToOthers(const ClosedToOthers &) = delete;
    ClosedToOthers &operator=(const ClosedToOthers &) = delete;
    ~ClosedToOthers() { CloseHandle(m_handle); }

private:
    HANDLE m_handle;
};

} // namespace

TEST_CASE("an output file replaces the old one and holds every byte")
{
    const TempFolder folder;
    folder.put("委任状.csv", std::string(100000, 'x'));
    std::string expected;

    const auto file = makeWin32Files("C:\\")->openForOutput(folder.path() + "\\委任状.CSV");
    for (int line = 0; line < 20000; ++line) {
        file->write("line\0\r\n"s);
        expected += "line\0\r\n"s;
    }
    file->write(std::string(200000, 'y'));
    file->close();

    CHECK(folder.bytes("委任状.csv") == expected + std::string(200000, 'y'));
    CHECK(folder.entries() == 1);
}

TEST_CASE("an opened output file is empty at once, and whole once it is gone")
{
    const TempFolder folder;
    folder.put("x", "old");
    auto file = makeWin32Files("C:\\")->openForOutput(folder / "x");
    CHECK(folder.bytes("x") == "");
    file->write("abc");
    file.reset();
    CHECK(folder.bytes("x") == "abc");
}

TEST_CASE("an input file gives its bytes piece by piece and then nothing")
{
    const TempFolder folder;
    folder.put("x", "abc\0d"s);
    const auto file = makeWin32Files("C:\\")->openForInput(folder / "x");
    CHECK(file->read(2) == "ab");
    CHECK(file->read(10) == "c\0d"s);
    CHECK(file->read(10) == "");
}

TEST_CASE("a file that cannot be opened for output is told by the runtime's number")
{
    const TempFolder folder;
    const std::string readOnly = folder.put("readonly", "old");
    setReadOnly(readOnly, true);
    folder.put("file", "");
    CHECK(openOutputError(readOnly) == 70);
    CHECK(openOutputError(folder.path()) == 75);
    CHECK(openOutputError(folder.path() + "\\") == 75);
    CHECK(openOutputError(folder / "missing/x") == 76);
    CHECK(openOutputError("") == 52);
    CHECK(openOutputError(folder / "a\0b"s) == 52);
    CHECK(openOutputError(folder / "a?b") == 52);
    CHECK(folder.bytes("readonly") == "old");
    CHECK(folder.entries() == 2);
    setReadOnly(readOnly, false);
}

TEST_CASE("a file that cannot be opened for input is told by the runtime's number")
{
    const TempFolder folder;
    CHECK(openInputError(folder / "missing") == 53);
    CHECK(openInputError(folder / "missing/x") == 76);
    CHECK(openInputError(folder.path()) == 75);
    CHECK(openInputError(folder.path() + "\\") == 75);
    CHECK(openInputError("") == 52);
    CHECK(openInputError(folder / "*.csv") == 52);
}

TEST_CASE("a file that another program keeps to itself refuses with error 70")
{
    const TempFolder folder;
    const ClosedToOthers other(folder.put("x", "abc"));
    CHECK(openInputError(folder / "x") == 70);
    CHECK(openOutputError(folder / "x") == 70);
    CHECK(removeError(folder / "x") == 70);
}

TEST_CASE("a file is removed, and a refusal is told by the runtime's number")
{
    const TempFolder folder;
    folder.put("髙橋.csv", "");
    makeWin32Files("C:\\")->remove(folder / "髙橋.csv");
    CHECK(folder.entries() == 0);
    CHECK(removeError(folder / "髙橋.csv") == 53);
    CHECK(removeError(folder / "missing/x") == 76);
    CHECK(removeError(folder.path()) == 75);
    CHECK(removeError(folder / "*") == 52);
    const std::string readOnly = folder.put("readonly", "old");
    setReadOnly(readOnly, true);
    CHECK(removeError(readOnly) == 70);
    setReadOnly(readOnly, false);
}

TEST_CASE("the directory search finds a file by its name in any case, by a pattern or by its folder")
{
    const TempFolder folder;
    std::filesystem::create_directory(pathOf(folder / "aa"));
    folder.put("委任状37_01.wfd", "");
    const auto files = makeWin32Files("C:\\");
    CHECK(files->directorySearch(folder.path() + "\\委任状37_01.WFD") == "委任状37_01.wfd");
    CHECK(files->directorySearch(folder / "委任状*.wfd") == "委任状37_01.wfd");
    CHECK(files->directorySearch(folder.path() + "\\") == "委任状37_01.wfd");
    CHECK(files->directorySearch(folder / "*.csv") == "");
    CHECK(files->directorySearch(folder / "aa") == "");
    CHECK(files->directorySearch("") == "");
}

TEST_CASE("a hidden file is no ordinary one")
{
    const TempFolder folder;
    REQUIRE(SetFileAttributesA(folder.put("hidden.ini", "").c_str(), FILE_ATTRIBUTE_HIDDEN) != 0);
    CHECK(makeWin32Files("C:\\")->directorySearch(folder / "hidden.ini") == "");
}

TEST_CASE("a folder is told from a file")
{
    const TempFolder folder;
    folder.put("x", "");
    const auto files = makeWin32Files("C:\\");
    CHECK(files->isFolder(folder.path()));
    CHECK_FALSE(files->isFolder(folder / "x"));
    CHECK_FALSE(files->isFolder(folder / "missing"));
}

TEST_CASE("the application folder has no separator behind it, but a drive keeps its own")
{
    CHECK(makeWin32Files("C:\\SUITE\\")->applicationFolder() == "C:\\SUITE");
    CHECK(makeWin32Files("C:\\")->applicationFolder() == "C:\\");
}

TEST_CASE("the current drive and folder change, and a folder that is not there is error 76")
{
    const TempFolder folder;
    const CurrentFolder keep(folder.path());
    std::filesystem::create_directory(pathOf(folder / "髙橋"));
    const auto files = makeWin32Files("C:\\");
    files->changeDrive("C:\\anything");
    files->changeFolder(folder / "髙橋");
    CHECK(files->currentFolder().ends_with("\\髙橋"));
    CHECK(errorOf([&] { files->changeFolder(folder / "missing"); }) == 76);
    CHECK(errorOf([&] { files->changeDrive("Q:\\x"); }) == 71);
    CHECK(errorOf([&] { files->changeDrive("\\\\server\\share"); }) == 0);
}
