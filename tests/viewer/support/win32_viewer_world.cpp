#include "system/win32_handle.h"
#include "system/win32_text.h"
#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>

#include <algorithm>

namespace inin::viewer::test {

namespace fs = std::filesystem;

namespace {

/// The viewers that tests start record nothing in the ledger of the developer.
const BOOL kNoLedger = SetEnvironmentVariableW(L"ININ_LEDGER", L"off");

/// A file for the output of a child process.
HANDLE createInherited(const std::string &path)
{
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    return CreateFileW(wideFromUtf8(path).c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inherited, CREATE_ALWAYS,
                       FILE_ATTRIBUTE_NORMAL, nullptr);
}

} // namespace

Outcome runViewer(const TempFolder &folder, const std::string &arguments, const std::string &name)
{
    const TempFolder outside;
    const std::string program = textOf(outside.folder() / (fs::path(name).has_extension() ? name : name + ".exe"));
    fs::copy_file(ININ_FORMVIEWER, program);
    // The tests quote arguments for a POSIX shell.
    std::string line = "\"" + program + "\" " + arguments;
    std::ranges::replace(line, '\'', '"');
    std::wstring wide = wideFromUtf8(line);
    int code = -1;
    {
        const Win32FileHandle output(createInherited(outside / "out")), errors(createInherited(outside / "err"));
        STARTUPINFOW start{};
        start.cb = sizeof start;
        start.dwFlags = STARTF_USESTDHANDLES;
        start.hStdOutput = output.get();
        start.hStdError = errors.get();
        PROCESS_INFORMATION process{};
        REQUIRE(CreateProcessW(nullptr, wide.data(), nullptr, nullptr, TRUE, 0, nullptr,
                               folder.folder().wstring().c_str(), &start, &process) != 0);
        const Win32FileHandle owner(process.hProcess), thread(process.hThread);
        WaitForSingleObject(process.hProcess, INFINITE);
        DWORD ended = 0;
        if (GetExitCodeProcess(process.hProcess, &ended) != 0) code = static_cast<int>(ended);
    }
    return {code, outside.bytes("out"), outside.bytes("err")};
}

} // namespace inin::viewer::test
