#include "viewer/io/system_edges.h"

#include "system/program_edges.h"
#include "system/win32_text.h"

#include <cstdio>

#include <windows.h>

namespace inin::viewer {

namespace {

struct StandardStream {
    DWORD handle;
    std::FILE *file;
};

/// True when the stream was connected to a file, pipe or console at the start. A GUI program gets no console.
bool isConnected(DWORD handle)
{
    return GetFileType(GetStdHandle(handle)) != FILE_TYPE_UNKNOWN;
}

} // namespace

void prepareStreams()
{
    const StandardStream streams[] = {{STD_OUTPUT_HANDLE, stdout}, {STD_ERROR_HANDLE, stderr}};
    bool isAttached = false;
    for (const StandardStream &stream : streams) {
        if (isConnected(stream.handle)) continue;
        isAttached = isAttached || AttachConsole(ATTACH_PARENT_PROCESS) != 0;
        // NOLINTNEXTLINE(cppcoreguidelines-owning-memory): a standard stream has no owner
        if (isAttached && std::freopen("CONOUT$", "w+", stream.file) != nullptr)
            std::setvbuf(stream.file, nullptr, _IONBF, 0);
    }
    prepareStandardStreams();
}

void showFailure(const std::string &sentence)
{
    if (_fileno(stderr) >= 0) {
        printLine(stderr, sentence);
        return;
    }
    MessageBoxW(nullptr, wideFromUtf8(sentence).c_str(), L"委任状", MB_OK | MB_ICONWARNING);
}

bool hasScreen()
{
    return true;
}

bool startsMaximised()
{
    STARTUPINFOW startup{};
    GetStartupInfoW(&startup);
    return (startup.dwFlags & STARTF_USESHOWWINDOW) != 0 && startup.wShowWindow == SW_SHOWMAXIMIZED;
}

} // namespace inin::viewer
