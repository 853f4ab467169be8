#include "adapters/win32/win32_platform.h"

#include "runtime/runtime_error.h"
#include "temp_folder.h"

#include <chrono>
#include <thread>

#include <doctest/doctest.h>
#include <windows.h>

using namespace inin;

namespace {

std::unique_ptr<Processes> processes()
{
    return makeWin32Processes([] {});
}

/// What the started program told; empty after ten seconds without a word.
std::string toldBy(const TempFolder &folder, const std::string &name)
{
    std::string told;
    for (int wait = 0; wait < 1000 && (told = folder.bytes(name)).empty(); ++wait)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    return told;
}

/// A folder with the partner program in it under another name.
struct PartnerFolder {
    TempFolder folder;
    std::string put(const std::string &name) const
    {
        std::filesystem::copy_file(ININ_PARTNER, pathOf(folder / name));
        return win32Path(folder / name);
    }
};

} // namespace

TEST_CASE_FIXTURE(PartnerFolder, "a program starts with the window that was asked for")
{
    put("wfrfv10.exe");
    const CurrentFolder current(folder.path());
    processes()->start("wfrfv10.exe normal", WindowStyle::normalFocus);
    processes()->start("wfrfv10.exe minimized", WindowStyle::minimizedFocus);
    processes()->start("wfrfv10.exe maximized", WindowStyle::maximizedFocus);
    CHECK(toldBy(folder, "normal") == "1\n");
    CHECK(toldBy(folder, "minimized") == "2\n");
    CHECK(toldBy(folder, "maximized") == "3\n");
}

TEST_CASE_FIXTURE(PartnerFolder, "a started program gets its words as the command line has them")
{
    put("tool.exe");
    const CurrentFolder current(folder.path());
    processes()->start("tool.exe told /c \".\\TMP\\Wfd Com.dat\" ./x", WindowStyle::normalFocus);
    CHECK(toldBy(folder, "told") == "1\n/c\n.\\TMP\\Wfd Com.dat\n./x\n");
}

TEST_CASE_FIXTURE(PartnerFolder,
                  "a path with blanks and Japanese letters is found at its shortest beginning that is a file")
{
    std::filesystem::create_directory(pathOf(folder / "委任 状"));
    const std::string program = put("委任 状/tool.exe");
    const CurrentFolder current(folder.path());
    processes()->start(program + " told", WindowStyle::normalFocus);
    CHECK(toldBy(folder, "told") == "1\n");
}

TEST_CASE_FIXTURE(PartnerFolder, "a program that is not there or is none is error 53")
{
    folder.put("text.exe", "no program");
    for (const std::string &line : {std::string("no_such_tool.exe /c x"), folder / "text.exe", std::string()}) {
        CAPTURE(line);
        CHECK_THROWS_AS(processes()->start(line, WindowStyle::normalFocus), RuntimeError);
        try {
            processes()->start(line, WindowStyle::normalFocus);
        } catch (const RuntimeError &error) {
            CHECK(error.number() == 53);
        }
    }
}

TEST_CASE("the computer's name is told when it fits with its NUL")
{
    char name[MAX_COMPUTERNAME_LENGTH + 1] = {};
    DWORD size = sizeof name;
    REQUIRE(GetComputerNameA(name, &size) != 0);
    CHECK(processes()->computerName(250).value() == name);
    CHECK(processes()->computerName(size + 1).value() == name);
    CHECK_FALSE(processes()->computerName(size).has_value());
}
