#include "suite_text/code_page_table.h"

#include <windows.h>

namespace inin {

std::vector<char16_t> systemUnits(const std::string &bytes, std::size_t width)
{
    constexpr UINT kJapanese = 932;
    std::vector<char16_t> found;
    for (std::size_t at = 0; at < bytes.size(); at += width) {
        wchar_t out[2] = {};
        const int count =
            MultiByteToWideChar(kJapanese, MB_ERR_INVALID_CHARS, bytes.data() + at, static_cast<int>(width), out, 2);
        found.push_back(count == 1 ? static_cast<char16_t>(out[0]) : u'\0');
    }
    return found;
}

} // namespace inin
