#include "adapters/common/web_address.h"
#include "adapters/win32/win32_platform.h"
#include "adapters/win32/win32_text.h"
#include "runtime/runtime_error.h"

#include <limits>
#include <vector>

#include <windows.h>

#include <shellapi.h>

namespace inin {

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

class Win32Processes : public Processes {
public:
    explicit Win32Processes(std::function<void()> end) : m_end(std::move(end)) {}

    /// Windows itself finds the program, at the shortest beginning of the line that names a file.
    void start(const std::string &commandLine, WindowStyle style) override
    {
        std::wstring line = wideFromUtf8(commandLine); // the call may write into it
        STARTUPINFOW startup{};
        startup.cb = sizeof startup;
        startup.dwFlags = STARTF_USESHOWWINDOW;
        startup.wShowWindow = showOf(style);
        PROCESS_INFORMATION process{};
        if (CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process) == 0)
            throw RuntimeError(error_number::fileNotFound);
        CloseHandle(process.hThread);
        CloseHandle(process.hProcess);
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

    [[noreturn]] void end() override
    {
        if (m_end) m_end();
        ExitProcess(0);
    }

private:
    std::function<void()> m_end;
};

} // namespace

std::unique_ptr<Processes> makeWin32Processes(std::function<void()> end)
{
    return std::make_unique<Win32Processes>(std::move(end));
}

} // namespace inin
