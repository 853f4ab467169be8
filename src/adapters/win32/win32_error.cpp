#include "adapters/win32/win32_error.h"

#include <algorithm>
#include <optional>

#include <windows.h>

namespace inin::win32 {

namespace {

struct FileErrorRule {
    DWORD systemError;
    std::int32_t number;
};
/// Missing in some headers: a disk quota is exceeded.
constexpr DWORD kDiskQuotaExceeded = 1295;

constexpr FileErrorRule kFileErrorRules[] = {
    {ERROR_FILE_NOT_FOUND, error_number::fileNotFound},
    {ERROR_PATH_NOT_FOUND, error_number::pathNotFound},
    {ERROR_INVALID_DRIVE, error_number::pathNotFound},
    {ERROR_BAD_NETPATH, error_number::pathNotFound},
    {ERROR_BAD_NET_NAME, error_number::pathNotFound},
    {ERROR_DIRECTORY, error_number::pathNotFound},
    {ERROR_TOO_MANY_OPEN_FILES, error_number::tooManyFiles},
    {ERROR_NOT_ENOUGH_MEMORY, error_number::outOfMemory},
    {ERROR_OUTOFMEMORY, error_number::outOfMemory},
    {ERROR_WRITE_PROTECT, error_number::permissionDenied},
    {ERROR_SHARING_VIOLATION, error_number::permissionDenied},
    {ERROR_LOCK_VIOLATION, error_number::permissionDenied},
    {ERROR_USER_MAPPED_FILE, error_number::permissionDenied},
    {ERROR_NOT_READY, error_number::diskNotReady},
    {ERROR_DISK_FULL, error_number::diskFull},
    {ERROR_HANDLE_DISK_FULL, error_number::diskFull},
    {kDiskQuotaExceeded, error_number::diskFull},
    {ERROR_FILE_TOO_LARGE, error_number::diskFull},
    {ERROR_INVALID_NAME, error_number::badFileName},
    {ERROR_BAD_PATHNAME, error_number::badFileName},
    {ERROR_FILENAME_EXCED_RANGE, error_number::badFileName},
    {ERROR_CRC, error_number::deviceIo},
    {ERROR_SEEK, error_number::deviceIo},
    {ERROR_READ_FAULT, error_number::deviceIo},
    {ERROR_WRITE_FAULT, error_number::deviceIo},
    {ERROR_GEN_FAILURE, error_number::deviceIo},
    {ERROR_IO_DEVICE, error_number::deviceIo},
    {ERROR_NETNAME_DELETED, error_number::deviceIo},
};

std::optional<DWORD> attributesOf(const std::wstring &path)
{
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes == INVALID_FILE_ATTRIBUTES ? std::nullopt : std::optional(attributes);
}

} // namespace

std::int32_t fileErrorNumber(std::uint32_t systemError, const std::wstring &path)
{
    // Access was denied: a file is read-only; otherwise the folder or the path is the cause.
    if (systemError == ERROR_ACCESS_DENIED)
        return isWin32File(path) ? error_number::permissionDenied : error_number::pathAccess;
    const auto *const rule = std::ranges::find(kFileErrorRules, systemError, &FileErrorRule::systemError);
    return rule != std::end(kFileErrorRules) ? rule->number : error_number::pathAccess;
}

void failFile(std::uint32_t systemError, const std::wstring &path)
{
    throw RuntimeError(fileErrorNumber(systemError, path));
}

RuntimeError startFailure(std::uint32_t systemError, const std::string &commandLine)
{
    if (systemError != kElevationRequired) return RuntimeError(error_number::fileNotFound);
    return RuntimeError(error_number::permissionDenied,
                        "「" + commandLine +
                            "」を起動できません。プログラムが「管理者として実行」の設定になっています。"
                            "プログラムのプロパティの「互換性」で、この設定を外してください。");
}

void refuseBoxesOfTheSystem()
{
    SetThreadErrorMode(GetThreadErrorMode() | SEM_FAILCRITICALERRORS, nullptr);
}

bool isWin32Folder(const std::wstring &path)
{
    return (attributesOf(path).value_or(0) & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

bool isWin32File(const std::wstring &path)
{
    return attributesOf(path).has_value() && !isWin32Folder(path);
}

void removeWin32Link(const std::wstring &path)
{
    if ((attributesOf(path).value_or(0) & FILE_ATTRIBUTE_REPARSE_POINT) == 0) return;
    WIN32_FIND_DATAW found{};
    const HANDLE search = FindFirstFileW(path.c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return;
    FindClose(search);
    // Other reparse points are real files, for example in a cloud folder.
    if (found.dwReserved0 == IO_REPARSE_TAG_SYMLINK) DeleteFileW(path.c_str());
}

bool isReadOnlyWin32File(const std::wstring &path)
{
    return isWin32File(path) && (attributesOf(path).value_or(0) & FILE_ATTRIBUTE_READONLY) != 0;
}

} // namespace inin::win32
