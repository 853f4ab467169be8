#include "viewer/io/mapped_file.h"

#include "system/win32_handle.h"
#include "system/win32_path.h"

#include <windows.h>

namespace inin::viewer {

MappedFile::MappedFile(const std::string &systemPath)
{
    constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const Win32FileHandle file(CreateFileW(widePath(systemPath).c_str(), GENERIC_READ, kShareAll, nullptr,
                                           OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    LARGE_INTEGER size{};
    if (!file.isOpen() || GetFileSizeEx(file.get(), &size) == 0 || size.QuadPart == 0) return;
    // The view keeps the file and the mapping open, so both handles may be closed.
    const HANDLE mapping = CreateFileMappingW(file.get(), nullptr, PAGE_READONLY, 0, 0, nullptr);
    if (mapping == nullptr) return;
    const Win32FileHandle owner(mapping);
    const void *const memory = MapViewOfFile(mapping, FILE_MAP_READ, 0, 0, 0);
    if (memory != nullptr) m_bytes = {static_cast<const char *>(memory), static_cast<std::size_t>(size.QuadPart)};
}

MappedFile::~MappedFile()
{
    if (!m_bytes.empty()) UnmapViewOfFile(m_bytes.data());
}

} // namespace inin::viewer
