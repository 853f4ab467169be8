#include "adapters/native/native_platform.h"
#include "system/file_path.h"
#include "system/win32_text.h"

#include <optional>

#include <windows.h>

namespace inin::win32 {

namespace {

constexpr const wchar_t *kCompatibility = L"Software\\Microsoft\\Windows NT\\CurrentVersion\\AppCompatFlags\\Layers";
constexpr const wchar_t *kDataSources = L"ODBC\\ODBC.INI\\ODBC Data Sources";
constexpr const wchar_t *kAliases = L"Microsoft\\MSSQLServer\\Client\\ConnectTo";

/// A text of the registry; nothing if there is none.
std::optional<std::wstring> registeredText(HKEY root, const std::wstring &key, const std::wstring &name)
{
    DWORD size = 0;
    const auto read = [&](void *text) {
        return RegGetValueW(root, key.c_str(), name.c_str(), RRF_RT_REG_SZ, nullptr, text, &size) == ERROR_SUCCESS;
    };
    if (!read(nullptr)) return std::nullopt;
    std::wstring text(size / sizeof(wchar_t), L'\0');
    if (!read(text.data())) return std::nullopt;
    text.resize(text.find(L'\0'));
    return text;
}

bool isRegistered(HKEY root, const std::wstring &key, const std::wstring &name)
{
    return registeredText(root, key, name).has_value();
}

} // namespace

} // namespace inin::win32

bool inin::startsOnlyAsAdministrator(const std::string &folder, const std::string &name)
{
    using namespace win32;
    const std::wstring program = wideFromUtf8(fullPath(folder + "\\" + name));
    for (const HKEY root : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE}) {
        const auto settings = registeredText(root, kCompatibility, program);
        if (settings && settings->find(L"RUNASADMIN") != std::wstring::npos) return true;
    }
    return false;
}

/// A 64-bit program reads the definitions of 32-bit programs below "WOW6432Node". A user's own data sources are common to
/// both.
bool inin::isOnlyFor32BitPrograms(ServerName kind, const std::string &name)
{
    using namespace win32;
    if (name.empty()) return false;
    const std::wstring key = kind == ServerName::dataSource ? kDataSources : kAliases;
    const std::wstring value = wideFromUtf8(name);
    return isRegistered(HKEY_LOCAL_MACHINE, L"SOFTWARE\\WOW6432Node\\" + key, value) &&
           !isRegistered(HKEY_LOCAL_MACHINE, L"SOFTWARE\\" + key, value) &&
           !isRegistered(HKEY_CURRENT_USER, L"SOFTWARE\\" + key, value);
}
