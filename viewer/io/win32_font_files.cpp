#include "viewer/io/font_files.h"

#include "system/program_edges.h"
#include "system/win32_path.h"
#include "system/win32_text.h"

#include <algorithm>
#include <memory>
#include <set>
#include <string_view>

#include <windows.h>

namespace inin::viewer {

namespace {

constexpr const wchar_t *kFontList = L"Software\\Microsoft\\Windows NT\\CurrentVersion\\Fonts";
/// Limits of the registry and of paths.
constexpr DWORD kLongestName = 16384, kLongestPath = 32768;

struct RegistryKeyDeleter {
    void operator()(HKEY key) const { RegCloseKey(key); }
};
using KeyHandle = std::unique_ptr<HKEY__, RegistryKeyDeleter>;

KeyHandle openList(HKEY root)
{
    HKEY key = nullptr;
    if (RegOpenKeyExW(root, kFontList, 0, KEY_READ, &key) != ERROR_SUCCESS) return nullptr;
    return KeyHandle(key);
}

/// "MS Gothic & MS PGothic (TrueType)" without the part in brackets.
std::string fullNames(std::wstring_view listed)
{
    const std::string name = utf8FromWide(listed);
    return name.substr(0, name.rfind(" ("));
}

/// A font of the machine is listed by its name in the fonts folder, any other font by its path.
std::string pathOf(const std::string &file, const std::string &folder)
{
    return file.find_first_of("\\/:") == file.npos ? folder + "\\" + file : file;
}

void addListed(HKEY root, const std::string &folder, std::vector<FontFile> &files)
{
    const KeyHandle list = openList(root);
    const auto before = static_cast<std::ptrdiff_t>(files.size());
    std::wstring name(kLongestName, L'\0'), path(kLongestPath, L'\0');
    for (DWORD at = 0; list; ++at) {
        auto nameSize = static_cast<DWORD>(name.size());
        auto pathSize = static_cast<DWORD>((path.size() - 1) * sizeof(wchar_t));
        DWORD type = 0;
        const LSTATUS status = RegEnumValueW(list.get(), at, name.data(), &nameSize, nullptr, &type,
                                             reinterpret_cast<BYTE *>(path.data()), &pathSize);
        if (status == ERROR_MORE_DATA) continue;
        if (status != ERROR_SUCCESS) break;
        path[pathSize / sizeof(wchar_t)] = L'\0';
        // A name with "@" is the same font for vertical text.
        if (type != REG_SZ || nameSize == 0 || name.front() == L'@') continue;
        files.push_back({pathOf(utf8FromWide(path.c_str()), folder), fullNames({name.data(), nameSize})});
    }
    // The order of the list differs between machines; the choice of a fallback font must not depend on it.
    std::sort(files.begin() + before, files.end(), [](const auto &a, const auto &b) { return a.path < b.path; });
}

/// A form of the path for comparisons: absolute and in lower case.
std::wstring comparablePath(const std::string &path)
{
    std::wstring wide = widePath(path);
    CharLowerBuffW(wide.data(), static_cast<DWORD>(wide.size()));
    return wide;
}

void addFolder(const std::string &folder, std::vector<FontFile> &files)
{
    for (FontFile &file : fontFilesIn(folder)) files.push_back(std::move(file));
}

} // namespace

std::vector<FontFile> installedFontFiles()
{
    const std::string folder = environmentText("SystemRoot") + "\\Fonts";
    const std::string own = environmentText("LOCALAPPDATA") + "\\Microsoft\\Windows\\Fonts";
    std::vector<FontFile> files;
    addFolder(utf8FromWide((programFile().parent_path() / L"fonts").wstring()), files);
    addListed(HKEY_CURRENT_USER, own, files);
    addListed(HKEY_LOCAL_MACHINE, folder, files);
    // Files that were copied into the folders without being listed.
    addFolder(own, files);
    addFolder(folder, files);
    std::set<std::wstring> seen;
    std::erase_if(files, [&](const FontFile &file) { return !seen.insert(comparablePath(file.path)).second; });
    return files;
}

} // namespace inin::viewer
