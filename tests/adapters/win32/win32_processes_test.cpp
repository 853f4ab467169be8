#include "adapters/native/native_platform.h"
#include "adapters/win32/win32_error.h"

#include "ended_program.h"
#include "runtime/runtime_error.h"
#include "support/temp_folder.h"
#include "system/file_path.h"
#include "system/program_edges.h"
#include "system/win32_text.h"

#include <algorithm>
#include <chrono>
#include <thread>

#include <doctest/doctest.h>
#include <windows.h>

using namespace inin;

namespace {

std::unique_ptr<Processes> processes()
{
    return makeSystemProcesses([] {});
}

/// What the started program recorded; empty if there is nothing after ten seconds.
std::string reportOf(const TempFolder &folder, const std::string &name)
{
    std::string result;
    for (int wait = 0; wait < 1000 && (result = folder.bytes(name)).empty(); ++wait)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    return result;
}

/// A folder that contains the partner program under another name.
struct PartnerFolder {
    TempFolder folder;
    std::string program;
    PartnerFolder() = default;
    PartnerFolder(const PartnerFolder &) = delete;
    PartnerFolder &operator=(const PartnerFolder &) = delete;
    ~PartnerFolder()
    {
        if (!program.empty()) removeOnceEnded(program);
    }
    const std::string &put(const std::string &name)
    {
        if (!program.empty()) removeOnceEnded(program);
        program = systemPath(folder / name);
        std::filesystem::copy_file(ININ_PARTNER, pathOf(program));
        return program;
    }
};

/// A file in the folder of this test program.
class FileBeside {
public:
    FileBeside(const std::string &name, const std::string &bytes) : m_path(programFile().parent_path() / pathOf(name))
    {
        writeBytes(m_path, bytes);
    }
    FileBeside(const FileBeside &) = delete;
    FileBeside &operator=(const FileBeside &) = delete;
    ~FileBeside() { removeOnceEnded(textOf(m_path)); }

private:
    std::filesystem::path m_path;
};

/// Registers the partner program as the one that opens web addresses; it records its command line unchanged.
class AddressHandler {
public:
    AddressHandler() : m_before(command())
    {
        const std::string partner = m_folder.put("browser.exe");
        setCommand(wideFromUtf8("\"" + partner + "\" \"" + systemPath(m_folder.folder / "result") + "\" /line %1"));
    }
    AddressHandler(const AddressHandler &) = delete;
    AddressHandler &operator=(const AddressHandler &) = delete;
    ~AddressHandler() { setCommand(m_before); }

    /// What it received for the address, without the line end.
    [[nodiscard]] std::string gotFor(const std::string &address) const
    {
        std::filesystem::remove(pathOf(m_folder.folder / "result"));
        processes()->openAddress(address);
        const std::string result = reportOf(m_folder.folder, "result");
        return result.substr(0, result.size() - std::min<std::size_t>(result.size(), 1));
    }
    /// True if no program is started for the address.
    [[nodiscard]] bool staysQuietFor(const std::string &address) const
    {
        std::filesystem::remove(pathOf(m_folder.folder / "result"));
        processes()->openAddress(address);
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
        return !m_folder.folder.has("result");
    }

private:
    static constexpr const wchar_t *kKey = L"Software\\Classes\\http\\shell\\open\\command";
    static std::wstring command()
    {
        wchar_t value[1024] = {};
        DWORD size = sizeof value;
        (void)RegGetValueW(HKEY_LOCAL_MACHINE, kKey, nullptr, RRF_RT_ANY, nullptr, value, &size);
        return value;
    }
    static void setCommand(const std::wstring &value)
    {
        REQUIRE(RegSetKeyValueW(HKEY_LOCAL_MACHINE, kKey, nullptr, REG_SZ, value.c_str(),
                                static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t))) == ERROR_SUCCESS);
    }

    PartnerFolder m_folder;
    std::wstring m_before;
};

} // namespace

TEST_CASE_FIXTURE(PartnerFolder, "a program starts with the requested window style")
{
    put("wfrfv10.exe");
    const CurrentFolder current(folder.path());
    processes()->start("wfrfv10.exe normal", WindowStyle::normalFocus);
    processes()->start("wfrfv10.exe minimized", WindowStyle::minimizedFocus);
    processes()->start("wfrfv10.exe maximized", WindowStyle::maximizedFocus);
    CHECK(reportOf(folder, "normal") == "1\n");
    CHECK(reportOf(folder, "minimized") == "2\n");
    CHECK(reportOf(folder, "maximized") == "3\n");
}

TEST_CASE_FIXTURE(PartnerFolder, "a started program gets its arguments as on the command line")
{
    put("tool.exe");
    const CurrentFolder current(folder.path());
    processes()->start("tool.exe result /c \".\\TMP\\Wfd Com.dat\" ./x", WindowStyle::normalFocus);
    CHECK(reportOf(folder, "result") == "1\n/c\n.\\TMP\\Wfd Com.dat\n./x\n");
}

