#include "adapters/native/native_platform.h"
#include "runtime/runtime_error.h"
#include "suite_text/win32_ansi_text.h"
#include "system/web_address.h"
#include "system/win32_path.h"
#include "system/win32_text.h"

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

/// Calls CreateProcess. Without a program the system uses the shortest prefix of the line that names a file.
bool isStarted(const wchar_t *program, const std::string &commandLine, WindowStyle style)
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
        return false;
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return true;
}

struct DeepProgram {
    std::wstring file;
    std::string commandLine; ///< with the program in quotes, as the system passes on a path with blanks
};

/// The program of a command line if its path exceeds the classic limit, where the system does not search.
std::optional<DeepProgram> deepProgramOf(const std::string &commandLine)
{
    std::size_t blank = 0;
    do {
        blank = commandLine.find(' ', blank + 1);
        const std::string path = commandLine.substr(0, blank);
        const std::wstring file = widePath(path);
        if (!file.starts_with(kUnlimited)) continue;
        const DWORD attributes = GetFileAttributesW(file.c_str());
        if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0)
            return DeepProgram{file, "\"" + path + "\"" + commandLine.substr(path.size())};
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
    return !path.empty() && GetBinaryTypeW(path.c_str(), &kind) != 0;
}

class Win32Processes : public Processes {
public:
    explicit Win32Processes(std::function<void()> end) : m_end(std::move(end)) {}

    void start(const std::string &commandLine, WindowStyle style) override
    {
        if (isStarted(nullptr, commandLine, style)) return;
        const std::optional<DeepProgram> deep = deepProgramOf(commandLine);
        if (!deep || !(isStarted(inShortFolder(deep->file).c_str(), deep->commandLine, style) ||
                       isStarted(deep->file.c_str(), deep->commandLine, style)))
            throw RuntimeError(error_number::fileNotFound);
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
    return isProgram(widePath(folder + "\\" + name)) || isProgram(foundFile(wideFromUtf8(name)));
}
