// The viewer with standard streams that are closed or connected to a full disk.
#include "suite_text/code_page_932.h"
#include "viewer/support/viewer_world.h"

#include <doctest/doctest.h>

#include <cstdlib>

#include <sys/wait.h>

using namespace inin;
using namespace inin::viewer;
using namespace inin::viewer::test;

namespace {

/// The exit code of the viewer in `folder`, or -1 if it aborted. The arguments include the redirections.
int codeOf(const TempFolder &folder, const std::string &arguments)
{
    const std::string command = "cd '" + folder.path() + "' && exec '" ININ_FORMVIEWER "' " + arguments;
    const int status = std::system(command.c_str());
    // A shell returns 128 plus the signal number.
    return WIFEXITED(status) && WEXITSTATUS(status) < 128 ? WEXITSTATUS(status) : -1;
}

/// A print job of two letters whose script has unknown lines, which give notices.
struct Letters {
    TempFolder folder;
    std::string script = writePrintJob(folder, kForm, {ordinaryRow(), ordinaryRow()});
    Letters() { writeBytes(script, "Hello,\"x\"\r\n" + bytesOf(script)); }
};

} // namespace

TEST_CASE("all letters are written even if notices cannot be printed")
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

TEST_CASE("an error that cannot be printed gives the exit code of a failure, not an abort")
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
    // The letters have findings.
    CHECK(codeOf(letters.folder, "--check --today 2024-05-20 WfdCom.dat >out.txt 2>err.txt") == 1);
    CHECK(letters.folder.bytes("err.txt").empty());
    CHECK_FALSE(letters.folder.bytes("out.txt").empty());
}
