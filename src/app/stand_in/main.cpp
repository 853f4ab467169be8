// The substitute in a demo site on Windows for the suite's menu program and the outside form tools; it is none of them.
// It chooses its part by its own file name:
// - Main.exe writes the argument that it was started with to "Main.log" beside it, and ends.
// - A form tool starts the form viewer named in "formviewer.path" beside it, with its own name and arguments; a copy
//   of the viewer would need the viewer's libraries in each site. Without that file it copies the command script given
//   after "/c" to NAME.WfdCom.dat beside itself.

#include <cstddef>
#include <string>

#include <windows.h>

namespace inin {

namespace {

constexpr const wchar_t *kTitle = L"STAND-IN of the demo site";
constexpr int kDone = 0;
constexpr int kFailed = 1;
constexpr DWORD kLongestPath = 32768;

int fail(const std::wstring &why)
{
    const std::wstring text = L"これは、メニューや帳票ツールの代わりに置かれたプログラムです。\n\n" + why;
    MessageBoxW(nullptr, text.c_str(), kTitle, MB_OK | MB_ICONEXCLAMATION);
    return kFailed;
}

/// The absolute path, with the prefix that lifts the classic limit of 260 characters.
std::wstring unlimited(const std::wstring &path)
{
    std::wstring full(kLongestPath, L'\0');
    full.resize(GetFullPathNameW(path.c_str(), kLongestPath, full.data(), nullptr));
    if (full.empty() || full.starts_with(L"\\\\")) return path;
    return L"\\\\?\\" + full;
}

class FileHandle {
public:
    FileHandle(const std::wstring &path, DWORD access, DWORD disposition)
        : m_handle(CreateFileW(unlimited(path).c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                               disposition, FILE_ATTRIBUTE_NORMAL, nullptr))
    {
    }
    ~FileHandle()
    {
        if (isOpen()) CloseHandle(m_handle);
    }
    FileHandle(const FileHandle &) = delete;
    FileHandle &operator=(const FileHandle &) = delete;

    [[nodiscard]] bool isOpen() const { return m_handle != INVALID_HANDLE_VALUE; }
    [[nodiscard]] HANDLE get() const { return m_handle; }

private:
    HANDLE m_handle;
};

std::string utf8Of(const std::wstring &wide)
{
    const int length = static_cast<int>(wide.size());
    std::string text(wide.size() * 3, '\0'); // a UTF-16 unit takes at most three bytes
    text.resize(static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, text.data(),
                                                             static_cast<int>(text.size()), nullptr, nullptr)));
    return text;
}

std::wstring wideOf(const std::string &text)
{
    std::wstring wide(text.size(), L'\0'); // never more units than bytes
    wide.resize(static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()),
                                                             wide.data(), static_cast<int>(wide.size()))));
    return wide;
}

std::wstring ownFile()
{
    std::wstring file(kLongestPath, L'\0');
    file.resize(GetModuleFileNameW(nullptr, file.data(), kLongestPath));
    return file;
}

/// The command line after the program's name, including quotes.
std::wstring argumentsOf(const std::wstring &line)
{
    const bool isQuoted = line.starts_with(L'"');
    const std::size_t end = isQuoted ? line.find(L'"', 1) : line.find_first_of(L" \t");
    if (end == std::wstring::npos) return {};
    const std::size_t first = line.find_first_not_of(L" \t", isQuoted ? end + 1 : end);
    return first == std::wstring::npos ? std::wstring() : line.substr(first);
}

int noteArguments(const std::wstring &log, const std::wstring &arguments)
{
    const FileHandle file(log, FILE_APPEND_DATA, OPEN_ALWAYS);
    const std::string line = utf8Of(arguments) + "\n";
    DWORD written = 0;
    if (!file.isOpen() || WriteFile(file.get(), line.data(), static_cast<DWORD>(line.size()), &written, nullptr) == 0) {
        return fail(log + L" に書き込めません。");
    }
    return kDone;
}

/// The viewer named in a site's "formviewer.path"; empty if there is none.
std::wstring viewerNamedBy(const std::wstring &note)
{
    const FileHandle file(note, GENERIC_READ, OPEN_EXISTING);
    if (!file.isOpen()) return {};
    std::string text(std::size_t{3} * kLongestPath, '\0');
    DWORD count = 0;
    if (ReadFile(file.get(), text.data(), static_cast<DWORD>(text.size()), &count, nullptr) == 0) return {};
    text.resize(count);
    while (text.ends_with('\n') || text.ends_with('\r')) text.pop_back();
    return wideOf(text);
}

/// The viewer chooses its mode by its name. It inherits the window state and the right to the foreground.
int startViewer(const std::wstring &viewer, const std::wstring &name, const std::wstring &arguments)
{
    std::wstring line = L"\"" + name + L"\" " + arguments;
    STARTUPINFOW startup{};
    GetStartupInfoW(&startup);
    STARTUPINFOW passed{};
    passed.cb = sizeof passed;
    passed.dwFlags = startup.dwFlags & STARTF_USESHOWWINDOW;
    passed.wShowWindow = startup.wShowWindow;
    PROCESS_INFORMATION process{};
    if (CreateProcessW(viewer.c_str(), line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &passed, &process) ==
        0) {
        return fail(viewer + L" を起動できません。");
    }
    AllowSetForegroundWindow(process.dwProcessId);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return kDone;
}

/// The command line is not quoted, so everything after "/c" is the path.
int copyScript(const std::wstring &self, const std::wstring &arguments)
{
    const std::wstring spaced = L" " + arguments;
    const std::size_t place = spaced.find(L" /c ");
    if (place == std::wstring::npos) return fail(L"/c とコマンドファイルがありません。");
    std::wstring script = spaced.substr(place + 4);
    std::erase(script, L'"');
    if (CopyFileW(unlimited(script).c_str(), unlimited(self + L".WfdCom.dat").c_str(), FALSE) == 0)
        return fail(script + L" をコピーできません。");
    return kDone;
}

int run()
{
    const std::wstring self = ownFile();
    const std::size_t slash = self.find_last_of(L'\\');
    const std::wstring folder = self.substr(0, slash + 1);
    const std::wstring name = self.substr(slash + 1);
    const std::wstring arguments = argumentsOf(GetCommandLineW());
    if (lstrcmpiW(name.c_str(), L"Main.exe") == 0) return noteArguments(folder + L"Main.log", arguments);
    const std::wstring viewer = viewerNamedBy(folder + L"formviewer.path");
    return viewer.empty() ? copyScript(self, arguments) : startViewer(viewer, name, arguments);
}

} // namespace

} // namespace inin

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int)
{
    return inin::run();
}
