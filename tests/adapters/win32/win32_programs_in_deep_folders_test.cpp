#include "adapters/native/native_platform.h"
#include "deep_folder.h"
#include "ended_program.h"
#include "runtime/runtime_error.h"
#include "system/file_path.h"
#include "system/win32_text.h"

#include <filesystem>
#include <fstream>
#include <iterator>

#include <doctest/doctest.h>

using namespace inin;

// The tests run in the order of the file names. These are after win32_processes_test.cpp, because Wine forgets the
// program's own folder when the current folder is a deep one.

namespace {

/// The partner program, which records its start, in a deep folder.
class DeepPartner {
public:
    DeepPartner() { REQUIRE(CopyFileW(wideFromUtf8(ININ_PARTNER).c_str(), widePath(m_program).c_str(), TRUE) != 0); }
    DeepPartner(const DeepPartner &) = delete;
    DeepPartner &operator=(const DeepPartner &) = delete;
    ~DeepPartner() { removeOnceEnded(m_program); }
    [[nodiscard]] const std::string &folder() const { return m_folder.path(); }
    [[nodiscard]] const std::string &program() const { return m_program; }
    [[nodiscard]] std::string result() const
    {
        std::string result;
        for (int wait = 0; wait < 1000 && (result = m_folder.top().bytes("result")).empty(); ++wait) Sleep(10);
        return result;
    }
    /// What it recorded in the deep folder itself.
    [[nodiscard]] std::string reportInFolder() const
    {
        const std::filesystem::path file(widePath(m_folder / "result"));
        std::string result;
        for (int wait = 0; wait < 1000 && result.empty(); ++wait) {
            Sleep(10);
            std::ifstream stream(file, std::ios::binary);
            result.assign(std::istreambuf_iterator<char>(stream), {});
        }
        DeleteFileW(file.c_str());
        return result;
    }
    [[nodiscard]] std::string reportPlace() const { return systemPath(m_folder.top() / "result"); }

private:
    DeepFolder m_folder;
    std::string m_program = m_folder / "tool.exe";
};

} // namespace

TEST_CASE("a program at a path of more than 300 characters with blanks is started")
{
    const DeepPartner partner;
    REQUIRE(partner.program().size() > 300);

    makeSystemProcesses([] {})->start(partner.program() + " " + partner.reportPlace() + " 2", WindowStyle::normalFocus);

    CHECK(partner.result() == "1\n2\n");
}

TEST_CASE("a program that is started in such a folder finds files relative to it")
{
    const DeepPartner partner;
    {
        const CurrentFolder keep;
        REQUIRE(SetCurrentDirectoryW(wideFromUtf8(partner.folder()).c_str()) != 0);
        makeSystemProcesses([] {})->start("tool.exe ./result 2", WindowStyle::normalFocus);
    }
    CHECK(partner.reportInFolder() == "1\n2\n");
}

TEST_CASE("a missing program at such a path is error 53")
{
    const DeepPartner partner;
    try {
        makeSystemProcesses([] {})->start(partner.program() + "x 2", WindowStyle::normalFocus);
        FAIL("it was started");
    } catch (const RuntimeError &error) {
        CHECK(error.number() == 53);
    }
}
