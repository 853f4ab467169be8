#include "adapters/win32/win32_platform.h"

#include "temp_folder.h"

#include <doctest/doctest.h>

using namespace inin;

namespace {

/// A folder whose path has far more than 300 characters, half of them Japanese.
std::string deepFolder(const TempFolder &folder)
{
    std::string path = folder.path();
    for (int level = 0; level < 10; ++level) {
        path += "\\";
        for (int sign = 0; sign < 16; ++sign) path += "委a";
        std::filesystem::create_directory(std::filesystem::path(win32Path(path)));
    }
    return path;
}

} // namespace

TEST_CASE("a short path is as it was given, with backslashes")
{
    CHECK(win32Path("C:/SUITE\\TMP/委任状.csv") == "C:\\SUITE\\TMP\\委任状.csv");
    CHECK(win32Path("Massage.ini") == "Massage.ini");
    CHECK(win32Path("") == "");
}

TEST_CASE("a path beyond the classic limit gets the prefix that lifts it, a share its own")
{
    const std::string tail(300, 'x');
    CHECK(win32Path("C:\\SUITE/" + tail) == "\\\\?\\C:\\SUITE\\" + tail);
    CHECK(win32Path("C:\\SUITE\\..\\" + tail) == "\\\\?\\C:\\" + tail);
    CHECK(win32Path("\\\\server\\share\\" + tail) == "\\\\?\\UNC\\server\\share\\" + tail);
    CHECK(win32Path("\\\\?\\C:\\" + tail) == "\\\\?\\C:\\" + tail);
}

TEST_CASE("files are written, found, read and removed at a path of more than 300 characters")
{
    const TempFolder folder;
    const std::string file = deepFolder(folder) + "\\委任状.csv";
    const auto files = makeWin32Files("C:\\");

    files->openForOutput(file)->write("abc");

    CHECK(files->directorySearch(file) == "委任状.csv");
    CHECK(files->openForInput(file)->read(9) == "abc");
    files->remove(file);
    CHECK(files->directorySearch(file) == "");
    std::filesystem::remove_all(std::filesystem::path(win32Path(folder.path())));
}

TEST_CASE("a profile file is written and read at a path of more than 300 characters")
{
    const TempFolder folder;
    const std::string file = deepFolder(folder) + "\\印刷設定.ini";
    const auto profile = makeWin32Profile();
    CHECK(profile->WritePrivateProfileString("委任状", "印刷種別", "2", file) == 1);
    CHECK(profile->GetPrivateProfileInt("委任状", "印刷種別", 0, file) == 2);
}
