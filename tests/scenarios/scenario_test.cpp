#include "scenarios/play_check.h"
#include "scenarios/script_driver.h"

#include <doctest/doctest.h>

#include <map>
#include <string>
#include <vector>

using namespace inin;

TEST_CASE("each play has a unique claim, because only one of two equal claims would be played")
{
    std::map<std::string, std::string> files;
    for (const std::string &file : playFiles()) {
        const std::string claim = readPlay(file).claim;
        CHECK_MESSAGE(files.emplace(claim, file).second, file, " says what ", files[claim], " says: ", claim);
    }
    CHECK_FALSE(files.empty());
}

TEST_CASE("the script adapter plays every scenario")
{
    ScriptDriver driver;
    for (const std::string &file : playFiles()) {
        const Play play = readPlay(file);
        SUBCASE(play.claim.c_str())
        {
            const TemporarySite site(play);
            const PlayRecord record = driver.run(play, site);
            CHECK_MESSAGE(firstDifference(play, record, site).empty(), firstDifference(play, record, site));
        }
    }
}
