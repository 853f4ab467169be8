#include "viewer/io/system_file.h"

#include "system/file_path.h"
#include "system/win32_handle.h"
#include "system/win32_path.h"
#include "system/win32_text.h"

#include <fmt/format.h>

#include <filesystem>
#include <random>

#include <windows.h>

namespace inin::viewer {

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
        temporaryPath = widePath(fmt::format("{}.{:08x}", path, random()));
        const HANDLE file = CreateFileW(temporaryPath.c_str(), GENERIC_WRITE | DELETE, 0, nullptr, CREATE_NEW,
                                        FILE_ATTRIBUTE_NORMAL, nullptr);
        if (file != INVALID_HANDLE_VALUE || GetLastError() != ERROR_FILE_EXISTS) return Win32FileHandle(file);
    }
    return Win32FileHandle(INVALID_HANDLE_VALUE);
}

} // namespace

// Windows accepts either slash and any case.
std::string resolvedPath(const std::string &path)
{
    return path;
}

std::string absolutePath(const std::string &systemPath)
{
    return fullPath(systemPath);
}

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

bool makeFolders(const std::string &systemPath)
{
    std::error_code error;
    std::filesystem::create_directories(widePath(systemPath), error);
    return !error;
}

std::vector<std::string> namesIn(const std::string &systemFolder)
{
    std::vector<std::string> names;
    std::error_code error;
    std::filesystem::directory_iterator entry(widePath(systemFolder), error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error))
        names.push_back(utf8FromWide(entry->path().filename().wstring()));
    return names;
}

struct TemporaryFile::State {
    std::wstring path, temporaryPath;
    Win32FileHandle file{INVALID_HANDLE_VALUE};
};

TemporaryFile::TemporaryFile(const std::string &systemPath) : m_state(std::make_unique<State>())
{
    m_state->path = widePath(systemPath);
    if (!isDevice(systemPath)) m_state->file = createBeside(systemPath, m_state->temporaryPath);
    if (m_state->file.isOpen())
        (void)setAtClose(m_state->file, AtClose::remove); // if this fails, the destructor removes the file
    else
        m_state->temporaryPath.clear();
}

TemporaryFile::~TemporaryFile()
{
    if (m_state->file.isOpen()) (void)m_state->file.close(); // its content is discarded
    if (!m_state->temporaryPath.empty()) DeleteFileW(m_state->temporaryPath.c_str());
}

bool TemporaryFile::isOpen() const
{
    return m_state->file.isOpen();
}

bool TemporaryFile::write(std::string_view bytes)
{
    return writeAll(m_state->file, bytes);
}

bool TemporaryFile::commit()
{
    const bool isStored = FlushFileBuffers(m_state->file.get()) != 0 && setAtClose(m_state->file, AtClose::keep);
    if (!isStored || !m_state->file.close()) return false;
    // Fails and keeps the older file if another program has it open.
    if (MoveFileExW(m_state->temporaryPath.c_str(), m_state->path.c_str(), MOVEFILE_REPLACE_EXISTING) == 0)
        return false;
    m_state->temporaryPath.clear();
    return true;
}

} // namespace inin::viewer
