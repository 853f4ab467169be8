// The first search of the patients' pick list, without a filter: every row is written to the grid, because there is no
// limit and no paging. The memory is that of a whole process with the list open, minus that of one that shows the
// conditions only.

#include "bench/bench_process.h"
#include "bench/bench_site.h"
#include "bench/figures.h"
#include "search/patient_search_form.h"

#include <fmt/format.h>

#include <chrono>
#include <exception>
#include <fstream>
#include <stdexcept>

namespace inin::bench {

namespace {

/// The first list omits ended patients, so the site has slightly more.
constexpr std::int64_t kPatients = 31000;
constexpr int kRuns = 5;

/// Runs in the child process: prints the number of rows in the grid and the seconds from the window's first display
/// until they are there.
int openList(const std::string &folder)
{
    BenchScreen screen(folder);
    frm患者検索 window(screen.app());
    if (window.iInit(0) != iGood) throw std::runtime_error(window.CsErrStr());
    window.load();
    const auto start = std::chrono::steady_clock::now();
    window.Form_Activate();
    const std::chrono::duration<double> spent = std::chrono::steady_clock::now() - start;
    fmt::print("{} {:.4f}\n", window.spr_1ran.RowCount(), spent.count());
    return 0;
}

/// Runs in the other child process: everything that the program has open before the window.
int standIdle(const std::string &folder)
{
    const BenchScreen screen(folder);
    return 0;
}

int measure(const std::string &self)
{
    const BenchSite site(kPatients);
    const auto output = (site.folder() / "bench.out").string();
    const Spent idle = runProcess({self, "idle", site.folder().string()}, output);
    std::vector<Spent> runs;
    std::int64_t rows = 0;
    for (int run = 0; run < kRuns; ++run) {
        Spent spent = runProcess({self, "open", site.folder().string()}, output);
        std::ifstream(output) >> rows >> spent.seconds;
        runs.push_back(spent);
    }
    const Spent median = medianOf(runs);
    print({.name = fmt::format("first list of {} patients", rows),
           .ours = secondsText(median.seconds),
           .memory = megabytesText(median.megabytes - idle.megabytes),
           .aim = "0.080 s, 60 MB over the idle program's"});
    return 0;
}

} // namespace

} // namespace inin::bench

int main(int argc, char **argv)
try {
    const std::vector<std::string> arguments(argv, argv + argc);
    if (arguments.size() == 3 && arguments[1] == "open") return inin::bench::openList(arguments[2]);
    if (arguments.size() == 3 && arguments[1] == "idle") return inin::bench::standIdle(arguments[2]);
    return inin::bench::measure(arguments[0]);
} catch (const std::exception &fault) {
    fmt::print(stderr, "bench_search: {}\n", fault.what());
    return 1;
}
