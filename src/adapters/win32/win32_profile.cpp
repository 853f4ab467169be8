#include "adapters/win32/win32_profile.h"

#include "adapters/native/native_platform.h"
#include "adapters/win32/win32_error.h"
#include "platform/settings_limit.h"
#include "suite_text/profile_text.h"
#include "suite_text/win32_ansi_text.h"
#include "system/win32_path.h"
#include "system/win32_text.h"
#include "system/windows_names.h"

#include <algorithm>
#include <limits>
#include <vector>

namespace inin::win32 {

namespace {

/// A missing argument is a null pointer.
const char *pointerTo(const std::optional<std::string> &argument)
{
    return argument ? argument->c_str() : nullptr;
}

/// Replace only the separators: a name without a folder means the folder of Windows, so it stays bare.
std::string ansiPath(const std::string &file)
{
    std::string path = file;
    std::ranges::replace(path, '/', '\\');
    return ansiFromUtf8(path);
}

bool isTooLarge(const std::string &file)
{
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (isBareProfileName(file) || GetFileAttributesExW(widePath(file).c_str(), GetFileExInfoStandard, &data) == 0)
        return false;
    return data.nFileSizeHigh != 0 || data.nFileSizeLow > kMaxSettingsBytes;
}

class CalledProfile : public Profile {
public:
    std::int32_t GetPrivateProfileInt(const Text &section, const Text &key, std::int32_t defaultValue,
                                      const std::string &file) override
    {
        if (!section || !key) return defaultValue;
        return static_cast<std::int32_t>(GetPrivateProfileIntA(
            pointerTo(ansiArgument(section)), pointerTo(ansiArgument(key)), defaultValue, ansiPath(file).c_str()));
    }

    std::string GetPrivateProfileString(const Text &section, const Text &key, const std::string &defaultValue,
                                        std::size_t size, const std::string &file) override
    {
        if (size == 0) return {};
        std::vector<char> buffer(std::min<std::size_t>(size, std::numeric_limits<DWORD>::max()), '\0');
        const DWORD filled = GetPrivateProfileStringA(pointerTo(ansiArgument(section)), pointerTo(ansiArgument(key)),
                                                      ansiFromUtf8(defaultValue).c_str(), buffer.data(),
                                                      static_cast<DWORD>(buffer.size()), ansiPath(file).c_str());
        const std::string_view bytes(buffer.data(), filled);
        // The call counts a double byte that did not fit but stores a NUL for it. In a list, NULs separate the names.
        return utf8FromAnsi(section && key ? bytes.substr(0, bytes.find('\0')) : bytes);
    }

    std::int32_t WritePrivateProfileString(const Text &section, const Text &key, const Text &value,
                                           const std::string &file) override
    {
        return WritePrivateProfileStringA(pointerTo(ansiArgument(section)), pointerTo(ansiArgument(key)),
                                          pointerTo(ansiArgument(value)), ansiPath(file).c_str());
    }
};

class Win32Profile : public Profile {
public:
    std::int32_t GetPrivateProfileInt(const Text &section, const Text &key, std::int32_t defaultValue,
                                      const std::string &file) override
    {
        return implementationFor(file).GetPrivateProfileInt(section, key, defaultValue, file);
    }

    std::string GetPrivateProfileString(const Text &section, const Text &key, const std::string &defaultValue,
                                        std::size_t size, const std::string &file) override
    {
        return implementationFor(file).GetPrivateProfileString(section, key, defaultValue, size, file);
    }

    std::int32_t WritePrivateProfileString(const Text &section, const Text &key, const Text &value,
                                           const std::string &file) override
    {
        // Applies to administrators too, where the system would permit it.
        if (isReadOnlyWin32File(widePath(file))) return 0;
        return implementationFor(file).WritePrivateProfileString(section, key, value, file);
    }

private:
    /// The ANSI calls would read all of a file that is too large; the other implementation reports it as unreadable.
    [[nodiscard]] Profile &implementationFor(const std::string &file) const
    {
        return hasAnsiPath(file) && !isTooLarge(file) ? *m_calls : *m_bytes;
    }

    std::unique_ptr<Profile> m_calls = makeCalledProfile();
    std::unique_ptr<Profile> m_bytes = makeProfileByBytes();
};

} // namespace

bool hasAnsiPath(const std::string &file)
{
    if (utf8FromAnsi(ansiFromUtf8(file)) != file) return false;
    return isBareProfileName(file) || !widePath(file).starts_with(kUnlimited);
}

std::optional<std::string> ansiArgument(const Profile::Text &text)
{
    return text ? std::optional(ansiFromUtf8(*text)) : std::nullopt;
}

std::unique_ptr<Profile> makeCalledProfile()
{
    return std::make_unique<CalledProfile>();
}

} // namespace inin::win32

std::unique_ptr<inin::Profile> inin::makeSystemProfile()
{
    return std::make_unique<win32::Win32Profile>();
}
