#include "adapters/win32/win32_platform.h"
#include "deep_folder.h"

#include <doctest/doctest.h>

using namespace inin;

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
    const DeepFolder folder;
    const std::string file = folder / "委任状.csv";
    const auto files = makeWin32Files("C:\\");

    files->openForOutput(file)->write("abc");

    CHECK(files->directorySearch(file) == "委任状.csv");
    CHECK(files->openForInput(file)->read(9) == "abc");
    files->remove(file);
    CHECK(files->directorySearch(file) == "");
}
