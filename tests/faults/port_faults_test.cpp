#include "faults/faulty_play.h"

#include <doctest/doctest.h>

using namespace inin;

TEST_CASE("whatever port call fails in a play, the operator gets a report and no file is half-written")
{
    std::size_t round = 0, faults = 0;
    for (const std::string &file : sampleOf(playFiles())) {
        FaultyPlay play(file);
        FaultPlan counting;
        play.restoreSite();
        CHECK(play.brokenRule(play.playWith(counting)).empty());
        for (const std::size_t operation : operationsToFail(counting.count(), round++)) {
            FaultPlan plan(operation);
            play.restoreSite();
            const PlayRecord record = play.playWith(plan);
            INFO(play.name(), ", call ", operation, ": ", plan.failed());
            CHECK(play.brokenRule(record) == "");
            ++faults;
        }
    }
    MESSAGE(faults, " failed port calls");
}
