#include "viewer/io/system_edges.h"

#include "system/program_edges.h"

#include <algorithm>
#include <cstdio>

#include <signal.h>

namespace inin::viewer {

void prepareStreams()
{
    prepareStandardStreams();
    // Without the signal, a write beyond the file size limit fails and is handled like any other failed write.
    signal(SIGXFSZ, SIG_IGN);
}

void showFailure(const std::string &sentence)
{
    printLine(stderr, sentence);
}

bool hasScreen()
{
    constexpr const char *kNames[] = {"QT_QPA_PLATFORM", "WAYLAND_DISPLAY", "DISPLAY"};
    return std::ranges::any_of(kNames, [](const char *name) { return !environmentText(name).empty(); });
}

bool startsMaximised()
{
    return false;
}

} // namespace inin::viewer
