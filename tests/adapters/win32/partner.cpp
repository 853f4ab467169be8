// Started by the tests. Writes its window style and its arguments to the file that the first argument names, under
// another name until it is complete. After the argument "/line" it writes the rest of the command line unchanged.

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include <windows.h>

#include <shellapi.h>

namespace {

std::string utf8(std::wstring_view text)
{
    const int size = static_cast<int>(text.size());
    std::string out(text.size() * 3, '\0');
    out.resize(static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, text.data(), size, out.data(),
                                                            static_cast<int>(out.size()), nullptr, nullptr)));
    return out;
}

void writeWords(std::ofstream &file, int count, wchar_t **words)
{
    STARTUPINFOW startup{};
    GetStartupInfoW(&startup);
    file << ((startup.dwFlags & STARTF_USESHOWWINDOW) != 0 ? startup.wShowWindow : 99) << '\n';
    for (int at = 2; at < count; ++at) file << utf8(words[at]) << '\n';
}

} // namespace

int main()
{
    int count = 0;
    wchar_t **const words = CommandLineToArgvW(GetCommandLineW(), &count);
    if (count < 2) return 1;
    const std::filesystem::path result = words[1];
    std::filesystem::path unfinished = result;
    unfinished += ".new";
    {
        constexpr std::wstring_view mark = L" /line ";
        const std::wstring_view line = GetCommandLineW();
        const std::size_t raw = line.find(mark);
        std::ofstream file(unfinished, std::ios::binary);
        if (raw == std::wstring_view::npos)
            writeWords(file, count, words);
        else
            file << utf8(line.substr(raw + mark.size())) << '\n';
    }
    std::filesystem::rename(unfinished, result);
    return 0;
}
