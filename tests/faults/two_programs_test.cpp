#include "faults/faulty_ports.h"
#include "scenarios/script_driver.h"
#include "shell/start.h"
#include "support/child_process.h"
#include "support/file_bytes.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <thread>

using namespace inin;

namespace {

constexpr int kRuns = 15;
constexpr const char *kPrintedCsv = "TMP\\委任状.csv";

/// Plays on a site that another program uses at the same time. Returns the number of starts of the form tool with the
/// play's own letters, and of those with others.
std::string printRepeatedly(const Play &play, const TemporarySite &site)
{
    const auto csv = std::ranges::find(play.expectedFiles, kPrintedCsv, &PlayFile::path);
    int own = 0, others = 0;
    ScriptDriver driver;
    driver.program = [&](const Platform &platform) {
        FaultPlan none;
        FaultyPorts ports(platform, none);
        ports.onStart = [&](const std::string &commandLine) {
            if (!commandLine.starts_with("wfrfv10.exe")) return;
            ++(bytesOf(site.at(kPrintedCsv)) == suiteBytes(csv->text) ? own : others);
        };
        App app(ports.platform());
        Main(app);
    };
    for (int run = 0; run < kRuns; ++run) (void)driver.run(play, site);
    return std::to_string(own) + " own, " + std::to_string(others) + " others";
}

} // namespace

TEST_CASE("two programs that print on one site at once each start the form tool with their own letters")
{
    const Play month = readPlay(ININ_SCENARIOS "/planned_month.play");
    const Play day = readPlay(ININ_SCENARIOS "/planned_day.play");
    const TemporarySite site(month);
    ChildEnd ofMonth;
    std::jthread other([&] { ofMonth = inChild([&] { return printRepeatedly(month, site); }); });
    const ChildEnd ofDay = inChild([&] { return printRepeatedly(day, site); });
    other.join();
    const std::string allOwn = std::to_string(kRuns) + " own, 0 others";
    CHECK(ofMonth.text == allOwn);
    CHECK(ofDay.text == allOwn);
}
