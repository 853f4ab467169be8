#include "system/file_path.h"
#include "system/pending_file.h"
#include "system/win32_handle.h"
#include "system/win32_path.h"
#include "system/win32_text.h"

#include <random>

#include <windows.h>

namespace inin {

namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// Windows treats "NUL" or "COM1" as a device in any folder.
bool isDevice(const std::string &path)
{
    return fullPath(wideFromUtf8(path)).starts_with(L"\\\\.\\");
}

std::int64_t nanoseconds(const FILETIME &time)
{
    constexpr std::int64_t kPerTick = 100;
    /// Ticks from the beginning of 1601 to that of 1970. Nanoseconds since 1601 exceed 64 bits.
    constexpr std::int64_t kTicksTo1970 = 116'444'736'000'000'000;
    ULARGE_INTEGER ticks{};
    ticks.LowPart = time.dwLowDateTime;
    ticks.HighPart = time.dwHighDateTime;
    return (static_cast<std::int64_t>(ticks.QuadPart) - kTicksTo1970) * kPerTick;
}

/// What happens to a file when its last handle is closed, also by the end of a killed process.
enum class AtClose : BOOLEAN { keep = FALSE, remove = TRUE };

bool setAtClose(const Win32FileHandle &file, AtClose what)
{
    FILE_DISPOSITION_INFO disposition{static_cast<BOOLEAN>(what)};
    return SetFileInformationByHandle(file.get(), FileDispositionInfo, &disposition, sizeof disposition) != 0;
}

Win32FileHandle createBeside(const std::string &path, std::wstring &temporaryPath)
{
    constexpr int kTries = 100;
    std::random_device random;
    for (int attempt = 0; attempt < kTries; ++attempt) {
        temporaryPath = widePath(path + "." + std::to_string(random()));
        const HANDLE file = CreateFileW(temporaryPath.c_str(), GENERIC_WRITE | DELETE, 0, nullptr, CREATE_NEW,
                                        FILE_ATTRIBUTE_NORMAL, nullptr);
        if (file != INVALID_HANDLE_VALUE || GetLastError() != ERROR_FILE_EXISTS) return Win32FileHandle(file);
    }
    return Win32FileHandle(INVALID_HANDLE_VALUE);
}

class Win32PendingFile : public PendingFile {
public:
    explicit Win32PendingFile(const std::string &systemPath)
        : m_path(widePath(systemPath)), m_file(createBeside(systemPath, m_temporaryPath))
    {
        // If this fails, the destructor removes the file.
        if (m_file.isOpen()) (void)setAtClose(m_file, AtClose::remove);
    }
    Win32PendingFile(const Win32PendingFile &) = delete;
    Win32PendingFile &operator=(const Win32PendingFile &) = delete;
    ~Win32PendingFile() override
    {
        if (!m_file.isOpen()) return; // never created, or closed by commit()
        (void)m_file.close();         // its content is discarded
        DeleteFileW(m_temporaryPath.c_str());
    }

    [[nodiscard]] bool isOpen() const { return m_file.isOpen(); }
    bool write(std::string_view bytes) override { return writeAll(m_file, bytes); }
    bool commit() override
    {
        if (FlushFileBuffers(m_file.get()) == 0 || !setAtClose(m_file, AtClose::keep)) return false;
        // The move fails and keeps the older file if another program has it open.
        if (m_file.close() && MoveFileExW(m_temporaryPath.c_str(), m_path.c_str(), MOVEFILE_REPLACE_EXISTING) != 0)
            return true;
        DeleteFileW(m_temporaryPath.c_str());
        return false;
    }

private:
    std::wstring m_path, m_temporaryPath;
    Win32FileHandle m_file;
};

} // namespace

FileInfo fileInfo(const std::string &systemPath)
{
    if (isDevice(systemPath)) return {FileInfo::Kind::other, 0, 0};
    WIN32_FILE_ATTRIBUTE_DATA info{};
    if (GetFileAttributesExW(widePath(systemPath).c_str(), GetFileExInfoStandard, &info) == 0) return {};
    const bool isFolder = (info.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    return {isFolder ? FileInfo::Kind::other : FileInfo::Kind::file,
            (std::uint64_t{info.nFileSizeHigh} << 32U) | info.nFileSizeLow, nanoseconds(info.ftLastWriteTime)};
}

bool readBytes(const std::string &systemPath, std::size_t size, std::string &bytes)
{
    const Win32FileHandle file(CreateFileW(widePath(systemPath).c_str(), GENERIC_READ, kShareAll, nullptr,
                                           OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    return file.isOpen() && readUpTo(file, size, bytes);
}

std::unique_ptr<PendingFile> createPendingFile(const std::string &systemPath, NewFile)
{
    if (isDevice(systemPath)) return nullptr;
    auto file = std::make_unique<Win32PendingFile>(systemPath);
    if (!file->isOpen()) return nullptr;
    return file;
}

void createForOwner(const std::string &) {} // a new file inherits the permissions of its folder

} // namespace inin
