#include "adapters/win32/win32_profile.h"
#include "platform/settings_limit.h"
#include "suite_text/profile_text.h"
#include "suite_text/win32_ansi_text.h"
#include "system/win32_handle.h"
#include "system/win32_path.h"
#include "system/win32_text.h"
#include "system/windows_names.h"

namespace inin::win32 {

namespace {

Win32FileHandle opened(const std::wstring &path, DWORD access, DWORD others, DWORD disposition)
{
    return Win32FileHandle(
        CreateFileW(path.c_str(), access, others, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr));
}

bool readWhole(const Win32FileHandle &file, std::string &bytes)
{
    LARGE_INTEGER size{};
    return GetFileSizeEx(file.get(), &size) != 0 && static_cast<std::size_t>(size.QuadPart) <= kMaxSettingsBytes &&
           readUpTo(file, static_cast<std::size_t>(size.QuadPart), bytes);
}

/// Empty if the file cannot be read: all its keys are then missing.
std::string bytesOf(const std::string &file)
{
    if (isBareProfileName(file)) return {};
    const Win32FileHandle handle =
        opened(widePath(file), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, OPEN_EXISTING);
    std::string bytes;
    return handle.isOpen() && readWhole(handle, bytes) ? bytes : std::string();
}

bool goTo(const Win32FileHandle &file, std::size_t place)
{
    LARGE_INTEGER at{};
    at.QuadPart = static_cast<LONGLONG>(place);
    return SetFilePointerEx(file.get(), at, nullptr, FILE_BEGIN) != 0;
}

/// Disk space is reserved before a byte changes, so that a full disk leaves the file intact.
bool isOverwritten(Win32FileHandle &file, std::size_t sizeBefore, std::string_view bytes)
{
    if (bytes.size() > sizeBefore && !(goTo(file, bytes.size()) && SetEndOfFile(file.get()) != 0)) return false;
    return goTo(file, 0) && writeAll(file, bytes) && SetEndOfFile(file.get()) != 0 && file.close();
}

/// Removes a new file that could not be filled.
bool isCreated(const std::wstring &path, std::string_view bytes)
{
    Win32FileHandle file = opened(path, GENERIC_WRITE, 0, CREATE_NEW);
    if (!file.isOpen()) return false;
    if (isOverwritten(file, 0, bytes)) return true;
    if (file.isOpen()) (void)file.close(); // the earlier failure is the one that is reported
    DeleteFileW(path.c_str());
    return false;
}

class ProfileByBytes : public Profile {
public:
    std::int32_t GetPrivateProfileInt(const Text &section, const Text &key, std::int32_t defaultValue,
                                      const std::string &file) override
    {
        return profileInt(bytesOf(file), ansiArgument(section), ansiArgument(key), defaultValue);
    }

    std::string GetPrivateProfileString(const Text &section, const Text &key, const std::string &defaultValue,
                                        std::size_t size, const std::string &file) override
    {
        return utf8FromAnsi(
            profileString(bytesOf(file), ansiArgument(section), ansiArgument(key), ansiFromUtf8(defaultValue), size));
    }

    std::int32_t WritePrivateProfileString(const Text &section, const Text &key, const Text &value,
                                           const std::string &file) override
    {
        if (isBareProfileName(file)) return 0;
        const std::wstring path = widePath(file);
        // As with the platform's call, others may read meanwhile but not write.
        Win32FileHandle old = opened(path, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ, OPEN_EXISTING);
        if (!old.isOpen() && GetLastError() != ERROR_FILE_NOT_FOUND) return 0;
        std::string before;
        if (old.isOpen() && !readWhole(old, before)) return 0;
        const auto after = profileWrite(before, ansiArgument(section), ansiArgument(key), ansiArgument(value));
        if (!after) return 0;
        if (*after == before) return 1;
        return (old.isOpen() ? isOverwritten(old, before.size(), *after) : isCreated(path, *after)) ? 1 : 0;
    }
};

} // namespace

std::unique_ptr<Profile> makeProfileByBytes()
{
    return std::make_unique<ProfileByBytes>();
}

} // namespace inin::win32
