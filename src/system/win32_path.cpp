#include "system/win32_path.h"

#include "system/file_path.h"
#include "system/win32_handle.h"
#include "system/win32_text.h"

#include <algorithm>

#include <windows.h>

namespace inin {

namespace {

/// A folder's path must leave room for an 8.3 name, so its limit is below MAX_PATH.
constexpr std::size_t kLongestClassic = MAX_PATH - 12;
constexpr std::wstring_view kUnlimitedShare = L"\\\\?\\UNC\\";

} // namespace

std::wstring fullPath(const std::wstring &path)
{
    std::wstring full(GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), L'\0');
    full.resize(GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
    return full.empty() ? path : full;
}

std::string fullPath(const std::string &path)
{
    return utf8FromWide(fullPath(wideFromUtf8(path)));
}

std::wstring widePath(const std::string &path)
{
    std::wstring wide = wideFromUtf8(path);
    std::ranges::replace(wide, L'/', L'\\');
    if (wide.empty() || wide.starts_with(kUnlimited)) return wide;
    // The limit applies to the absolute path, so a short name in a deep current folder may exceed it.
    const std::wstring full = fullPath(wide);
    if (full.size() < kLongestClassic) return wide;
    if (full.starts_with(L"\\\\")) return std::wstring(kUnlimitedShare) + full.substr(2);
    return std::wstring(kUnlimited) + full;
}

bool isAbsolutePath(const std::string &path)
{
    return path.starts_with('\\') || path.starts_with('/') || (path.size() > 1 && path[1] == ':');
}

std::string absoluteSystemPath(const std::string &path)
{
    return fullPath(path);
}

std::string pathWithoutLinks(const std::string &systemPath)
{
    // Folders are opened only with this flag.
    const Win32FileHandle file(CreateFileW(widePath(systemPath).c_str(), 0,
                                           FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                           OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    if (!file.isOpen()) return {};
    std::wstring path(GetFinalPathNameByHandleW(file.get(), nullptr, 0, FILE_NAME_NORMALIZED), L'\0');
    const DWORD written =
        GetFinalPathNameByHandleW(file.get(), path.data(), static_cast<DWORD>(path.size()), FILE_NAME_NORMALIZED);
    if (written >= path.size()) return {};
    path.resize(written);
    return utf8FromWide(path);
}

std::filesystem::path longPathOf(const std::string &systemPath)
{
    return widePath(systemPath);
}

std::string systemPath(const std::string &path)
{
    return utf8FromWide(widePath(path));
}

} // namespace inin
