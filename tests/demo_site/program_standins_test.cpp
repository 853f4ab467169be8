#include "demo_site/scratch_site.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <string_view>

#include <windows.h>

using namespace inin;
using namespace inin::test;
namespace fs = std::filesystem;

namespace {

constexpr const char *kStandIns[] = {"Main.exe", "wfrfv10.exe", "WrVb6Viewer.exe", "wfrimg10.exe"};
constexpr const char *kToolNames[] = {"wfrfv10.exe", "WrVb6Viewer.exe", "wfrimg10.exe"};
constexpr DWORD kNotStarted = 99;

/// Runs a command line in a folder, waits for the program's end and returns its exit code.
DWORD run(const fs::path &folder, const std::wstring &command)
{
    std::wstring line = L"\"" + (folder / command.substr(0, command.find(L' '))).wstring() + L"\"" +
                        command.substr(std::min(command.find(L' '), command.size()));
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, folder.c_str(), &startup, &process) ==
        0)
        return kNotStarted;
    WaitForSingleObject(process.hProcess, 20'000);
    DWORD code = kNotStarted;
    GetExitCodeProcess(process.hProcess, &code);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return code;
}

std::wstring wide(std::string_view ascii)
{
    return {ascii.begin(), ascii.end()};
}

struct Site {
    TempFolder folder;
    fs::path viewer;
    explicit Site(fs::path formViewer = {}) : viewer(std::move(formViewer)) { make(viewer); }
    void make(const fs::path &formViewer) const
    {
        site::makeSite(folder.folder(), {1, 1, std::chrono::year{2024} / 5}, site::Overwrite::anyFolder, formViewer);
    }
};

} // namespace

TEST_CASE("a substitute states in its own text that it is one")
{
    std::string marker;
    for (const char character : std::string("STAND-IN of the demo site")) marker += {character, '\0'}; // UTF-16
    for (const char *name : kStandIns) {
        CAPTURE(name);
        CHECK(bytesOf(sharedSite() / name).starts_with("MZ"));
        CHECK(bytesOf(sharedSite() / name).find(marker) != std::string::npos);
    }
}

TEST_CASE("the menu's substitute records each argument that it is started with")
{
    const Site site;

    REQUIRE(run(site.folder.folder(), L"Main.exe 2") == 0);
    REQUIRE(run(site.folder.folder(), L"Main.exe") == 0);

    CHECK(site.folder.bytes("Main.log") == "2\n\n");
}

TEST_CASE("a form tool's substitute copies the command script to its own folder")
{
    for (const char *name : kToolNames) {
        CAPTURE(name);
        const Site site;
        site.folder.put("TMP/WfdCom.dat", "FileName,\"x\"\r\n");

        REQUIRE(run(site.folder.folder(), wide(name) + L" /c ./TMP\\WfdCom.dat") == 0);

        CHECK(site.folder.bytes(std::string(name) + ".WfdCom.dat") == "FileName,\"x\"\r\n");
    }
}

TEST_CASE("the merger's substitute copies the script given after the output form")
{
    const Site site;
    site.folder.put("TMP/WfdCom.dat", "AddReport\r\n");

    REQUIRE(run(site.folder.folder(), L"wfrimg10.exe TMP\\out.wfd /c TMP\\WfdCom.dat") == 0);

    CHECK(site.folder.bytes("wfrimg10.exe.WfdCom.dat") == "AddReport\r\n");
    CHECK_FALSE(fs::exists(site.folder.folder() / "TMP" / "out.wfd"));
}

TEST_CASE("a form tool's substitute accepts a path with a blank and Japanese characters unquoted")
{
    const Site site;
    fs::create_directories(site.folder.folder() / L"my 委任状");
    writeBytes(site.folder.folder() / L"my 委任状" / "WfdCom.dat", "x");

    REQUIRE(run(site.folder.folder(), L"wfrfv10.exe /c my 委任状\\WfdCom.dat") == 0);

    CHECK(site.folder.bytes("wfrfv10.exe.WfdCom.dat") == "x");
}

TEST_CASE("a form tool's substitute fails without a script")
{
    const Site site;
    CHECK(run(site.folder.folder(), L"wfrfv10.exe") == 1);
    CHECK(run(site.folder.folder(), L"wfrfv10.exe /c missing.dat") == 1);
}

TEST_CASE("a form tool starts the form viewer, if it was built, under the tool's own name")
{
    // Here the viewer is a substitute named Main.exe. Its log shows that it got the tool's arguments.
    const Site viewers;
    const Site site(viewers.folder.folder() / "Main.exe");

    REQUIRE(run(site.folder.folder(), L"WrVb6Viewer.exe /c ./TMP\\WfdCom.dat") == 0);

    for (int wait = 0; wait < 1000 && viewers.folder.bytes("Main.log").empty(); ++wait) Sleep(10);
    CHECK(viewers.folder.bytes("Main.log") == "/c ./TMP\\WfdCom.dat\n");
    CHECK_FALSE(fs::exists(site.folder.folder() / "WrVb6Viewer.exe.WfdCom.dat"));
}

TEST_CASE("a form tool fails if its viewer is missing")
{
    const Site site("C:\\no such folder\\formviewer.exe");
    CHECK(run(site.folder.folder(), L"WrVb6Viewer.exe /c ./TMP\\WfdCom.dat") == 1);
}

TEST_CASE("a site that is made again without the form viewer copies scripts again")
{
    const Site site("C:\\no such folder\\formviewer.exe");
    site.make({});
    site.folder.put("TMP/WfdCom.dat", "x");

    REQUIRE(run(site.folder.folder(), L"wfrfv10.exe /c ./TMP\\WfdCom.dat") == 0);

    CHECK(site.folder.bytes("wfrfv10.exe.WfdCom.dat") == "x");
}
