// From the start of the process to the first painted window of the program, the background, and to the painted conditions
// screen, on a demo site; each beside an empty window of the toolkit, and beside one with a single line of Japanese text:
// the first text of a process makes the toolkit read the system's fonts, which takes about as long as all the rest of an
// empty window. All are processes that are started anew each time, as a person starts them, and take turns, so that what
// else the machine does falls on all alike. Without a display they paint on none.

#include "adapters/qt/theme.h"
#include "app/print_inin/desktop.h"
#include "bench/bench_process.h"
#include "bench/bench_site.h"
#include "bench/end_at_paint.h"
#include "shell/start.h"

#include <QApplication>

#include <fmt/format.h>

#include <array>
#include <filesystem>
#include <string_view>

namespace inin::bench {

namespace {

constexpr int kRuns = 25;
constexpr std::int64_t kPatients = 300;

/// As the program's own main does it, up to the paint of the window of that name.
int startUpTo(const char *window, const char *folder, char **argv)
{
    if (!qEnvironmentVariableIsSet("DISPLAY")) qputenv("QT_QPA_PLATFORM", "offscreen");
    int noArguments = 1;
    QApplication application(noArguments, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    applyTheme(application);
    EndAtPaint::of(window);
    Desktop desktop(folder);
    App app(desktop.platform());
    Main(app);
    return 1;
}

struct Start {
    std::vector<std::string> command;
    std::vector<Spent> runs = {};

    [[nodiscard]] double milliseconds() const { return medianOf(runs).seconds * 1000; }
};

void print(const char *what, const Start &start, const Start &empty, const Start &line, const char *aim)
{
    fmt::print(
        "bench_start: {} after {:.1f} ms, {:.2f} times an empty window{}, {:.2f} times one with a line of text\n", what,
        start.milliseconds(), start.milliseconds() / empty.milliseconds(), aim,
        start.milliseconds() / line.milliseconds());
}

int measure(const std::string &self)
{
    const BenchSite site(kPatients);
    const std::string emptyWindow = std::filesystem::path(self).replace_filename("empty_window").string();
    Start empty{{emptyWindow}};
    Start line{{emptyWindow, "委任状印刷"}};
    Start background{{self, "frmBack", site.folder().string()}};
    Start screen{{self, "frmPrintInin", site.folder().string()}};
    const std::array all{&empty, &line, &background, &screen};
    for (const Start *start : all) (void)runProcess(start->command, "/dev/null"); // files into the system's memory
    for (int run = 0; run < kRuns; ++run)
        for (Start *start : all) start->runs.push_back(runProcess(start->command, "/dev/null"));
    fmt::print("bench_start: empty window after {:.1f} ms, with a line of text {:.1f} ms\n", empty.milliseconds(),
               line.milliseconds());
    print("first painted window", background, empty, line, " (aim: at most 1.5)");
    print("painted conditions screen", screen, empty, line, "");
    return 0;
}

} // namespace

} // namespace inin::bench

int main(int argc, char **argv)
try {
    if (argc < 3) return inin::bench::measure(argv[0]);
    return inin::bench::startUpTo(argv[1], argv[2], argv);
} catch (const std::exception &fault) {
    fmt::print(stderr, "bench_start: {}\n", fault.what());
    return 1;
}