TEST_CASE_FIXTURE(PartnerFolder,
                  "a path with blanks and Japanese characters is found by the shortest prefix that is a file")
{
    std::filesystem::create_directory(pathOf(folder / "委任 状"));
    put("委任 状/tool.exe");
    const CurrentFolder current(folder.path());
    processes()->start(program + " result", WindowStyle::normalFocus);
    CHECK(reportOf(folder, "result") == "1\n");
}

TEST_CASE_FIXTURE(PartnerFolder, "a program in the current folder has priority over one beside the running program")
{
    for (const std::string name : {"inin_tool.exe", "inin tool.exe"}) {
        CAPTURE(name);
        const FileBeside other(name, "no program");
        put(name);
        const CurrentFolder current(folder.path());
        const std::string bare = name.substr(0, name.find('.'));
        for (const std::string &start : {name, "\"" + name + "\"", bare, "\"" + bare + "\""}) {
            CAPTURE(start);
            std::filesystem::remove(pathOf(folder / "result"));
            CHECK_NOTHROW(processes()->start(start + " result /c .\\TMP\\x", WindowStyle::normalFocus));
            CHECK(reportOf(folder, "result") == "1\n/c\n.\\TMP\\x\n");
        }
    }
}

TEST_CASE_FIXTURE(PartnerFolder, "the shortest name that any searched folder contains is the program")
{
    const FileBeside other("inin.exe", bytesOf(std::string(ININ_PARTNER)));
    put("inin tool.exe");
    const CurrentFolder current(folder.path());
    processes()->start("inin tool.exe result", WindowStyle::normalFocus);
    CHECK(reportOf(folder, "tool.exe") == "1\nresult\n");
    CHECK_FALSE(folder.has("result"));
}

TEST_CASE("a file of the folder that is no program cannot start, even if another folder has a program of that name")
{
    const FileBeside other("inin_tool.exe", bytesOf(std::string(ININ_PARTNER)));
    const TempFolder folder;
    CHECK(canStart(folder.path(), "inin_tool.exe"));
    writeBytes(folder / "inin_tool.exe", "no program");
    CHECK_FALSE(canStart(folder.path(), "inin_tool.exe"));
}

TEST_CASE("a program that must run as administrator is refused with a sentence of its own")
{
    const RuntimeError error = win32::startFailure(win32::kElevationRequired, "wfrfv10.exe /c x");
    CHECK(error.number() == 70);
    CHECK(error.description() ==
          "「wfrfv10.exe /c x」を起動できません。プログラムが「管理者として実行」の設定になっています。"
          "プログラムのプロパティの「互換性」で、この設定を外してください。");
    CHECK(win32::startFailure(ERROR_BAD_EXE_FORMAT, "x").description() == "ファイルが見つかりません。");
}

TEST_CASE_FIXTURE(PartnerFolder, "a missing program, or a file that is not one, is error 53")
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

TEST_CASE("the machine's program for web addresses gets the address unchanged")
{
    const std::string addresses[] = {
        "http://help.example.jp/massage/index.html?zi=rezama&zp=%2Ftrohs&lk=1",
        "http://help.example.jp/委任状/髙橋𠮷?zi=番&zp=&lk=1",
        "http://help.example.jp/a b  c?zi=\"quoted\" '&|<>^%2F&lk=1",
        // Wine 8 fails with more than about 1000 characters, Windows accepts 2083.
        "http://help.example.jp/?zi=" + std::string(900, 'x') + "&lk=1",
    };
    const AddressHandler handler;
    for (const std::string &address : addresses) CHECK(handler.gotFor(address) == address);
}

TEST_CASE("only a web address is opened")
{
    const std::string addresses[] = {
        "",
        "C:\\windows\\notepad.exe",
        "notepad.exe",
        "file:///C:/windows/win.ini",
        "mailto:a@example.jp",
        "httpx://help.example.jp/",
        "http:notepad.exe",
        "HTTP://help.example.jp/",
        " http://help.example.jp/",
    };
    const AddressHandler handler;
    for (const std::string &address : addresses) {
        CAPTURE(address);
        CHECK(handler.staysQuietFor(address));
    }
}

TEST_CASE("the computer's name is returned if it fits with its NUL")
{
    char name[MAX_COMPUTERNAME_LENGTH + 1] = {};
    DWORD size = sizeof name;
    REQUIRE(GetComputerNameA(name, &size) != 0);
    CHECK(processes()->computerName(250).value() == name);
    CHECK(processes()->computerName(size + 1).value() == name);
    CHECK_FALSE(processes()->computerName(size).has_value());
}
