#include "support/temp_folder.h"

#include <doctest/doctest.h>

#include <cstdlib>
#include <string>

#include <sys/wait.h>

using namespace inin;

namespace {

// The build folder may have a blank in its name.
constexpr const char *kScript = "'" ININ_SCRIPT_PROGRAM "'";
constexpr const char *kSite = "'" ININ_SITE_PROGRAM "'";

/// The exit code of a shell command, -1 if a signal ended it.
int exitCode(const std::string &command)
{
    const int status = std::system(command.c_str()); // NOLINT: the command is composed here
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

} // namespace

TEST_CASE("lost output makes a program fail")
{
    for (const std::string program : {kScript, kSite})
        for (const char *lost : {" --help >/dev/full 2>/dev/null", " --help >&- 2>/dev/null", " --help >&- 2>&- <&-"}) {
            CAPTURE(program + lost);
            CHECK(exitCode(program + lost) == 1);
        }
    const TempFolder folder;
    CHECK(exitCode(kSite + (" make " + folder / "site") + " --patients 20 >/dev/full 2>/dev/null") == 1);
    CHECK(folder.has("site/demo.db"));
    CHECK(exitCode(kSite + (" check " + folder / "site") + " >/dev/full 2>/dev/null") == 1);
}

TEST_CASE("an error message that cannot be printed does not change the exit code")
{
    for (const std::string program : {kScript, kSite})
        for (const char *lost : {" --unknown >/dev/null 2>/dev/full", " --unknown >/dev/null 2>&-"}) {
            CAPTURE(program + lost);
            CHECK(exitCode(program + lost) == 2);
        }
    CHECK(exitCode(kSite + std::string(" make /dev/null/x 2>/dev/full")) == 1);
}
