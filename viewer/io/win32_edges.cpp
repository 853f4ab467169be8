#include "viewer/io/system_edges.h"

#include "system/program_edges.h"
#include "system/win32_text.h"

#include <cstdio>
#include <memory>

#include <windows.h>

#include <shellapi.h>

namespace inin::viewer {

namespace {

struct LocalDeleter {
    void operator()(void *memory) const { LocalFree(memory); }
};

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

std::vector<std::string> commandWords(int argc, char **argv)
{
    // The first word is the name that the starting program passed, not the file name: a form tool may pass its own name.
    int count = 0;
    const std::unique_ptr<wchar_t *, LocalDeleter> words(CommandLineToArgvW(GetCommandLineW(), &count));
    std::vector<std::string> all = {count > 0 ? utf8FromWide(*words.get()) : std::string()};
    for (std::string &word : programArguments(argc, argv)) all.push_back(std::move(word));
    return all;
}

void prepareStreams()
{
    const StandardStream streams[] = {{STD_OUTPUT_HANDLE, stdout}, {STD_ERROR_HANDLE, stderr}};
    bool isAttached = false;
    for (const StandardStream &stream : streams) {
        if (isConnected(stream.handle)) continue;
        isAttached = isAttached || AttachConsole(ATTACH_PARENT_PROCESS) != 0;
        if (isAttached && std::freopen("CONOUT$", "w", stream.file) != nullptr)
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

std::string environmentText(const std::string &name)
{
    const std::wstring wide = wideFromUtf8(name);
    std::wstring value(GetEnvironmentVariableW(wide.c_str(), nullptr, 0), L'\0');
    value.resize(GetEnvironmentVariableW(wide.c_str(), value.data(), static_cast<DWORD>(value.size())));
    return utf8FromWide(value);
}

Date presentDay()
{
    SYSTEMTIME now;
    GetLocalTime(&now);
    return DateSerial(now.wYear, now.wMonth, now.wDay);
}

} // namespace inin::viewer
