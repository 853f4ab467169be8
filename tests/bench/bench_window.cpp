// The form viewer's window over ten thousand letters: opening, the first page, turning pages, the check, a print. Each
// figure comes with a look at what was done: blank pages are fast.

#include "adapters/posix/code_page_932.h"
#include "bench/letter_job.h"
#include "bench/letter_rows.h"
#include "viewer/window/look.h"
#include "viewer/window/viewer_window.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QFileInfo>
#include <fmt/format.h>

#include <algorithm>
#include <exception>
#include <fstream>
#include <stdexcept>

namespace inin::viewer {

namespace {

constexpr std::size_t kLetters = 10'000;
/// The letter whose account has no holder, behind all others.
constexpr std::size_t kSpoilt = kLetters;
constexpr std::size_t kHolder = 11;
constexpr std::size_t kTurned = 200;
constexpr std::size_t kPrinted = 100;

void require(bool holds, const char *what)
{
    if (!holds) throw std::runtime_error(what);
}

/// Adds the letter without a holder to the job's file.
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

/// How many dots of a picture are letters or lines.
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
    fmt::print("window: reading {} letters and their form {:.0f} ms\n", letters->set.size(), milliseconds(since));
    require(letters->set.size() == kLetters + 1, "letters are missing");
    return letters;
}

void timeWindow(const bench::LetterJob &job)
{
    const std::string script = job.script();
    ViewerServices services = realServices();
    services.settingsFile = QString::fromStdString(job.file("settings.ini"));
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
    fmt::print("window: built in {:.0f} ms, first page on the screen {:.0f} ms after it is shown (aim: under 50)\n",
               built, shown);
    require(inkOf(page->viewport()->grab().toImage()) > 1000, "the first page is blank");
    window.finishCheck();
    require(window.findings().size() == 1, "the check in the window found other things");
    since.restart();
    for (std::size_t i = 1; i <= kTurned; ++i) {
        window.showLetter(i);
        page->viewport()->repaint();
    }
    fmt::print("window: a turned page with list and screen {:.1f} ms\n", milliseconds(since) / kTurned);
}

void timeTurning(OpenLetters &letters)
{
    constexpr double kDotsPerInch = 150;
    QElapsedTimer since;
    double worst = 0, all = 0;
    QImage before;
    // The first page finds its glyphs; that is the first page's figure.
    before = letterImage(letters.press, 0, kDotsPerInch, letters.glyphs);
    for (std::size_t i = 1; i <= kTurned; ++i) {
        since.restart();
        QImage image = letterImage(letters.press, i, kDotsPerInch, letters.glyphs);
        const double spent = milliseconds(since);
        all += spent;
        worst = std::max(worst, spent);
        require(image != before, "two letters look the same");
        before = std::move(image);
    }
    require(inkOf(before) > 1000, "a page is blank");
    fmt::print("window: a page at 150 dpi {:.1f} ms, the slowest of {} {:.1f} ms (aim: under 10)\n", all / kTurned,
               kTurned, worst);
}

void timeCheck(OpenLetters &letters)
{
    QElapsedTimer since;
    since.start();
    const std::vector<Finding> findings = checkLetters(letters.press);
    fmt::print("check: {} letters {:.0f} ms (aim: under 1000)\n", kLetters, milliseconds(since));
    require(findings.size() == 1 && findings[0].letter == kSpoilt && findings[0].cause == Cause::noHolder,
            "the check found other things");
}

void timePrint(OpenLetters &letters, const bench::LetterJob &job)
{
    const QString path = QString::fromStdString(job.file("print.pdf"));
    const MakePrinter make = [&](const PrintOrder &) {
        auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
        printer->setOutputFormat(QPrinter::PdfFormat);
        printer->setOutputFileName(path);
        return printer;
    };
    letters.ticks.setText(fmt::format("1-{}", kPrinted));
    QElapsedTimer since;
    since.start();
    const PrintResult result = printLetters(letters, letters.ticks.letters(), {}, {{}, make}, {});
    require(result.isDone() && result.sent == kPrinted, "the print failed");
    fmt::print("print: a page {:.1f} ms, {} KB\n", milliseconds(since) / kPrinted,
               QFileInfo(path).size() / static_cast<qint64>(kPrinted) / 1024);
}

} // namespace

} // namespace inin::viewer

int main(int argc, char **argv)
try {
    using namespace inin::viewer;
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    applyLook(application);
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
