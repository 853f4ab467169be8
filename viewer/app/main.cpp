#include "runtime/runtime_error.h"
#include "viewer/app/check_letters.h"
#include "viewer/app/options.h"
#include "viewer/app/write_letters.h"
#ifdef ININ_VIEWER_WINDOW
#include "viewer/window/run_window.h"
#endif

#include <fmt/format.h>

#include <csignal>
#include <cstdio>

namespace inin::viewer {

namespace {

constexpr int kDone = 0;
constexpr int kBadCommand = 2;

struct Run {
    char *programName;

    [[nodiscard]] int showWindow([[maybe_unused]] const ViewCommand &command) const
    {
#ifdef ININ_VIEWER_WINDOW
        if (hasDisplay()) return runWindow(programName, command.script, command.letters);
#endif
        fmt::print(stderr, "formviewer: 画面がないので、--pdf、--png、--check のどれかを指定してください。\n");
        return kBadCommand;
    }
    int operator()(const ViewCommand &command) const
    {
        if (command.needsWindow()) return showWindow(command);
        if (command.check) tellCheck(command);
        if (!command.pdf.empty() || !command.pngFolder.empty()) writeLetters(command);
        return kDone;
    }
    int operator()(const MergeCommand &command) const
    {
        writeCombinedForm(command);
        return kDone;
    }
    int operator()(const ShowHelp &help) const
    {
        fmt::print("{}\n", help.text);
        return kDone;
    }
    int operator()(const BadCommandLine &bad) const
    {
        fmt::print(stderr, "{}\n", bad.sentence);
        return kBadCommand;
    }
};

} // namespace

} // namespace inin::viewer

int main(int argc, char **argv)
try {
    // A file that reaches the user's limit is a write that fails, told and cleaned up after like any other.
    std::signal(SIGXFSZ, SIG_IGN);
    return std::visit(inin::viewer::Run{argc > 0 ? argv[0] : nullptr}, inin::viewer::readViewerCommand(argc, argv));
} catch (const inin::RuntimeError &error) {
    fmt::print(stderr, "formviewer: {}\n", error.description());
    return 1;
}
