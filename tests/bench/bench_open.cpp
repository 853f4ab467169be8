// From a script of ten thousand letters to a picture of the first page, each run in its own process: the time that the
// operator waits. The page is checked, because a blank one is fast.

#include "bench/bench_process.h"
#include "bench/figures.h"
#include "bench/letter_job.h"
#include "viewer/document/letter_opener.h"
#include "viewer/document/letter_renderer.h"
#include "viewer/paint/qt_letter_page.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <exception>
#include <filesystem>
#include <fstream>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace inin::bench {

namespace {

constexpr std::size_t kLetters = 10'000;
constexpr int kRuns = 15;
constexpr double kDotsPerInch = 150;

using Clock = std::chrono::steady_clock;

double millisecondsSince(Clock::time_point start)
{
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

int inkOf(const QImage &image)
{
    int ink = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) ink += qGray(image.pixel(x, y)) < 100 ? 1 : 0;
    return ink;
}

/// One run: prints the three parts in milliseconds.
int openOnce(const std::string &script, std::size_t letters)
{
    const auto start = Clock::now();
    const viewer::LetterSet set = viewer::openScript(script);
    const double opened = millisecondsSince(start);
    viewer::Fonts fonts;
    viewer::LetterRenderer press(set, fonts);
    const double prepared = millisecondsSince(start);
    viewer::QtGlyphs glyphs;
    const QImage page = viewer::pageImage(press, 0, kDotsPerInch, glyphs);
    const double painted = millisecondsSince(start);
    if (set.size() != letters || inkOf(page) < 10'000) throw std::runtime_error("letters or ink are missing");
    fmt::print("{:.3f} {:.3f} {:.3f}\n", opened, prepared - opened, painted - prepared);
    return 0;
}

std::vector<std::string> commandFor(const std::string &self, const LetterJob &job, std::size_t letters)
{
    return {self, job.script(), std::to_string(letters)};
}

double growthOf(const std::string &self)
{
    std::map<std::size_t, LetterJob> jobs;
    return growthExponent([&](std::size_t letters) {
        const LetterJob &job = jobs.try_emplace(letters, letters).first->second;
        return runProcess(commandFor(self, job, letters), job.file("out"));
    });
}

struct Parts {
    double opened = 0, prepared = 0, painted = 0;
    [[nodiscard]] double all() const { return opened + prepared + painted; }
};

int measure(const std::string &self)
{
    const LetterJob job(kLetters);
    std::vector<Parts> runs;
    for (int i = 0; i < kRuns; ++i) {
        static_cast<void>(runProcess(commandFor(self, job, kLetters), job.file("out")));
        Parts &parts = runs.emplace_back();
        std::ifstream(job.file("out")) >> parts.opened >> parts.prepared >> parts.painted;
    }
    std::ranges::sort(runs, {}, &Parts::all);
    const Parts &middle = runs[runs.size() / 2];
    print({.name = fmt::format("{} letters opened up to the first page", kLetters),
           .ours = millisecondsText(middle.all()),
           .growth = ratioText(growthOf(self)),
           .aim = "50 ms"});
    print({.name = "of it: script and letters read", .ours = millisecondsText(middle.opened)});
    print({.name = "of it: form and fonts made ready", .ours = millisecondsText(middle.prepared)});
    print({.name = fmt::format("of it: the page painted at {} dpi", kDotsPerInch),
           .ours = millisecondsText(middle.painted)});
    return 0;
}

} // namespace

} // namespace inin::bench

/// bench_open, or bench_open SCRIPT LETTERS for one run.
int main(int argc, char **argv)
try {
    return argc > 2 ? inin::bench::openOnce(argv[1], std::stoul(argv[2])) : inin::bench::measure(argv[0]);
} catch (const std::exception &fault) {
    fmt::print(stderr, "bench_open: {}\n", fault.what());
    return 1;
}
