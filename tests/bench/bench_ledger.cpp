// The ledger with 24 months of 3,000 letters: what it adds to the opening of ten thousand letters, and the record of a run.

#include "bench/figures.h"
#include "bench/letter_job.h"
#include "bench/letter_rows.h"
#include "viewer/document/letter_opener.h"
#include "viewer/document/letter_renderer.h"
#include "viewer/io/fingerprint.h"
#include "viewer/ledger/ledger.h"
#include "viewer/ledger/ledger_place.h"
#include "viewer/ledger/run_comparison.h"
#include "viewer/paint/qt_letter_page.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <exception>
#include <filesystem>
#include <functional>
#include <numeric>
#include <stdexcept>

namespace inin::viewer {

namespace {

constexpr std::int32_t kMonths = 24, kFirstMonth = monthNumber(2024, 12);
constexpr std::size_t kLettersAMonth = 3'000;
constexpr std::size_t kOpened = 10'000;
constexpr int kRuns = 9;
constexpr double kDotsPerInch = 150;

double millisecondsOf(const std::function<void()> &body)
{
    const auto start = std::chrono::steady_clock::now();
    body();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

double median(std::vector<double> times)
{
    std::ranges::sort(times);
    return times[times.size() / 2];
}

Date dayIn(std::int32_t month)
{
    return DateSerial(month / 12, month % 12 + 1, 20);
}

struct Month {
    RunMark mark;
    RunTexts texts;
};

/// The letters of a month. The same patients return, and some of them have another text.
Month monthOf(std::int32_t month)
{
    const std::string text = fmt::format("{:04}/{:02}/", month / 12, month % 12 + 1);
    Month made{{fingerprintOf(text), "form", "委任状", "委任状37_01.wfd", MonthRange{month, month}, kLettersAMonth},
               RunTexts(bench::letterTitles())};
    for (std::size_t letter = 0; letter < kLettersAMonth; ++letter) {
        std::vector<std::string> row = bench::letterRow(letter);
        row[0] = text + "01";
        row[1] = text + "28";
        if (letter % 100 == static_cast<std::size_t>(month) % 100) row[10] = text;
        for (const std::string &value : row) made.texts.add(value);
    }
    return made;
}

double recordMonth(Ledger &ledger, std::int32_t month)
{
    const Month made = monthOf(month);
    std::vector<std::size_t> letters(kLettersAMonth);
    std::iota(letters.begin(), letters.end(), std::size_t{0});
    std::optional<OutputId> output;
    const double time = millisecondsOf([&] {
        const std::optional<RunId> run = ledger.recordRun(made.mark, made.texts, dayIn(month));
        if (run) output = ledger.recordOutput(*run, {OutputKind::print, "受付", "1", letters, dayIn(month)});
    });
    if (!output || !ledger.confirmAll(*output)) throw std::runtime_error("a run is missing: " + ledger.notice());
    return time;
}

/// From the script to the picture of the first page.
double openLetterFiles(const std::string &script, std::optional<LetterSet> &set)
{
    return millisecondsOf([&] {
        set.emplace(openScript(script));
        Fonts fonts;
        LetterRenderer renderer(*set, fonts);
        QtGlyphs glyphs;
        if (pageImage(renderer, 0, kDotsPerInch, glyphs).isNull()) throw std::runtime_error("no page");
    });
}

struct Times {
    std::vector<double> plain, found, compared;
};

void openOnce(const std::string &script, const std::string &path, Times &times)
{
    std::optional<LetterSet> set;
    times.plain.push_back(openLetterFiles(script, set));
    std::optional<Ledger> ledger;
    RunMark mark;
    times.found.push_back(millisecondsOf([&] {
        ledger.emplace(path, kMostMonths, dayIn(kFirstMonth + kMonths - 1));
        mark = markOf(*set);
        if (ledger->findRun(mark)) throw std::runtime_error("the run is known already");
    }));
    times.compared.push_back(millisecondsOf([&] {
        const RunTexts texts = textsOf(*set);
        const std::vector<RunSummary> earlier = ledger->earlierRuns(mark);
        const RunComparison difference = compareRuns(ledger->texts(earlier.at(0).id), texts);
        const std::vector<std::size_t> printed = ledger->printedAlready(mark, keysOf(texts));
        if (difference.added.size() + kLettersAMonth != kOpened || printed.size() > kOpened)
            throw std::runtime_error("the comparison is wrong");
    }));
}

void measure()
{
    const TempFolder folder;
    const std::string path = folder / "台帳.db";
    std::vector<double> records;
    {
        Ledger ledger(path, kMostMonths, dayIn(kFirstMonth));
        for (std::int32_t i = 0; i < kMonths; ++i) records.push_back(recordMonth(ledger, kFirstMonth + i));
    }
    using bench::millisecondsText;
    bench::print({.name = fmt::format("a run of {} letters and its print recorded", kLettersAMonth),
                  .ours = millisecondsText(median(records)),
                  .aim = "50 ms"});
    bench::print({.name = fmt::format("size of a ledger of {} months", kMonths),
                  .ours = bench::megabytesText(static_cast<double>(std::filesystem::file_size(pathOf(path))) / 1e6)});
    const bench::LetterJob job(kOpened);
    Times times;
    for (int run = 0; run < kRuns; ++run) openOnce(job.script(), path, times);
    const double plain = median(times.plain), found = median(times.found), compared = median(times.compared);
    bench::print({.name = fmt::format("{} letters opened, their run found in the ledger", kOpened),
                  .ours = millisecondsText(plain + found),
                  .peer = millisecondsText(plain) + " without a ledger",
                  .ratio = bench::ratioText((plain + found) / plain),
                  .aim = "ratio 1.15"});
    bench::print({.name = "their comparison with the last run", .ours = millisecondsText(compared)});
}

} // namespace

} // namespace inin::viewer

int main()
try {
    inin::viewer::measure();
    return 0;
} catch (const std::exception &fault) {
    fmt::print(stderr, "bench_ledger: {}\n", fault.what());
    return 1;
}
