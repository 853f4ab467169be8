// From the start of the process to the first paint of the conditions screen on a demo site, beside an empty window of the
// toolkit, and beside one with a single line of Japanese text: the first text of a process makes the toolkit read the
// system's fonts, which takes about as long as all the rest of an empty window. All are children of this program: a
// process that is started anew each time, as a person starts it. Without a display they paint on none.

#include "adapters/qt/theme.h"
#include "app/print_inin/desktop.h"
#include "bench/bench_process.h"
#include "bench/bench_site.h"
#include "shell/start.h"

#include <QApplication>
#include <QLabel>
#include <QWidget>

#include <fmt/format.h>

#include <cstdlib>
#include <string_view>

namespace inin::bench {

namespace {

constexpr int kRuns = 15;
constexpr std::int64_t kPatients = 300;

/// Ends the process when a window of that name has been painted.
class EndAtPaint : public QObject {
public:
    explicit EndAtPaint(const char *window) : m_window(QString::fromLatin1(window)) {}

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() != QEvent::Paint || watched->objectName() != m_window || m_isPainting) return false;
        // The paint itself belongs to the time.
        m_isPainting = true;
        watched->event(event);
        std::_Exit(0);
    }

private:
    QString m_window;
    bool m_isPainting = false;
};

void prepare(const char *window)
{
    QApplication::setQuitOnLastWindowClosed(false);
    static EndAtPaint end(window); // the process ends by it
    QApplication::instance()->installEventFilter(&end);
}

int emptyWindow(const char *text)
{
    prepare("empty");
    QWidget window;
    if (*text != '\0') (new QLabel(QString::fromUtf8(text), &window))->ensurePolished();
    window.setObjectName("empty");
    window.resize(468, 757);
    window.show();
    return QApplication::exec();
}

int conditionsScreen(QApplication &application, const char *folder)
{
    applyTheme(application);
    prepare("frmPrintInin");
    Desktop desktop(folder);
    App app(desktop.platform());
    Main(app);
    return 1;
}

double medianMilliseconds(const std::vector<std::string> &command)
{
    constexpr double kMilliseconds = 1000;
    std::vector<Spent> runs;
    for (int run = 0; run < kRuns; ++run) runs.push_back(runProcess(command, "/dev/null"));
    return medianOf(runs).seconds * kMilliseconds;
}

int measure(const std::string &self)
{
    const BenchSite site(kPatients);
    const double empty = medianMilliseconds({self, "--empty", ""});
    const double line = medianMilliseconds({self, "--empty", "委任状印刷"});
    const double screen = medianMilliseconds({self, "--screen", site.folder().string()});
    fmt::print("bench_start: empty window {:.0f} ms, with one line of text {:.0f} ms, conditions screen {:.0f} ms\n",
               empty, line, screen);
    fmt::print("bench_start: {:.2f} times an empty window (aim: at most 1.5), {:.2f} times one with a line of text\n",
               screen / empty, screen / line);
    return 0;
}

int run(int argc, char **argv)
{
    if (argc < 3) return measure(argv[0]);
    if (!qEnvironmentVariableIsSet("DISPLAY")) qputenv("QT_QPA_PLATFORM", "offscreen");
    int noArguments = 1;
    QApplication application(noArguments, argv);
    return std::string_view(argv[1]) == "--empty" ? emptyWindow(argv[2]) : conditionsScreen(application, argv[2]);
}

} // namespace

} // namespace inin::bench

int main(int argc, char **argv)
try {
    return inin::bench::run(argc, argv);
} catch (const std::exception &fault) {
    fmt::print(stderr, "bench_start: {}\n", fault.what());
    return 1;
}
