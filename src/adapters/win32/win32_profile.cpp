#include "adapters/win32/win32_platform.h"
#include "adapters/win32/win32_text.h"

#include <algorithm>
#include <limits>
#include <vector>

#include <windows.h>

// The port's operations bear the names of the calls, which the header turns into their A or W forms.
#undef GetPrivateProfileInt
#undef GetPrivateProfileString
#undef WritePrivateProfileString

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

/// A name without a folder stays one: it means the folder of Windows itself.
std::string profilePath(const std::string &file)
{
    return ansiFromUtf8(win32Path(file));
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
        return utf8FromAnsi(std::string_view(buffer.data(), filled));
    }

    std::int32_t WritePrivateProfileString(const Text &section, const Text &key, const Text &value,
                                           const std::string &file) override
    {
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
