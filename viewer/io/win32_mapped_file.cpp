#include "viewer/io/mapped_file.h"

#include "system/win32_handle.h"
#include "system/win32_path.h"

#include <windows.h>

namespace inin::viewer {

namespace {

/// True for a file on a drive that stays: not on a share, nor on a medium that can be removed.
bool isOnFixedDrive(const std::wstring &path)
{
    std::wstring full = fullPath(path);
    if (full.starts_with(kUnlimited)) full.erase(0, kUnlimited.size());
    return full.size() > 2 && full[1] == L':' && GetDriveTypeW((full.substr(0, 2) + L"\\").c_str()) == DRIVE_FIXED;
}

} // namespace

MappedFile::MappedFile(const std::string &systemPath)
{
    constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const std::wstring path = widePath(systemPath);
    const Win32FileHandle file(
        CreateFileW(path.c_str(), GENERIC_READ, kShareAll, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    LARGE_INTEGER size{};
    if (!file.isOpen() || GetFileSizeEx(file.get(), &size) == 0 || size.QuadPart == 0) return;
    if (!isOnFixedDrive(path)) {
        if (readUpTo(file, static_cast<std::size_t>(size.QuadPart), m_copy)) m_bytes = m_copy;
        return;
    }
    // The view keeps the file and the mapping open, so both handles may be closed.
    const HANDLE mapping = CreateFileMappingW(file.get(), nullptr, PAGE_READONLY, 0, 0, nullptr);
    if (mapping == nullptr) return;
    const Win32FileHandle owner(mapping);
    const void *const memory = MapViewOfFile(mapping, FILE_MAP_READ, 0, 0, 0);
    if (memory != nullptr) m_bytes = {static_cast<const char *>(memory), static_cast<std::size_t>(size.QuadPart)};
}

MappedFile::~MappedFile()
{
    if (m_copy.empty() && !m_bytes.empty()) UnmapViewOfFile(m_bytes.data());
}

} // namespace inin::viewer
