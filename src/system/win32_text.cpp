#include "system/win32_text.h"

#include <windows.h>

namespace inin {

std::wstring wideFrom(unsigned codePage, std::string_view bytes)
{
    const int size = static_cast<int>(bytes.size());
    std::wstring wide(static_cast<std::size_t>(MultiByteToWideChar(codePage, 0, bytes.data(), size, nullptr, 0)),
                      L'\0');
    MultiByteToWideChar(codePage, 0, bytes.data(), size, wide.data(), static_cast<int>(wide.size()));
    return wide;
}

std::string bytesFrom(unsigned codePage, unsigned long flags, std::wstring_view wide)
{
    const int size = static_cast<int>(wide.size());
    const int needed = WideCharToMultiByte(codePage, flags, wide.data(), size, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(needed), '\0');
    WideCharToMultiByte(codePage, flags, wide.data(), size, bytes.data(), needed, nullptr, nullptr);
    return bytes;
}

std::wstring wideFromUtf8(std::string_view text)
{
    return wideFrom(CP_UTF8, text);
}

std::string utf8FromWide(std::wstring_view text)
{
    return bytesFrom(CP_UTF8, 0, text);
}

} // namespace inin
