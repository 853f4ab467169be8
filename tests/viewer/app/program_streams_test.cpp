// The viewer where its standard streams are closed, or lead to a full disk.
#include "suite_text/code_page_932.h"
#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>

#include <cstdlib>

#include <sys/wait.h>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

/// The exit code of the viewer in `folder`, -1 when it aborted; the arguments hold the redirections.
int codeOf(const TempFolder &folder, const std::string &arguments)
{
    const std::string command = "cd '" + folder.path() + "' && exec '" ININ_FORMVIEWER "' " + arguments;
    const int status = std::system(command.c_str());
    // A shell gives 128 and the signal.
    return WIFEXITED(status) && WEXITSTATUS(status) < 128 ? WEXITSTATUS(status) : -1;
}

/// Two letters with a notice about each of their scripts' unknown lines.
struct Letters {
    TempFolder folder;
    std::string script = writePrintJob(folder, kForm, {ordinaryRow(), ordinaryRow()});
    Letters() { writeBytes(script, "Hello,\"x\"\r\n" + bytesOf(script)); }
};

} // namespace

TEST_CASE("notices that cannot be printed cost no letter")
{
    const Letters letters;
    REQUIRE(codeOf(letters.folder, "--pdf with.pdf WfdCom.dat 2>err.txt") == 0);
    REQUIRE_FALSE(letters.folder.bytes("err.txt").empty());
    for (const char *errors : {"2>/dev/full", "2>&-", ">&- 2>&-", "<&- >&- 2>&-"}) {
        CAPTURE(std::string(errors));
        CHECK(codeOf(letters.folder, "--pdf without.pdf WfdCom.dat " + std::string(errors)) == 0);
        CHECK(letters.folder.bytes("without.pdf") == letters.folder.bytes("with.pdf"));
    }
}

TEST_CASE("a failure that cannot be printed is a failure, and no abort")
{
    const TempFolder folder;
    for (const char *errors : {"2>/dev/full", "2>&-"})
        CHECK(codeOf(folder, std::string("missing.dat --check ") + errors) == 1);
    for (const char *errors : {"2>/dev/full", "2>&-"}) CHECK(codeOf(folder, std::string("--no-such ") + errors) == 2);
}

TEST_CASE("output that cannot be written is a failure with a message")
{
    const Letters letters;
    for (const char *arguments : {"--check WfdCom.dat", "--check --json WfdCom.dat", "--help"})
        for (const char *output : {">/dev/full", ">&-"}) {
            CAPTURE(std::string(arguments) + output);
            CHECK(codeOf(letters.folder, std::string(arguments) + " " + output + " 2>err.txt") == 1);
            CHECK(letters.folder.bytes("err.txt") == "formviewer: 標準出力に書き込めません。\n");
        }
    CHECK(codeOf(letters.folder, "--check WfdCom.dat >out.txt 2>err.txt") == 0);
    CHECK_FALSE(letters.folder.bytes("out.txt").empty());
}
