#include "adapters/win32/win32_error.h"
#include "adapters/win32/win32_path.h"
#include "adapters/win32/win32_platform.h"
#include "adapters/win32/win32_text.h"
#include "adapters/win32/windows_names.h"

#include <algorithm>
#include <limits>
#include <vector>

namespace inin {

namespace {

/// An argument in the ANSI code page; one that is not given is a null pointer.
class AnsiArgument {
public:
    explicit AnsiArgument(const Profile::Text &text)
        : m_given(text.has_value()), m_bytes(text ? ansiFromUtf8(*text) : "")
    {
    }
    [[nodiscard]] const char *get() const { return m_given ? m_bytes.c_str() : nullptr; }

private:
    bool m_given;
    std::string m_bytes;
};


/// The folder by its short names, without the prefix of a long path; as it is where the disk keeps no short names.
std::wstring shortFolder(const std::wstring &folder)
{
    std::wstring found(GetShortPathNameW(folder.c_str(), nullptr, 0), L'\0');
    found.resize(GetShortPathNameW(folder.c_str(), found.data(), static_cast<DWORD>(found.size())));
    if (found.empty()) return folder;
    return found.starts_with(kUnlimited) && found[5] == L':' ? found.substr(kUnlimited.size()) : found;
}

/// The calls know neither a path beyond the classic limit nor a character that the ANSI code page lacks: there the short
/// names of the folder help. A name without a folder stays one: it means the folder of Windows itself.
std::string profilePath(const std::string &file)
{
    const std::wstring path = widePath(file);
    const std::string ansi = ansiFromUtf8(utf8FromWide(path));
    const std::size_t name = path.find_last_of(L'\\') + 1;
    if (name == 0 || (!path.starts_with(kUnlimited) && utf8FromAnsi(ansi) == utf8FromWide(path))) return ansi;
    return ansiFromUtf8(utf8FromWide(shortFolder(path.substr(0, name)) + path.substr(name)));
}

/// The calls as the suite's other programs make them: the ANSI ones.
class Win32Profile : public Profile {
public:
    std::int32_t GetPrivateProfileInt(const Text &section, const Text &key, std::int32_t defaultValue,
                                      const std::string &file) override
    {
        if (!section || !key) return defaultValue;
        return static_cast<std::int32_t>(GetPrivateProfileIntA(AnsiArgument(section).get(), AnsiArgument(key).get(),
                                                               defaultValue, profilePath(file).c_str()));
    }

    std::string GetPrivateProfileString(const Text &section, const Text &key, const std::string &defaultValue,
                                        std::size_t size, const std::string &file) override
    {
        if (size == 0) return {};
        std::vector<char> buffer(std::min<std::size_t>(size, std::numeric_limits<DWORD>::max()), '\0');
        const DWORD filled = GetPrivateProfileStringA(AnsiArgument(section).get(), AnsiArgument(key).get(),
                                                      ansiFromUtf8(defaultValue).c_str(), buffer.data(),
                                                      static_cast<DWORD>(buffer.size()), profilePath(file).c_str());
        const std::string_view bytes(buffer.data(), filled);
        // A double byte that did not fit whole is counted, but stands as a NUL; only in a list a NUL ends a name.
        return utf8FromAnsi(section && key ? bytes.substr(0, bytes.find('\0')) : bytes);
    }

    std::int32_t WritePrivateProfileString(const Text &section, const Text &key, const Text &value,
                                           const std::string &file) override
    {
        // To an administrator too, wherever the system would let him.
        if (isReadOnlyWin32File(widePath(file))) return 0;
        return WritePrivateProfileStringA(AnsiArgument(section).get(), AnsiArgument(key).get(),
                                          AnsiArgument(value).get(), profilePath(file).c_str());
    }
};

} // namespace

std::unique_ptr<Profile> makeWin32Profile()
{
    return std::make_unique<Win32Profile>();
}

} // namespace inin
