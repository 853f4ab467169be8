#include "adapters/native/native_platform.h"
#include "adapters/win32/win32_error.h"
#include "runtime/runtime_error.h"
#include "suite_text/win32_ansi_text.h"
#include "system/file_path.h"
#include "system/web_address.h"
#include "system/win32_path.h"
#include "system/win32_text.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <vector>

#include <windows.h>

#include <shellapi.h>

namespace inin::win32 {

namespace {

struct ShowRule {
    WindowStyle style;
    WORD show;
};
constexpr ShowRule kShowRules[] = {{WindowStyle::normalFocus, SW_SHOWNORMAL},
                                   {WindowStyle::minimizedFocus, SW_SHOWMINIMIZED},
                                   {WindowStyle::maximizedFocus, SW_SHOWMAXIMIZED}};

WORD showOf(WindowStyle style)
{
    for (const ShowRule &rule : kShowRules)
        if (rule.style == style) return rule.show;
    return SW_SHOWNORMAL;
}

/// The path with 8.3 names, the most reliable way to start a program in a deep folder; unchanged if there are none.
std::wstring shortNameOf(const std::wstring &path)
{
    std::wstring name(GetShortPathNameW(path.c_str(), nullptr, 0), L'\0');
    name.resize(GetShortPathNameW(path.c_str(), name.data(), static_cast<DWORD>(name.size())));
    return name.empty() ? path : name;
}

/// The file keeps its long name, because a program may choose its task by its own name.
std::wstring inShortFolder(const std::wstring &file)
{
    const std::size_t slash = file.find_last_of(L'\\');
    return shortNameOf(file.substr(0, slash)) + file.substr(slash);
}

/// The current folder to pass to a started program; empty if it can inherit this program's, which works up to the
/// classic limit.
std::wstring folderToTakeOver()
{
    std::wstring folder(GetCurrentDirectoryW(0, nullptr), L'\0');
    folder.resize(GetCurrentDirectoryW(static_cast<DWORD>(folder.size()), folder.data()));
    const std::wstring deep = widePath(utf8FromWide(folder));
    if (!deep.starts_with(kUnlimited)) return {};
    const std::wstring name = shortNameOf(deep);
    return name.starts_with(kUnlimited) ? name.substr(kUnlimited.size()) : name;
}

/// Calls CreateProcess and returns its error, 0 for a started program. Without a program the system uses the shortest
/// prefix of the line that names a file.
DWORD startError(const wchar_t *program, const std::string &commandLine, WindowStyle style)
{
    std::wstring line = wideFromUtf8(commandLine); // the call may modify it
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESHOWWINDOW;
    startup.wShowWindow = showOf(style);
    const std::wstring folder = folderToTakeOver();
    PROCESS_INFORMATION process{};
    if (CreateProcessW(program, line.data(), nullptr, nullptr, FALSE, 0, nullptr,
                       folder.empty() ? nullptr : folder.c_str(), &startup, &process) == 0)
        return GetLastError();
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return ERROR_SUCCESS;
}

struct FoundProgram {
    std::wstring file;
    std::string commandLine; ///< with a program that contains blanks in quotes, as the system passes it on
};

/// The program of a command line if its path exceeds the classic limit, where the system does not search.
std::optional<FoundProgram> deepProgramOf(const std::string &commandLine)
{
    std::size_t blank = 0;
    do {
        blank = commandLine.find(' ', blank + 1);
        const std::string path = commandLine.substr(0, blank);
        const std::wstring file = widePath(path);
        if (!file.starts_with(kUnlimited)) continue;
        if (isWin32File(file)) return FoundProgram{file, "\"" + path + "\"" + commandLine.substr(path.size())};
    } while (blank != std::string::npos);
    return std::nullopt;
}

/// The file with this name in the folders that the system searches for programs; empty if there is none.
std::wstring foundFile(const std::wstring &name)
{
    std::wstring path(SearchPathW(nullptr, name.c_str(), L".exe", 0, nullptr, nullptr), L'\0');
    path.resize(SearchPathW(nullptr, name.c_str(), L".exe", static_cast<DWORD>(path.size()), path.data(), nullptr));
    return path;
}

bool isProgram(const std::wstring &path)
{
    DWORD kind = 0;
    if (path.empty() || GetBinaryTypeW(path.c_str(), &kind) == 0) return false;
    return kind == SCS_32BIT_BINARY || kind == SCS_64BIT_BINARY;
}

/// The file with this name in the current folder; empty if there is none. Like the system's search it adds ".exe" to a
/// name without an extension.
std::wstring fileInCurrentFolder(const std::string &name)
{
    const bool hasExtension = name.find('.') != std::string::npos;
    const std::wstring file = widePath(fullPath(hasExtension ? name : name + ".exe"));
    return isWin32File(file) ? file : std::wstring();
}

/// The program of a command line if its name has no folder and the current folder, which is the application's, contains
/// it. The system's own search begins with the folder of this program, which can be another one. Of a line without
/// quotes the shortest prefix that names any file is the program.
std::optional<FoundProgram> programInCurrentFolder(const std::string &commandLine)
{
    constexpr const char *kBlanks = " \t";
    const bool isQuoted = commandLine.starts_with('"');
    const std::size_t begin = isQuoted ? 1 : 0;
    std::size_t end = begin;
    do {
        end = std::min(commandLine.find_first_of(isQuoted ? "\"" : kBlanks, end + 1), commandLine.size());
        const std::string name = commandLine.substr(begin, end - begin);
        if (name.empty() || name.find_first_of("\\/:") != std::string::npos) return std::nullopt;
        if (const std::wstring file = fileInCurrentFolder(name); !file.empty()) {
            const bool needsQuotes = !isQuoted && name.find_first_of(kBlanks) != std::string::npos;
            return FoundProgram{file, needsQuotes ? "\"" + name + "\"" + commandLine.substr(end) : commandLine};
        }
        if (!foundFile(wideFromUtf8(name)).empty()) return std::nullopt;
    } while (!isQuoted && end < commandLine.size());
    return std::nullopt;
}

DWORD startError(const FoundProgram &program, WindowStyle style)
{
    if (program.file.starts_with(kUnlimited) &&
        startError(inShortFolder(program.file).c_str(), program.commandLine, style) == ERROR_SUCCESS)
        return ERROR_SUCCESS;
    return startError(program.file.c_str(), program.commandLine, style);
}

/// Starts the program where it is found first: in the current folder, by the system's search, at a path that is too
/// long for that search.
DWORD startError(const std::string &commandLine, WindowStyle style)
{
    if (const auto local = programInCurrentFolder(commandLine)) return startError(*local, style);
    const DWORD error = startError(nullptr, commandLine, style);
    if (error == ERROR_SUCCESS || error == kElevationRequired) return error;
    const auto deep = deepProgramOf(commandLine);
    return deep ? startError(*deep, style) : error;
}

class Win32Processes : public Processes {
public:
    explicit Win32Processes(std::function<void()> end) : m_end(std::move(end)) {}

