#include "suite_text/win32_ansi_text.h"

#include "runtime/utf8.h"
#include "suite_text/code_page_932.h"
#include "system/win32_text.h"

#include <windows.h>

namespace inin {

namespace {

constexpr UINT kJapanese = 932;

/// The call would write a "?" for each half of a surrogate pair that the code page lacks.
std::wstring withoutPairs(const std::wstring &wide)
{
    std::wstring out;
    for (const wchar_t unit : wide) {
        if (isLowSurrogate(unit)) continue;
        out += isHighSurrogate(unit) ? L'?' : unit;
    }
    return out;
}

} // namespace

// Code page 932 uses tables that are filled by the same call: they give the same bytes on every system, and never replace a
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
