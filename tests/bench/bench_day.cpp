// The cost of one candidate of a day's letters: open a session, query the patient's last planned visit, close the
// session.

#include "bench/bench_site.h"
#include "bench/figures.h"

#include <fmt/format.h>

#include <chrono>
#include <exception>

namespace inin::bench {

namespace {

constexpr std::int32_t kCandidates = 5000;

/// A month in which every patient of the demo has a visit, except those whose treatment had ended.
constexpr int kBusyMonth = static_cast<int>(kMonth) - 1;

std::vector<std::int32_t> candidates(BenchScreen &screen)
{
    std::vector<std::int32_t> numbers;
    const std::string sql = fmt::format("SELECT DISTINCT nIDRiyoushaNo FROM SCHEDULE WHERE nIDRiyoushaNo > 0 AND nDate"
                                        " BETWEEN {0}{1:02}00 AND {0}{1:02}99 ORDER BY nIDRiyoushaNo",
                                        kYear, kBusyMonth);
    const auto connection = screen.app().platform.database.newConnection();
    connection->Open("Provider=SQLite;Data Source=demo.db", "", "", 0);
    const auto rows = screen.app().platform.database.newRecordset();
    rows->Open(sql, *connection, adOpenForwardOnly, adLockReadOnly, adCmdText);
    for (; !rows->isEndOfFile() && numbers.size() < kCandidates; rows->MoveNext()) {
        numbers.push_back(*rows->Value(0).getIf<std::int32_t>());
    }
    return numbers;
}

int measure()
{
    const BenchSite site(kCandidates * 11 / 10);
    BenchScreen screen(site.folder());
    const std::vector<std::int32_t> numbers = candidates(screen);
    std::int64_t found = 0;
    const auto start = std::chrono::steady_clock::now();
    for (const std::int32_t number : numbers) {
        found += screen.form().getLastScheduleDay(number, kYear, kBusyMonth) > 0 ? 1 : 0;
    }
    const std::chrono::duration<double, std::micro> spent = std::chrono::steady_clock::now() - start;
    const double each = spent.count() / static_cast<double>(numbers.size());
    print({.name = fmt::format("last visit of a candidate ({} of {} found)", found, numbers.size()),
           .ours = fmt::format("{:.1f} us", each),
           .aim = "40 us"});
    return 0;
}

} // namespace

} // namespace inin::bench

int main()
try {
    return inin::bench::measure();
} catch (const std::exception &fault) {
    fmt::print(stderr, "bench_day: {}\n", fault.what());
    return 1;
}
