#include "viewer/support/viewer_world.h"

#include <cstdlib>

#include <sys/wait.h>

namespace inin::viewer::test {

namespace fs = std::filesystem;

namespace {

/// The viewers that tests start record nothing in the ledger of the developer.
const int kNoLedger = ::setenv("ININ_LEDGER", "off", 0);

} // namespace

Outcome runViewer(const TempFolder &folder, const std::string &arguments, const std::string &name)
{
    const TempFolder outside;
    const std::string program = outside / name;
    fs::create_symlink(ININ_FORMVIEWER, program);
    // Without a display, because a test must not open windows, and without the language of the developer.
    const std::string command = "cd '" + folder.path() +
                                "' && env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM -u LANG LC_ALL=C.UTF-8 '" +
                                program + "' " + arguments + " >'" + outside / "out" + "' 2>'" + outside / "err" + "'";
    const int status = std::system(command.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, outside.bytes("out"), outside.bytes("err")};
}

} // namespace inin::viewer::test
