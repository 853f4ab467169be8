#include "system/program_edges.h"
#include "system/win32_text.h"

#include <cstdio>
#include <functional>
#include <iostream>
#include <memory>
#include <string>

#include <doctest/doctest.h>
#include <windows.h>

using namespace inin;

namespace {

struct CloseFile {
    // NOLINTNEXTLINE(cppcoreguidelines-owning-memory): this is the owner
    void operator()(std::FILE *file) const { std::fclose(file); }
};

/// The characters that an action prints on this program's console, in one line.
std::string shownBy(const std::function<void()> &action)
{
    const HANDLE console = CreateFileW(L"CONOUT$", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                       nullptr, OPEN_EXISTING, 0, nullptr);
    REQUIRE(console != INVALID_HANDLE_VALUE);
    CONSOLE_SCREEN_BUFFER_INFO info{};
    REQUIRE(SetConsoleCursorPosition(console, {}) != 0);
    action();
    REQUIRE(GetConsoleScreenBufferInfo(console, &info) != 0);
    std::wstring cells(20, L'\0');
    DWORD count = 0;
    REQUIRE(ReadConsoleOutputCharacterW(console, cells.data(), static_cast<DWORD>(cells.size()), {}, &count) != 0);
    CloseHandle(console);
    cells.resize(count);
    // The last character of the test, so that the cells after it do not matter.
    return utf8FromWide(cells.substr(0, cells.find(L'.')));
}

} // namespace

// console_programs_test.py runs these on a console.
TEST_CASE("a console shows Japanese text under any code page and keeps its code page" *
          doctest::skip(GetConsoleOutputCP() == 0))
{
    constexpr UINT kWestern = 1252;
    REQUIRE(SetConsoleOutputCP(kWestern) != 0);
    prepareStandardStreams();
    CHECK(GetConsoleOutputCP() == kWestern);
    CHECK(shownBy([] { printLine(stdout, "委任状ア."); }) == "委任状ア");
    CHECK(shownBy([] { printLine(stderr, "療養費."); }) == "療養費");
    CHECK(shownBy([] {
              std::cout << "髙"
                        << "橋." << std::endl;
          }) == "髙橋");
    CHECK(shownBy([] { std::cerr << "印鑑.\n"; }) == "印鑑");
    const std::unique_ptr<std::FILE, CloseFile> opened(std::fopen("CONOUT$", "w+"));
    REQUIRE(opened);
    CHECK(shownBy([&] { printText(opened.get(), "利用者."); }) == "利用者");
    CHECK(GetConsoleOutputCP() == kWestern);
}
