#include "adapters/native/native_platform.h"
#include "adapters/native/path_rules.h"
#include "adapters/win32/win32_error.h"
#include "runtime/runtime_error.h"
#include "system/win32_path.h"
#include "system/win32_text.h"

#include <algorithm>

#include <windows.h>

namespace inin::win32 {

namespace {

struct CloseFolderSearch {
    void operator()(void *search) const { FindClose(search); }
};

/// A listed drive exists, so an error at its root is caused by the medium.
bool isRootOfListedDrive(const std::wstring &folder)
{
    if (folder.size() != 3 || folder[1] != L':') return false;
    const int letter = folder[0] | 0x20; // converts ASCII to lower case
    return letter >= 'a' && letter <= 'z' && (GetLogicalDrives() >> (letter - 'a') & 1U) != 0;
}

std::int32_t folderErrorNumber(DWORD systemError, const std::wstring &folder)
{
    if (systemError == ERROR_PATH_NOT_FOUND && isRootOfListedDrive(folder)) return error_number::diskNotReady;
    switch (systemError) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_INVALID_NAME:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
    case ERROR_DIRECTORY:
        return error_number::pathNotFound;
    case ERROR_ACCESS_DENIED:
        return error_number::pathAccess;
    default:
        return error_number::diskNotReady;
    }
}

/// The absolute path without a trailing separator, except for a drive's root: "C:" alone means "C:\".
std::wstring wholeFolder(const std::string &path)
{
    std::wstring given = wideFromUtf8(path);
    if (given.size() == 2 && given[1] == L':') given += L'\\';
    std::wstring whole = fullPath(given);
    if (whole.empty()) throw RuntimeError(error_number::pathNotFound);
    while (whole.size() > 3 && whole.back() == L'\\') whole.pop_back();
    return whole;
}

/// "C:\" or "\\server\share" with a trailing separator.
std::wstring driveOf(const std::wstring &folder)
{
    if (!folder.starts_with(L"\\\\")) return folder.substr(0, 3);
    const std::size_t share = folder.find(L'\\', folder.find(L'\\', 2) + 1);
    return folder.substr(0, share) + L"\\";
}

/// Hide hidden and system folders.
std::vector<FolderPlace> placesInside(const std::wstring &folder)
{
    const std::wstring start = folder.ends_with(L'\\') ? folder : folder + L"\\";
    WIN32_FIND_DATAW found{};
    const std::wstring pattern = widePath(utf8FromWide(start + L"*")); // freeing it may change the last error
    const HANDLE search = FindFirstFileW(pattern.c_str(), &found);
    const DWORD error = GetLastError();
    // The root of an empty drive lists nothing, not even itself.
    if (search == INVALID_HANDLE_VALUE && error == ERROR_FILE_NOT_FOUND) return {};
    if (search == INVALID_HANDLE_VALUE) throw RuntimeError(folderErrorNumber(error, folder));
    const std::unique_ptr<void, CloseFolderSearch> owned(search);
    std::vector<FolderPlace> places;
    constexpr DWORD unseen = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
    do {
        const std::wstring name = found.cFileName;
        const bool folderHere = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        if (!folderHere || (found.dwFileAttributes & unseen) != 0 || name == L"." || name == L"..") continue;
        places.push_back({utf8FromWide(name), utf8FromWide(start + name)});
    } while (FindNextFileW(search, &found) != 0);
    std::ranges::sort(places, [](const FolderPlace &a, const FolderPlace &b) {
        return lstrcmpiW(wideFromUtf8(a.name).c_str(), wideFromUtf8(b.name).c_str()) < 0;
    });
    return places;
}

class Win32Folders : public Folders {
public:
    Win32Folders() { refuseBoxesOfTheSystem(); }

    std::vector<std::string> drives() override
    {
        std::vector<std::string> places;
        const DWORD present = GetLogicalDrives();
        for (int letter = 0; letter < 26; ++letter)
            if ((present >> letter & 1U) != 0)
                places.push_back(std::string(1, static_cast<char>('A' + letter)) + ":\\");
        return places;
    }

    FolderContents open(const std::string &path) override
    {
        const std::wstring folder = wholeFolder(path);
        const std::string drive = utf8FromWide(driveOf(folder));
        return {drive, placesAbove(drive, utf8FromWide(folder), '\\'), placesInside(folder)};
    }
};

} // namespace

} // namespace inin::win32

std::unique_ptr<inin::Folders> inin::makeSystemFolders()
{
    return std::make_unique<win32::Win32Folders>();
}