    void start(const std::string &commandLine, WindowStyle style) override
    {
        const DWORD error = startError(commandLine, style);
        if (error != ERROR_SUCCESS) throw startFailure(error, commandLine);
    }

    void openAddress(const std::string &address) override
    {
        if (!isWebAddress(address)) return;
        ShellExecuteW(nullptr, L"Open", wideFromUtf8(address).c_str(), nullptr, nullptr, SW_SHOWNORMAL);
    }

    std::optional<std::string> computerName(std::size_t capacity) override
    {
        std::vector<char> buffer(capacity + 1, '\0');
        auto size = static_cast<DWORD>(capacity);
        if (GetComputerNameA(buffer.data(), &size) == 0) return std::nullopt;
        return utf8FromAnsi(buffer.data());
    }

    std::uint32_t processId() override { return GetCurrentProcessId(); }

    [[noreturn]] void end() override
    {
        if (m_end) m_end();
        ExitProcess(0);
    }

private:
    std::function<void()> m_end;
};

} // namespace

} // namespace inin::win32

std::unique_ptr<inin::Processes> inin::makeSystemProcesses(std::function<void()> end)
{
    return std::make_unique<win32::Win32Processes>(std::move(end));
}

bool inin::canStart(const std::string &folder, const std::string &name)
{
    using namespace win32;
    const std::wstring local = widePath(folder + "\\" + name); // hides one in the folders of the system's search
    return isProgram(isWin32File(local) ? local : foundFile(wideFromUtf8(name)));
}
