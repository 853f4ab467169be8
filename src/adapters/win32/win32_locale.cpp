#include "adapters/native/native_platform.h"
#include "suite_text/win32_ansi_text.h"
#include "system/win32_text.h"

#include <windows.h>

namespace inin::win32 {

namespace {

class Win32Locale : public Locale {
public:
    Regional regional() override
    {
        const int size = GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, LOCALE_SSHORTDATE, nullptr, 0);
        if (size <= 1) return Regional{};
        std::wstring picture(static_cast<std::size_t>(size), L'\0');
        GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, LOCALE_SSHORTDATE, picture.data(), size);
        picture.pop_back(); // the length includes the final NUL
        return Regional{utf8FromWide(picture)};
    }
    std::string toCodePage(std::string_view utf8) override { return ansiFromUtf8(utf8); }
    std::string fromCodePage(std::string_view bytes) override { return utf8FromAnsi(bytes); }
};

} // namespace

} // namespace inin::win32

std::unique_ptr<inin::Locale> inin::makeSystemLocale()
{
    return std::make_unique<win32::Win32Locale>();
}
