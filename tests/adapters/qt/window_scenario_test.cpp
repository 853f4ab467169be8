#include "adapters/qt/window_driver.h"
#include "scenarios/play_check.h"
#include "scenarios/script_driver.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <string>
#include <vector>

using namespace inin;
using namespace inin::qt;

namespace {

/// False for a play with commands that a user could not give by hand.
bool isForWindows(const Play &play)
{
    constexpr int kBadCommand = 2;
    return play.exitCode != kBadCommand;
}

/// Every event without the site's folder, which differs between the two plays.
std::string result(const PlayRecord &record, const TemporarySite &site)
{
    std::string all;
    for (const auto &step : record.events) {
        for (const std::string &line : step) all += withoutFolder(line, site) + "\n";
        all += "--\n";
    }
    return all + "exit " + std::to_string(record.exitCode);
}

} // namespace

TEST_CASE("the real windows and the script adapter write the same transcript")
{
    for (const std::string &file : playFiles()) {
        const Play play = readPlay(file);
        if (!isForWindows(play)) continue;
        SUBCASE(play.claim.c_str())
        {
            const TemporarySite scriptSite(play);
            const PlayRecord script = ScriptDriver().run(play, scriptSite);
            const TemporarySite windowSite(play);
            const PlayRecord window = WindowDriver().run(play, windowSite);

            CHECK(window.errors == "");
            CHECK_MESSAGE(firstDifference(play, window, windowSite).empty(), firstDifference(play, window, windowSite));
            CHECK(result(window, windowSite) == result(script, scriptSite));
        }
    }
}

TEST_CASE("at least ten plays are driven through the windows, some with the search windows")
{
    const std::vector<std::string> files = playFiles();
    const auto opens = [](const std::string &form) {
        return [form](const std::string &file) {
            const Play play = readPlay(file);
            return isForWindows(play) && std::ranges::any_of(play.steps, [&](const PlayStep &step) {
                       return std::ranges::any_of(step.expected, [&](const PlayStep::Expected &expected) {
                           return expected.event.find(form) != std::string::npos;
                       });
                   });
        };
    };
    CHECK(std::ranges::count_if(files, [](const std::string &file) { return isForWindows(readPlay(file)); }) >= 10);
    CHECK(std::ranges::any_of(files, opens("frm患者検索")));
    CHECK(std::ranges::any_of(files, opens("frm施術者検索")));
}
