#include "adapters/sqlite/sqlite_file.h"

#include "system/file_path.h"

#include <windows.h>

namespace inin::sqlite {

namespace {

std::uint64_t joined(DWORD high, DWORD low)
{
    return (static_cast<std::uint64_t>(high) << 32U) | low;
}

} // namespace

std::optional<FileIdentity> fileIdentity(const std::string &path)
{
    WIN32_FILE_ATTRIBUTE_DATA data = {};
    if (GetFileAttributesExW(pathOf(path).c_str(), GetFileExInfoStandard, &data) == 0) return std::nullopt;
    if ((data.dwFileAttributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_DEVICE)) != 0) return std::nullopt;
    return FileIdentity{
        0, 0, joined(data.nFileSizeHigh, data.nFileSizeLow),
        static_cast<std::int64_t>(joined(data.ftLastWriteTime.dwHighDateTime, data.ftLastWriteTime.dwLowDateTime))};
}

} // namespace inin::sqlite
