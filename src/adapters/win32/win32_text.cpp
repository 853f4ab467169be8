#include "adapters/win32/win32_text.h"

#include "adapters/suite_text/code_page_932.h"

#include <windows.h>

namespace inin {

namespace {

constexpr UINT kJapanese = 932;

std::wstring wideFrom(UINT codePage, std::string_view bytes)
{
    const int size = static_cast<int>(bytes.size());
    std::wstring wide(static_cast<std::size_t>(MultiByteToWideChar(codePage, 0, bytes.data(), size, nullptr, 0)),
                      L'\0');
    MultiByteToWideChar(codePage, 0, bytes.data(), size, wide.data(), static_cast<int>(wide.size()));
    return wide;
}

std::string bytesFrom(UINT codePage, DWORD flags, std::wstring_view wide)
{
    const int size = static_cast<int>(wide.size());
    const int needed = WideCharToMultiByte(codePage, flags, wide.data(), size, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(needed), '\0');
    WideCharToMultiByte(codePage, flags, wide.data(), size, bytes.data(), needed, nullptr, nullptr);
    return bytes;
}

/// The call would write a "?" for each half of a surrogate pair that the code page lacks.
std::wstring withoutPairs(const std::wstring &wide)
{
    std::wstring out;
    for (const wchar_t unit : wide) {
        if (unit >= 0xDC00 && unit < 0xE000) continue;
        out += unit >= 0xD800 && unit < 0xDC00 ? L'?' : unit;
    }
    return out;
}

} // namespace

std::wstring wideFromUtf8(std::string_view text)
{
    return wideFrom(CP_UTF8, text);
}

std::string utf8FromWide(std::wstring_view text)
{
    return bytesFrom(CP_UTF8, 0, text);
}

// Use tables for code page 932, filled by the same call: they give the same bytes on every system, and never replace a
// character by one that is merely similar.
std::string ansiFromUtf8(std::string_view text)
{
    const UINT codePage = GetACP();
    if (codePage == kJapanese) return encodeCp932(text);
    const std::wstring wide = wideFromUtf8(text);
    if (codePage == CP_UTF8) return bytesFrom(CP_UTF8, 0, wide);
    return bytesFrom(codePage, WC_NO_BEST_FIT_CHARS, withoutPairs(wide));
}

std::string utf8FromAnsi(std::string_view bytes)
{
    const UINT codePage = GetACP();
    return codePage == kJapanese ? decodeCp932(bytes) : utf8FromWide(wideFrom(codePage, bytes));
}

} // namespace inin
