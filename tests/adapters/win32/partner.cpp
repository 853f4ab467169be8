// Started by the tests: writes how its window was asked for and the words it was given into the file that its first word
// names, under another name until it is whole.

#include <cstdio>
#include <filesystem>
#include <fstream>

#include <windows.h>

int main(int argc, char **argv)
{
    if (argc < 2) return 1;
    STARTUPINFOW startup{};
    GetStartupInfoW(&startup);
    const std::string told = argv[1];
    {
        std::ofstream file(told + ".new", std::ios::binary);
        file << ((startup.dwFlags & STARTF_USESHOWWINDOW) != 0 ? startup.wShowWindow : 99) << '\n';
        for (int at = 2; at < argc; ++at) file << argv[at] << '\n';
    }
    std::rename((told + ".new").c_str(), told.c_str());
    return 0;
}
