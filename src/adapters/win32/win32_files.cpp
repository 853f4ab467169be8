#include "adapters/native/native_platform.h"
#include "adapters/native/open_file.h"
#include "adapters/native/path_rules.h"
#include "adapters/win32/win32_error.h"
#include "runtime/runtime_error.h"
#include "system/win32_handle.h"
#include "system/win32_path.h"
#include "system/win32_text.h"

#include <utility>

namespace inin::win32 {

namespace {

/// Share all access: this program and the form tool must not lock each other out of a file.
constexpr DWORD kShared = FILE_SHARE_READ | FILE_SHARE_WRITE;

std::wstring filePath(const std::string &path)
{
    checkFilePath(path);
    return widePath(path);
}

struct Win32FileCalls {
    using Handle = Win32FileHandle;
    using Path = std::wstring;
    using Error = DWORD;
    static Error lastError() { return GetLastError(); }
    static void setLastError(Error error) { SetLastError(error); }
    [[noreturn]] static void fail(Error error, const Path &path) { failFile(error, path); }
    static std::int64_t position(const Handle &file)
    {
        LARGE_INTEGER at{};
        return SetFilePointerEx(file.get(), {}, &at, FILE_CURRENT) != 0 ? at.QuadPart : -1;
    }
    static void cutAt(const Handle &file, std::int64_t size)
    {
        LARGE_INTEGER at{};
        at.QuadPart = size;
        if (SetFilePointerEx(file.get(), at, nullptr, FILE_BEGIN) != 0) SetEndOfFile(file.get());
    }
};
using Win32Output = OpenOutput<Win32FileCalls>;
using Win32LockedOutput = OpenLockedOutput<Win32FileCalls>;
using Win32Input = OpenInput<Win32FileCalls>;

/// The lock lasts as long as the handle is open. It is on a single byte far beyond the content, because Windows does
/// not let others read locked bytes.
bool isLocked(const Win32FileHandle &file)
{
    OVERLAPPED place{};
    place.OffsetHigh = 0x40000000;
    return LockFileEx(file.get(), LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &place) != 0;
}

struct CloseSearch {
    void operator()(void *search) const { FindClose(search); }
};

/// The first ordinary file that the system lists for the pattern.
std::wstring firstOrdinaryFile(const std::wstring &pattern)
{
    constexpr DWORD unordinary = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
    WIN32_FIND_DATAW found{};
    const HANDLE search = FindFirstFileW(pattern.c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return {};
    const std::unique_ptr<void, CloseSearch> owned(search);
    do {
        if ((found.dwFileAttributes & unordinary) == 0) return found.cFileName;
    } while (FindNextFileW(search, &found) != 0);
    return {};
}

class Win32Files : public Files {
public:
    explicit Win32Files(std::string applicationFolder) : m_applicationFolder(std::move(applicationFolder))
    {
        refuseBoxesOfTheSystem();
        // A drive's root keeps its separator: "C:" alone would be the drive's current folder.
        while (m_applicationFolder.size() > 3 &&
               m_applicationFolder.find_last_of("\\/") + 1 == m_applicationFolder.size())
            m_applicationFolder.pop_back();
    }

    std::unique_ptr<OutputFile> openForOutput(const std::string &path) override
    {
        const std::wstring file = filePath(path);
        // Applies to administrators too, where the system would permit it.
        if (isReadOnlyWin32File(file)) failFile(ERROR_ACCESS_DENIED, file);
        removeWin32Link(file);
        // Windows refuses CREATE_ALWAYS for a hidden file.
        Win32FileHandle handle(
            CreateFileW(file.c_str(), GENERIC_WRITE, kShared, nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
        if (!handle.isOpen() || SetEndOfFile(handle.get()) == 0) failFile(GetLastError(), file);
        return std::make_unique<Win32Output>(std::move(handle), file);
    }

    LockedFile openLocked(const std::string &path) override
    {
        using State = LockedFile::State;
        const std::wstring file = filePath(path);
        removeWin32Link(file);
        Win32FileHandle handle(
            CreateFileW(file.c_str(), GENERIC_WRITE, kShared, nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
        if (!handle.isOpen()) return {};
        if (!isLocked(handle)) {
            const DWORD error = GetLastError();
            const bool isBusy = error == ERROR_LOCK_VIOLATION || error == ERROR_IO_PENDING;
            return {isBusy ? State::busy : State::unavailable, nullptr};
        }
        if (SetEndOfFile(handle.get()) == 0) return {};
        return {State::locked, std::make_unique<Win32LockedOutput>(std::move(handle), file)};
    }

    std::unique_ptr<InputFile> openForInput(const std::string &path) override
    {
        const std::wstring file = filePath(path);
        Win32FileHandle handle(
            CreateFileW(file.c_str(), GENERIC_READ, kShared, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
        if (!handle.isOpen()) failFile(GetLastError(), file);
        // A device may supply bytes without end.
        if (GetFileType(handle.get()) != FILE_TYPE_DISK) failFile(ERROR_NOT_READY, file);
        return std::make_unique<Win32Input>(std::move(handle), file);
    }

    std::string directorySearch(const std::string &path) override
    {
        if (path.empty()) return {};
        const bool folder = path.ends_with('\\') || path.ends_with('/');
        return utf8FromWide(firstOrdinaryFile(widePath(folder ? path + "*" : path)));
    }

    bool isFolder(const std::string &path) override { return isWin32Folder(widePath(path)); }

    void remove(const std::string &path) override
    {
        const std::wstring file = filePath(path);
        if (isWin32Folder(file)) throw RuntimeError(error_number::pathAccess);
        if (isReadOnlyWin32File(file)) failFile(ERROR_ACCESS_DENIED, file);
        if (DeleteFileW(file.c_str()) != 0) return;
        const DWORD error = GetLastError();
        // The file itself permits the removal: the folder denies it.
        if (error == ERROR_ACCESS_DENIED) throw RuntimeError(error_number::pathAccess);
        failFile(error, file);
    }

    std::string applicationFolder() override { return m_applicationFolder; }

    /// A path without a drive (on a share, or a bare name) changes nothing.
    void changeDrive(const std::string &path) override
    {
        if (path.size() < 2 || path[1] != ':') return;
        const std::wstring drive = wideFromUtf8(path.substr(0, 2));
        if (SetCurrentDirectoryW(drive.c_str()) == 0) throw RuntimeError(error_number::diskNotReady);
    }

    void changeFolder(const std::string &path) override
    {
        const std::wstring folder = widePath(path);
        if (SetCurrentDirectoryW(folder.c_str()) != 0) return;
        const DWORD error = GetLastError();
        throw RuntimeError(error == ERROR_FILE_NOT_FOUND ? error_number::pathNotFound : fileErrorNumber(error, folder));
    }

    std::string currentFolder() override
    {
        std::wstring folder(GetCurrentDirectoryW(0, nullptr), L'\0');
        folder.resize(GetCurrentDirectoryW(static_cast<DWORD>(folder.size()), folder.data()));
        if (folder.empty()) throw RuntimeError(error_number::pathNotFound);
        return utf8FromWide(folder);
    }

private:
    std::string m_applicationFolder;
};

} // namespace

} // namespace inin::win32

std::unique_ptr<inin::Files> inin::makeSystemFiles(std::string applicationFolder)
{
    return std::make_unique<win32::Win32Files>(std::move(applicationFolder));
}
