#include "viewer/io/system_edges.h"

#include "system/program_edges.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include <signal.h>

namespace inin::viewer {

std::vector<std::string> commandWords(int argc, char **argv)
{
    return {argv, argv + argc};
}

void prepareStreams()
{
    prepareStandardStreams();
    // A file that reaches the user's limit is a write that fails, reported and cleaned up after like any other.
    signal(SIGXFSZ, SIG_IGN);
}

void tellFailure(const std::string &sentence)
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

std::string environmentText(const std::string &name)
{
    const char *const value = std::getenv(name.c_str());
    return value == nullptr ? std::string() : value;
}

} // namespace inin::viewer
