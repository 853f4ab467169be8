// The form viewer's window with ten thousand letters: opening, the first page, turning pages, the check, printing. Each
// result is verified, because blank pages are fast.

#include "bench/figures.h"
#include "bench/letter_job.h"
#include "bench/letter_rows.h"
#include "suite_text/code_page_932.h"
#include "viewer/window/page_view.h"
#include "viewer/window/viewer_style.h"
#include "viewer/window/viewer_window.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QFileInfo>
#include <QtTest/QTest>
#include <fmt/format.h>

#include <algorithm>
#include <ctime>
#include <exception>
#include <fstream>
#include <stdexcept>

namespace inin::viewer {

namespace {

constexpr std::size_t kLetters = 10'000;
/// The letter whose account has no holder, after all others.
constexpr std::size_t kSpoilt = kLetters;
constexpr std::size_t kHolder = 11;
constexpr std::size_t kTurned = 200;
constexpr std::size_t kPrinted = 3'000;
constexpr double kDotsPerInch = 150;

void require(bool holds, const char *what)
{
    if (!holds) throw std::runtime_error(what);
}

/// Adds the letter without an account holder to the job's file.
void addSpoiltLetter(const bench::LetterJob &job)
{
    std::vector<std::string> row = bench::letterRow(kSpoilt);
    row[kHolder].clear();
    std::string line;
    for (const std::string &field : row) line += (line.empty() ? "\"" : ",\"") + field + "\"";
    std::ofstream(job.file("letters.csv"), std::ios::binary | std::ios::app) << encodeCp932(line + "\r\n");
}

double milliseconds(const QElapsedTimer &since)
{
    constexpr double kNanosecondsPerMillisecond = 1e6;
    return static_cast<double>(since.nsecsElapsed()) / kNanosecondsPerMillisecond;
}

/// The number of dark pixels of a picture: glyphs and lines.
int inkOf(const QImage &image)
{
    constexpr int kDark = 100;
    int ink = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) ink += qGray(image.pixel(x, y)) < kDark ? 1 : 0;
    return ink;
}

struct PaintCount : QObject {
    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        if (event->type() == QEvent::Paint) ++count;
        return false;
    }
    int count = 0;
};

std::unique_ptr<OpenLetters> timeOpening(const std::string &script)
{
    QElapsedTimer since;
    since.start();
    auto letters = std::make_unique<OpenLetters>(script);
    bench::print({.name = fmt::format("{} letters and their form read", letters->set.size()),
                  .ours = bench::millisecondsText(milliseconds(since))});
    require(letters->set.size() == kLetters + 1, "letters are missing");
    return letters;
}

/// CPU time of this thread in milliseconds: on a shared machine the clock includes the work of others.
double worked()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

/// Mean and maximum, by clock and by CPU time.
class Times {
public:
    template <class Body> void time(Body &&body)
    {
        QElapsedTimer since;
        since.start();
        const double before = worked();
        body();
        m_work.add(worked() - before);
        m_clock.add(milliseconds(since));
    }
    void print(const char *what) const
    {
        const auto row = [](const std::string &name, double milliseconds) {
            bench::print({.name = name, .ours = bench::millisecondsText(milliseconds), .aim = "10 ms"});
        };
        row(what, m_clock.all / m_clock.count);
        row(fmt::format("the slowest of {}", m_clock.count), m_clock.worst);
        row("CPU time of one", m_work.all / m_work.count);
        row("CPU time of the slowest", m_work.worst);
    }

private:
    struct Sum {
        double all = 0, worst = 0;
        int count = 0;
        void add(double spent)
        {
            all += spent;
            worst = std::max(worst, spent);
            ++count;
        }
    };
    Sum m_clock, m_work;
};

void turn(ViewerWindow &window, PageView &page, bool reads, const char *what)
{
    page.viewport()->repaint();
    Times times;
    for (std::size_t i = 1; i <= kTurned; ++i) {
        // A user who reads a letter leaves time to prepare the next one.
        if (reads) QTest::qWait(10);
        times.time([&] {
            window.showLetter(i);
            page.viewport()->repaint();
        });
    }
    times.print(what);
    window.showLetter(0);
}

void timeTurningInWindow(ViewerWindow &window)
{
    auto *const page = dynamic_cast<PageView *>(window.findChild<QAbstractScrollArea *>("pageView"));
    turn(window, *page, false, "a page turned in the window, without a pause");
    turn(window, *page, true, "a page turned in the window, after a moment");
    page->setZoom(kDotsPerInch / page->logicalDpiY());
    turn(window, *page, false, "a page turned at 150 dpi, without a pause");
    turn(window, *page, true, "a page turned at 150 dpi, after a moment");
}

