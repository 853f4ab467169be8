#include "faults/faulty_play.h"
#include "faults/faulty_system_calls.h"
#include "support/child_process.h"

#include <doctest/doctest.h>

using namespace inin;

namespace {

/// The calls of a play that change files.
std::size_t countCalls(FaultyPlay &play)
{
    FaultPlan counting;
    play.restoreSite();
    const FaultySystemCalls calls(counting);
    (void)play.play();
    return counting.count();
}

} // namespace

TEST_CASE("whatever change of a file fails in a play, the operator gets a report and no file is half-written")
{
    std::size_t round = 0, faults = 0;
    for (const std::string &file : sampleOf(playFiles())) {
        FaultyPlay play(file);
        for (const std::size_t call : operationsToFail(countCalls(play), round++)) {
            FaultPlan plan(call);
            play.restoreSite();
            PlayRecord record;
            {
                const FaultySystemCalls calls(plan);
                record = play.play();
            }
            INFO(play.name(), ", call ", call, ": ", plan.failed());
            CHECK(play.brokenRule(record) == "");
            ++faults;
        }
    }
    CHECK(faults > 20);
    MESSAGE(faults, " failed changes of files");
}

TEST_CASE("a program killed at any change of a file leaves no file that looks finished, and the next run replaces all")
{
    std::size_t round = 0, kills = 0;
    for (const std::string &file : sampleOf(playFiles())) {
        FaultyPlay play(file);
        const std::size_t count = countCalls(play);
        for (const std::size_t call : operationsToFail(count, round++)) {
            play.restoreSite();
            const ChildEnd end = inChild([&] {
                FaultPlan plan(call);
                const FaultySystemCalls calls(plan, FaultySystemCalls::Fault::killed);
                (void)play.play();
                return "not killed";
            });
            INFO(play.name(), ", call ", call, " of ", count);
            CHECK(end.isKilled());
            CHECK(play.brokenFileRule() == "");
            CHECK(play.brokenRule(play.play()) == "");
            CHECK(play.hasUsualFiles());
            ++kills;
        }
    }
    CHECK(kills > 12);
    MESSAGE(kills, " killed programs");
}
