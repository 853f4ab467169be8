#include "adapters/native/native_platform.h"
#include "adapters/win32/win32_error.h"
#include "runtime/runtime_error.h"
#include "system/output_buffer.h"
#include "system/win32_handle.h"
#include "system/win32_path.h"
#include "system/win32_text.h"

#include <utility>

namespace inin {

namespace {

/// Share all access: this program and the form tool must not lock each other out of a file.
constexpr DWORD kShared = FILE_SHARE_READ | FILE_SHARE_WRITE;

/// The system's path of a file to open or delete. Wildcards and other characters that names cannot contain are refused
/// before the system would accept them; a colon other than the drive's would name an alternate stream.
std::wstring filePath(const std::string &path)
{
    const std::string name = path.substr(path.find_last_of("\\/") + 1);
    if (path.empty() || path.find('\0') != std::string::npos || name.find_first_of("*?\"<>|") != std::string::npos)
        throw RuntimeError(error_number::badFileName);
    if (name.empty()) throw RuntimeError(error_number::pathAccess);
    return widePath(path);
}

class Win32Output : public OutputFile {
public:
    Win32Output(Win32FileHandle file, std::wstring path) : m_file(std::move(file)), m_path(std::move(path)) {}
    ~Win32Output() override
    {
        if (m_file.isOpen()) (void)put(m_buffer.takeCutOff()); // a destructor cannot report a failure
    }

    void write(std::string_view bytes) override
    {
        m_buffer.add(bytes);
        if (!put(m_buffer.takeDue())) failFile(GetLastError(), m_path);
    }

    void close() override
    {
        if (!m_file.isOpen()) return;
        const DWORD writeError = put(m_buffer.takeAll()) ? ERROR_SUCCESS : GetLastError();
        const DWORD closeError = m_file.close() ? ERROR_SUCCESS : GetLastError();
        if (writeError != ERROR_SUCCESS || closeError != ERROR_SUCCESS)
            failFile(writeError != ERROR_SUCCESS ? writeError : closeError, m_path);
    }

private:
    /// After a failure nothing more is written: the file stays as it is.
    bool put(std::string_view bytes)
    {
        if (writeAll(m_file, bytes)) {
            m_size += static_cast<LONGLONG>(bytes.size());
            return true;
        }
        const DWORD error = GetLastError();
        removeLineEnd(bytes);
        m_buffer = {};
        SetLastError(error);
        return false;
    }

    /// A failed write may have stored the bytes up to the end of a line; remove that line end.
    void removeLineEnd(std::string_view bytes) const
    {
        LARGE_INTEGER end{};
        if (SetFilePointerEx(m_file.get(), {}, &end, FILE_CURRENT) == 0 || end.QuadPart <= m_size) return;
        const std::string_view stored = bytes.substr(0, static_cast<std::size_t>(end.QuadPart - m_size));
        end.QuadPart = m_size + static_cast<LONGLONG>(lengthWithoutLineEnd(stored));
        if (SetFilePointerEx(m_file.get(), end, nullptr, FILE_BEGIN) != 0) SetEndOfFile(m_file.get());
    }

    Win32FileHandle m_file;
    std::wstring m_path;
    LONGLONG m_size = 0; ///< of what was written successfully
    OutputBuffer m_buffer;
};

/// A file that is locked as long as its handle is open. The lock is on a single byte far beyond the content, because
/// Windows does not let others read locked bytes.
class Win32LockedOutput : public OutputFile {
public:
    Win32LockedOutput(Win32FileHandle file, std::wstring path) : m_file(std::move(file)), m_path(std::move(path)) {}

    static bool isLocked(const Win32FileHandle &file)
    {
        OVERLAPPED place{};
        place.OffsetHigh = 0x40000000;
        return LockFileEx(file.get(), LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &place) != 0;
    }

    void write(std::string_view bytes) override
    {
        if (!writeAll(m_file, bytes)) failFile(GetLastError(), m_path);
    }

    void close() override
    {
        if (m_file.isOpen() && !m_file.close()) failFile(GetLastError(), m_path);
    }

private:
    Win32FileHandle m_file;
    std::wstring m_path;
};

class Win32Input : public InputFile {
public:
    Win32Input(Win32FileHandle file, std::wstring path) : m_file(std::move(file)), m_path(std::move(path)) {}

    std::string read(std::size_t size) override
    {
        std::string bytes;
        if (!readUpTo(m_file, size, bytes)) failFile(GetLastError(), m_path);
        return bytes;
    }

private:
    Win32FileHandle m_file;
    std::wstring m_path;
};

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
        Win32FileHandle handle(
            CreateFileW(file.c_str(), GENERIC_WRITE, kShared, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
        if (!handle.isOpen()) failFile(GetLastError(), file);
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
        if (!Win32LockedOutput::isLocked(handle)) {
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

std::unique_ptr<Files> makeSystemFiles(std::string applicationFolder)
{
    return std::make_unique<Win32Files>(std::move(applicationFolder));
}

} // namespace inin