void timeWindow(const bench::LetterJob &job)
{
    const std::string script = job.script();
    ViewerServices services = realServices();
    services.settingsFile = QString::fromStdString(job.file("settings.ini"));
    services.ledgerPath = {};
    auto letters = timeOpening(script);
    QElapsedTimer since;
    since.start();
    ViewerWindow window(script, std::move(letters), services);
    const double built = milliseconds(since);
    auto *const page = window.findChild<QAbstractScrollArea *>("pageView");
    PaintCount paints;
    page->viewport()->installEventFilter(&paints);
    since.restart();
    window.show();
    while (paints.count == 0) QApplication::processEvents();
    const double shown = milliseconds(since);
    bench::print({.name = "the viewer's window built", .ours = bench::millisecondsText(built)});
    bench::print({.name = "its first page, from show() on", .ours = bench::millisecondsText(shown), .aim = "50 ms"});
    require(inkOf(page->viewport()->grab().toImage()) > 1000, "the first page is blank");
    window.finishCheck();
    require(window.findings().size() == 1, "the check in the window found other things");
    timeTurningInWindow(window);
}

void timeTurning(OpenLetters &letters)
{
    Times kept, whole;
    // The first page loads its glyphs; that is part of its own figure.
    letters.pictures.setScale(kDotsPerInch / 72);
    QImage before = letters.pictures.of(0);
    for (std::size_t i = 1; i <= kTurned; ++i) {
        QImage image;
        kept.time([&] { (void)letters.pictures.of(i); });
        whole.time([&] { image = pageImage(letters.renderer, i, kDotsPerInch, letters.glyphs); });
        require(letters.pictures.of(i) == image, "the kept picture is another than the letter");
        require(image != before, "two letters look the same");
        before = image;
    }
    require(inkOf(before) > 1000, "a page is blank");
    whole.print("a page painted whole at 150 dpi");
    kept.print("a page made from its form's picture at 150 dpi");
}

void timeCheck(OpenLetters &letters)
{
    QElapsedTimer since;
    since.start();
    const std::vector<Finding> findings = checkLetters(letters.renderer, DateSerial(2024, 5, 20));
    bench::print({.name = fmt::format("{} letters checked", kLetters),
                  .ours = bench::millisecondsText(milliseconds(since)),
                  .aim = "1000 ms"});
    require(findings.size() == 1 && findings[0].letter == kSpoilt && findings[0].cause == Cause::noHolder,
            "the check found other things");
}

void timePath(OpenLetters &letters, const PrintPaths &paths, const QString &path, const char *what)
{
    letters.ticks.setText(fmt::format("1-{}", kPrinted));
    QElapsedTimer since;
    since.start();
    const PrintResult result = printLetters(letters, letters.ticks.letters(), {}, paths, {});
    const double spent = milliseconds(since);
    require(result.isDone() && result.sent == kPrinted, "the print failed");
    const double bytes = static_cast<double>(QFileInfo(path).size());
    bench::print(
        {.name = fmt::format("{} letters printed, {}", kPrinted, what), .ours = bench::millisecondsText(spent)});
    bench::print({.name = "its size a page", .ours = fmt::format("{:.2f} KB", bytes / kPrinted / 1024)});
}

/// Up to the hand-over to the system: the speed of its print queue is not measured.
void timePrint(OpenLetters &letters, const bench::LetterJob &job)
{
    const QString path = QString::fromStdString(job.file("print.pdf"));
    const SpoolPdf spool = [&](const SpoolJob &order, const std::function<bool()> &) {
        require(QFile::copy(order.pdf, path), "the job's file is missing");
        return SpoolResult{};
    };
    const MakePrinter make = [&](const PrintOrder &) {
        auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
        printer->setOutputFormat(QPrinter::PdfFormat);
        printer->setOutputFileName(path);
        return printer;
    };
    timePath(letters, {spool, {}}, path, "for the system's spooler");
    timePath(letters, {{}, make}, path, "painted on a printer");
}

} // namespace

} // namespace inin::viewer

int main(int argc, char **argv)
try {
    using namespace inin::viewer;
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    applyStyle(application);
    const inin::bench::LetterJob job(kLetters);
    addSpoiltLetter(job);
    timeWindow(job);
    OpenLetters letters(job.script());
    timeTurning(letters);
    timeCheck(letters);
    timePrint(letters, job);
    return 0;
} catch (const std::exception &error) {
    fmt::print(stderr, "bench_window: {}\n", error.what());
    return 1;
}
