// From the start of the process to the first painted window of the program (the background) and to the painted
// conditions screen, on a demo site, each compared with an empty window of the toolkit. The background fills the
// screen, and so does its empty window. The screen is compared with a window that shows one line of Japanese text,
// because the first text of a process makes the toolkit read the system's fonts, which takes about as long as the rest
// of an empty window, and with the screen's controls alone, without a program. All processes are started anew each
// time, as a user starts them, and alternate, so that other load affects all alike. Without a display they paint
// offscreen.

#include "adapters/qt/font_reading.h"
#include "app/print_inin/desktop.h"
#include "bench/bench_process.h"
#include "bench/bench_site.h"
#include "bench/end_at_paint.h"
#include "bench/figures.h"
#include "desktop_theme/theme.h"
#include "shell/start.h"

#include <QApplication>

#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>

namespace inin::bench {

using namespace qt;

namespace {

constexpr int kRuns = 25;
constexpr std::int64_t kPatients = 300;

/// Starts like the program's own main, up to the painting of the window of that name.
int startUpTo(const char *window, const char *folder, char **argv)
{
    if (!qEnvironmentVariableIsSet("DISPLAY")) qputenv("QT_QPA_PLATFORM", "offscreen");
    int noArguments = 1;
    QApplication application(noArguments, argv);
    FontReading fonts;
    QApplication::setQuitOnLastWindowClosed(false);
    theme::applyTheme(application);
    EndAtPaint::of(window);
    EventEdge edge;
    Desktop desktop(folder, edge, fonts);
    App app(desktop.platform());
    Main(app);
    return 1;
}

struct Start {
    std::vector<std::string> command;
    std::vector<double> milliseconds = {}; ///< per run, up to the painting
};

double middle(std::vector<double> figures)
{
    std::ranges::sort(figures);
    return figures.at(figures.size() / 2);
}

/// From before the process exists to the time that it prints.
double millisecondsToPaint(const std::vector<std::string> &command, const std::string &answer)
{
    const std::chrono::steady_clock::time_point start = std::chrono::steady_clock::now();
    (void)runProcess(command, answer);
    std::int64_t painted = 0;
    std::ifstream(answer) >> painted;
    const std::chrono::steady_clock::duration spent =
        std::chrono::steady_clock::duration(painted) - start.time_since_epoch();
    return std::chrono::duration<double, std::milli>(spent).count();
}

/// The median ratio of runs of the same round.
double times(const Start &ours, const Start &plain)
{
    std::vector<double> ratios;
    for (std::size_t run = 0; run < ours.milliseconds.size(); ++run)
        ratios.push_back(ours.milliseconds[run] / plain.milliseconds[run]);
    return middle(std::move(ratios));
}

int measure(const std::string &self)
{
    const BenchSite site(kPatients);
    const std::string folder = site.folder().string();
    const auto beside = [&self](const char *name) {
        return std::filesystem::path(self).replace_filename(name).string();
    };
    const std::string emptyWindow = beside("empty_window");
    Start empty{{emptyWindow}};
    Start large{{emptyWindow, "--maximised"}};
    Start line{{emptyWindow, "委任状印刷"}};
    Start bare{{beside("bare_screen")}};
    Start background{{self, "frmBack", folder}};
    Start screen{{self, "frmPrintInin", folder}};
    const std::string answer = folder + "/painted";
    for (int run = -1; run < kRuns; ++run) // the first round brings the files into the system's cache
        for (Start *start : {&empty, &large, &line, &bare, &background, &screen}) {
            const double spent = millisecondsToPaint(start->command, answer);
            if (run >= 0) start->milliseconds.push_back(spent);
        }
    const auto compare = [](const char *name, const Start &ours, const Start &plain, const char *peer,
                            const char *aim) {
        print({.name = name,
               .ours = millisecondsText(middle(ours.milliseconds)),
               .peer = millisecondsText(middle(plain.milliseconds)) + " " + peer,
               .ratio = ratioText(times(ours, plain)),
               .aim = aim});
    };
    compare("first painted window", background, empty, "empty window", "ratio 1.50");
    compare("first painted window, maximised", background, large, "empty window", "");
    compare("painted conditions screen", screen, line, "window with text", "ratio 1.25");
    compare("painted conditions screen", screen, bare, "its controls alone", "ratio 1.10");
    compare("painted conditions screen", screen, empty, "empty window", "");
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
