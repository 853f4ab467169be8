#include "adapters/win32/win32_path.h"
#include "adapters/win32/win32_platform.h"
#include "adapters/win32/win32_text.h"
#include "runtime/runtime_error.h"
#include "support/temp_folder.h"

#include <filesystem>
#include <fstream>
#include <iterator>

#include <doctest/doctest.h>
#include <windows.h>

using namespace inin;

namespace {

/// The partner program, which tells what it was given, at a path of more than 300 characters with blanks.
class DeepPartner {
public:
    DeepPartner()
    {
        std::string path = m_folder.path();
        for (int level = 0; level < 8; ++level) {
            path += "\\委任 状の とても長い名前のフォルダーとても長い名前のフォルダー";
            REQUIRE(CreateDirectoryW(widePath(path).c_str(), nullptr) != 0);
            m_levels.push_back(path);
        }
        m_program = path + "\\tool.exe";
        REQUIRE(CopyFileW(wideFromUtf8(ININ_PARTNER).c_str(), widePath(m_program).c_str(), TRUE) != 0);
    }
    DeepPartner(const DeepPartner &) = delete;
    DeepPartner &operator=(const DeepPartner &) = delete;
    ~DeepPartner()
    {
        for (int wait = 0; wait < 500 && DeleteFileW(widePath(m_program).c_str()) == 0; ++wait)
            Sleep(10); // it runs yet
        for (; !m_levels.empty(); m_levels.pop_back()) RemoveDirectoryW(widePath(m_levels.back()).c_str());
    }
    [[nodiscard]] const std::string &folder() const { return m_levels.back(); }
    [[nodiscard]] const std::string &program() const { return m_program; }
    [[nodiscard]] std::string told() const
    {
        std::string told;
        for (int wait = 0; wait < 1000 && (told = m_folder.bytes("told")).empty(); ++wait) Sleep(10);
        return told;
    }
    /// What it told in the deep folder itself.
    [[nodiscard]] std::string toldInFolder() const
    {
        const std::filesystem::path file(widePath(folder() + "\\told"));
        std::string told;
        for (int wait = 0; wait < 1000 && told.empty(); ++wait) {
            Sleep(10);
            std::ifstream stream(file, std::ios::binary);
            told.assign(std::istreambuf_iterator<char>(stream), {});
        }
        DeleteFileW(file.c_str());
        return told;
    }
    [[nodiscard]] std::string toldPlace() const { return win32Path(m_folder / "told"); }

private:
    TempFolder m_folder;
    std::vector<std::string> m_levels;
    std::string m_program;
};

} // namespace

TEST_CASE("a program at a path of more than 300 characters with blanks is started")
{
    const DeepPartner partner;
    REQUIRE(partner.program().size() > 300);

    makeWin32Processes([] {})->start(partner.program() + " " + partner.toldPlace() + " 2", WindowStyle::normalFocus);

    CHECK(partner.told() == "1\n2\n");
}

TEST_CASE("a program that is started in such a folder finds files from it")
{
    const DeepPartner partner;
    {
        const CurrentFolder keep;
        REQUIRE(SetCurrentDirectoryW(wideFromUtf8(partner.folder()).c_str()) != 0);
        makeWin32Processes([] {})->start("tool.exe ./told 2", WindowStyle::normalFocus);
    }
    CHECK(partner.toldInFolder() == "1\n2\n");
}

TEST_CASE("a program that is not there at such a path is error 53")
{
    const DeepPartner partner;
    try {
        makeWin32Processes([] {})->start(partner.program() + "x 2", WindowStyle::normalFocus);
        FAIL("it was started");
    } catch (const RuntimeError &error) {
        CHECK(error.number() == 53);
    }
}
