#include "adapters/win32/win32_path.h"
#include "adapters/win32/win32_platform.h"
#include "adapters/win32/windows_names.h"

#include "support/temp_folder.h"

#include <vector>

#include <doctest/doctest.h>

using namespace inin;

namespace {

/// A folder whose path has far more than 300 characters, half of them Japanese.
class DeepFolder {
public:
    DeepFolder()
    {
        for (int level = 0; level < 10; ++level) {
            std::string name = "\\";
            for (int sign = 0; sign < 16; ++sign) name += "委a";
            m_levels.push_back((m_levels.empty() ? m_folder.path() : m_levels.back()) + name);
            REQUIRE(CreateDirectoryW(widePath(m_levels.back()).c_str(), nullptr) != 0);
        }
    }
    DeepFolder(const DeepFolder &) = delete;
    DeepFolder &operator=(const DeepFolder &) = delete;
    ~DeepFolder()
    {
        for (; !m_levels.empty(); m_levels.pop_back()) RemoveDirectoryW(widePath(m_levels.back()).c_str());
    }
    [[nodiscard]] std::string operator/(const std::string &name) const { return m_levels.back() + "\\" + name; }

private:
    TempFolder m_folder;
    std::vector<std::string> m_levels;
};

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
    const DeepFolder folder;
    const std::string file = folder / "委任状.csv";
    const auto files = makeWin32Files("C:\\");

    files->openForOutput(file)->write("abc");

    CHECK(files->directorySearch(file) == "委任状.csv");
    CHECK(files->openForInput(file)->read(9) == "abc");
    files->remove(file);
    CHECK(files->directorySearch(file) == "");
}

TEST_CASE("a profile file is written and read at a path of more than 300 characters")
{
    const DeepFolder folder;
    const std::string file = folder / "印刷設定.ini";
    const auto profile = makeWin32Profile();
    CHECK(profile->WritePrivateProfileString("委任状", "印刷種別", "2", file) == 1);
    CHECK(profile->GetPrivateProfileInt("委任状", "印刷種別", 0, file) == 2);
    makeWin32Files("C:\\")->remove(file);
}
