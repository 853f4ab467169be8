#include "adapters/native/native_platform.h"

#include "support/errors.h"
#include "support/temp_folder.h"

#include <doctest/doctest.h>
#include <windows.h>

using namespace inin;

namespace {

/// A program that has a file open for exclusive use.
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

TEST_CASE("a file that another program uses exclusively is error 70")
{
    const TempFolder folder;
    const ClosedToOthers other(folder.put("x", "abc"));
    const auto files = makeSystemFiles("C:\\");
    CHECK(errorOf([&] { return files->openForInput(folder / "x"); }) == 70);
    CHECK(errorOf([&] { return files->openForOutput(folder / "x"); }) == 70);
    CHECK(errorOf([&] { files->remove(folder / "x"); }) == 70);
}

TEST_CASE("a hidden file is not an ordinary one")
{
    const TempFolder folder;
    REQUIRE(SetFileAttributesA(folder.put("hidden.ini", "").c_str(), FILE_ATTRIBUTE_HIDDEN) != 0);
    CHECK(makeSystemFiles("C:\\")->directorySearch(folder / "hidden.ini") == "");
}

TEST_CASE("a hidden file or one of the system is opened for output, becomes empty and keeps its attributes")
{
    const TempFolder folder;
    for (const DWORD attributes :
         {DWORD{FILE_ATTRIBUTE_HIDDEN}, DWORD{FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM}}) {
        const std::string path = folder.put("hidden.csv", "a longer text");
        REQUIRE(SetFileAttributesA(path.c_str(), attributes) != 0);
        const auto file = makeSystemFiles("C:\\")->openForOutput(path);
        CHECK(folder.bytes("hidden.csv").empty());
        file->write("new");
        file->close();
        CHECK(folder.bytes("hidden.csv") == "new");
        CHECK((GetFileAttributesA(path.c_str()) & attributes) == attributes);
        REQUIRE(SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL) != 0);
    }
}

TEST_CASE("a change of the drive uses the letter; a missing drive is error 71, and a share changes nothing")
{
    const TempFolder folder;
    const CurrentFolder keep(folder.folder());
    const auto files = makeSystemFiles("C:\\");
    CHECK(errorOf([&] { files->changeDrive("C:\\anything"); }) == 0);
    CHECK(files->currentFolder() == folder.path());
    CHECK(errorOf([&] { files->changeDrive("Q:\\x"); }) == 71);
    CHECK(errorOf([&] { files->changeDrive("\\\\server\\share"); }) == 0);
    CHECK(files->currentFolder() == folder.path());
}
