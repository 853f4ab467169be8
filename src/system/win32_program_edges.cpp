#include "system/program_edges.h"

#include "system/win32_text.h"

#include <cstdio>
#include <cstdlib>
#include <memory>

#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <shellapi.h>

namespace inin {

namespace {

struct FreeLocal {
    void operator()(void *memory) const { LocalFree(memory); }
};

UINT &codePageBefore()
{
    static UINT codePage = 0;
    return codePage;
}

/// The console outlives the program, so its code page is restored.
void giveBackConsole()
{
    SetConsoleOutputCP(codePageBefore());
}

} // namespace

/// main() receives its arguments in the ANSI code page, which may lack a character of a path.
std::vector<std::string> commandWords(int, char **)
{
    int count = 0;
    const std::unique_ptr<wchar_t *, FreeLocal> wide(CommandLineToArgvW(GetCommandLineW(), &count));
    std::vector<std::string> words;
    for (int at = 0; wide && at < count; ++at) words.push_back(utf8FromWide(wide.get()[at]));
    return words;
}

std::string environmentText(const std::string &name)
{
    const wchar_t *value = _wgetenv(wideFromUtf8(name).c_str());
    return value == nullptr ? std::string() : utf8FromWide(value);
}

std::filesystem::path programFile()
{
    constexpr std::size_t longestPath = 32768;
    std::wstring file(longestPath, L'\0');
    file.resize(GetModuleFileNameW(nullptr, file.data(), static_cast<DWORD>(file.size())));
    return file;
}

// The run-time library reserves the descriptors of closed standard streams: no file gets them.
void prepareStandardStreams()
{
    // A window program may be started without any streams.
    for (std::FILE *stream : {stdin, stdout, stderr})
        if (_fileno(stream) >= 0) _setmode(_fileno(stream), _O_BINARY);
    codePageBefore() = GetConsoleOutputCP();
    if (codePageBefore() == 0) return; // no console is attached
    SetConsoleOutputCP(CP_UTF8);
    std::atexit(giveBackConsole);
}

} // namespace inin
