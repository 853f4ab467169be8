#include "adapters/native/native_platform.h"
#include "adapters/win32/deep_folder.h"
#include "support/temp_folder.h"
#include "system/file_path.h"

#include <doctest/doctest.h>

using namespace inin;

TEST_CASE("a short path is unchanged except for backslashes")
{
    CHECK(systemPath("C:/SUITE\\TMP/委任状.csv") == "C:\\SUITE\\TMP\\委任状.csv");
    CHECK(systemPath("Massage.ini") == "Massage.ini");
    CHECK(systemPath("") == "");
}

TEST_CASE("a path beyond the classic limit gets the prefix that lifts it, a share its own prefix")
{
    const std::string tail(300, 'x');
    CHECK(systemPath("C:\\SUITE/" + tail) == "\\\\?\\C:\\SUITE\\" + tail);
    CHECK(systemPath("C:\\SUITE\\..\\" + tail) == "\\\\?\\C:\\" + tail);
    CHECK(systemPath("\\\\server\\share\\" + tail) == "\\\\?\\UNC\\server\\share\\" + tail);
    CHECK(systemPath("\\\\?\\C:\\" + tail) == "\\\\?\\C:\\" + tail);
}

TEST_CASE("a full path begins with the drive or the share")
{
    const CurrentFolder current("C:\\windows");
    CHECK(fullPath("\\\\server\\share\\suite") == "\\\\server\\share\\suite");
    CHECK(fullPath("//server/share/委任 状/../suite") == "\\\\server\\share\\suite");
    CHECK(fullPath("C:/SUITE/./TMP") == "C:\\SUITE\\TMP");
    CHECK(fullPath("suite") == "C:\\windows\\suite");
    CHECK(fullPath(".") == "C:\\windows");
    CHECK(fullPath("\\suite") == "C:\\suite");
}

TEST_CASE("files are written, found, read and deleted at a path of more than 300 characters")
{
    const DeepFolder folder;
    const std::string file = folder / "委任状.csv";
    const auto files = makeSystemFiles("C:\\");

    files->openForOutput(file)->write("abc");

    CHECK(files->directorySearch(file) == "委任状.csv");
    CHECK(files->openForInput(file)->read(9) == "abc");
    files->remove(file);
    CHECK(files->directorySearch(file) == "");
}
