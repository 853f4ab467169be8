#include "demo_site/scratch_site.h"

#include <doctest/doctest.h>
#include <fmt/format.h>

using namespace inin::test;

namespace {

struct Irregularity {
    const char *claim;
    const char *sql; ///< counts rows
    std::int64_t least;
    std::int64_t most;
};

// In three hundred patients.
constexpr Irregularity kIrregularities[] = {
    {"three in a hundred have ended", "SELECT COUNT(*) FROM RIYOUSHA WHERE tExpireDay IS NOT NULL", 7, 11},
    {"one of these ended in the month and had visits in it",
     "SELECT COUNT(*) FROM RIYOUSHA p WHERE p.tExpireDay LIKE '2024-05-%' AND EXISTS (SELECT 1 FROM SCHEDULE s"
     " WHERE s.nIDRiyoushaNo = p.nIDNo AND s.nDate BETWEEN 20240501 AND 20240599)",
     1, 5},
    {"no visit follows the end of a treatment",
     "SELECT COUNT(*) FROM RIYOUSHA p JOIN SCHEDULE s ON s.nIDRiyoushaNo = p.nIDNo"
     " WHERE s.nDate > CAST(replace(substr(p.tExpireDay, 1, 10), '-', '') AS INTEGER)",
     0, 0},
    {"five in a hundred are billed by the group", "SELECT COUNT(*) FROM RIYOUSHA_SUB WHERE iDantaiUmu = 1", 13, 17},
    {"two in a hundred name an agent that is not there",
     "SELECT COUNT(*) FROM RIYOUSHA p WHERE p.nDairiID IS NOT NULL AND NOT EXISTS (SELECT 1 FROM CORP c"
     " WHERE c.iKyotenCd = p.iKyotenCd AND c.iKyotenEb = p.iKyotenEb AND c.nIDNo = p.nDairiID)",
     5, 7},
    {"one in a hundred has no side row",
     "SELECT COUNT(*) FROM RIYOUSHA p WHERE NOT EXISTS (SELECT 1 FROM RIYOUSHA_SUB s WHERE s.nIDNo = p.nIDNo)", 3, 3},
    {"a name has 髙", "SELECT COUNT(*) FROM RIYOUSHA WHERE cName LIKE '髙橋%'", 1, 30},
    {"a name has 﨑", "SELECT COUNT(*) FROM RIYOUSHA WHERE cName LIKE '﨑山%'", 1, 30},
    {"a name has 25 characters", "SELECT COUNT(*) FROM RIYOUSHA WHERE length(cName) = 25", 1, 1},
    {"an address has 100 characters", "SELECT COUNT(*) FROM RIYOUSHA WHERE length(cAdress1) = 100", 1, 1},
    {"somebody has two visits on the last day of the month",
     "SELECT COUNT(*) FROM (SELECT nIDRiyoushaNo FROM SCHEDULE WHERE nDate BETWEEN 20240501 AND 20240531"
     " AND nIDRiyoushaNo = 5 GROUP BY nDate HAVING COUNT(*) = 2)",
     1, 1},
    {"somebody has two actual visits at the latest moment",
     "SELECT COUNT(*) FROM JISSEKI WHERE nRiyoushaIDNo = 5 AND tServicyDayStart = (SELECT max(tServicyDayStart)"
     " FROM JISSEKI WHERE nRiyoushaIDNo = 5 AND tServicyDayStart LIKE '2024-05-%')",
     2, 2},
    {"somebody has visits before and after the month and none in it",
     "SELECT COUNT(*) FROM RIYOUSHA p WHERE tExpireDay IS NULL AND EXISTS (SELECT 1 FROM SCHEDULE"
     " WHERE nIDRiyoushaNo = p.nIDNo AND nDate < 20240500) AND NOT EXISTS (SELECT 1 FROM SCHEDULE"
     " WHERE nIDRiyoushaNo = p.nIDNo AND nDate BETWEEN 20240500 AND 20240599)",
     10, 20},
    {"the branch has one head office", "SELECT COUNT(*) FROM CORP WHERE iKyotenEb = 1 AND iType = 0", 1, 1},
    {"the branch has one group-billing company", "SELECT COUNT(*) FROM CORP WHERE iKyotenEb = 1 AND iType = 3", 1, 1},
    {"the branch has several agents", "SELECT COUNT(*) FROM CORP WHERE iKyotenEb = 1 AND iType IN (1, 2)", 8, 8},
    {"another branch uses the same numbers",
     "SELECT COUNT(*) FROM CORP a JOIN CORP b ON a.nIDNo = b.nIDNo AND a.iKyotenEb < b.iKyotenEb", 1, 1},
    {"some staff have stopped", "SELECT COUNT(*) FROM STAFF WHERE iKyotenEb = 1 AND iChusiFlg = 1", 2, 4},
    {"some staff are active without saying so", "SELECT COUNT(*) FROM STAFF WHERE iKyotenEb = 1 AND iChusiFlg IS NULL",
     1, 3},
    {"insurers are of three kinds and one of none", "SELECT COUNT(DISTINCT ifnull(iType, -1)) FROM HOKENJA", 4, 4},
    {"no insurer comes twice", "SELECT COUNT(*) - COUNT(DISTINCT cIDno) FROM HOKENJA", 0, 0},
    {"patients have insurers of all three kinds",
     "SELECT COUNT(DISTINCT h.iType) FROM RIYOUSHA p JOIN HOKENJA h ON h.cIDno = p.cHokenNo", 3, 3},
    {"there are eight kinds of insurance", "SELECT COUNT(*) FROM HOKEN", 8, 8},
    {"telephones have the form that no telephone has",
     "SELECT COUNT(*) FROM RIYOUSHA WHERE cTelNo NOT GLOB '000-0000-[0-9][0-9][0-9][0-9]'", 0, 0},
};

/// Tables whose rows are entered by users.
constexpr const char *kEnteredTables[] = {"RIYOUSHA",     "HOKENJA", "SCHEDULE", "JISSEKI",
                                          "RIYOUSHA_SUB", "CORP",    "STAFF",    "KYOTEN"};

} // namespace

TEST_CASE("each irregularity of real data is in a demo site")
{
    for (const Irregularity &oddity : kIrregularities) {
        CAPTURE(oddity.claim);
        const std::int64_t count = countOf(sharedDatabase(), oddity.sql);
        CHECK(count >= oddity.least);
        CHECK(count <= oddity.most);
    }
}

TEST_CASE("every nullable column is NULL somewhere")
{
    for (const char *table : kEnteredTables) {
        for (const std::string &column :
             query(sharedDatabase(),
                   fmt::format("SELECT name FROM pragma_table_info('{}') WHERE \"notnull\" = 0", table))) {
            CAPTURE(table);
            CAPTURE(column);
            CHECK(countOf(sharedDatabase(), fmt::format("SELECT COUNT(*) FROM {} WHERE {} IS NULL", table, column)) >
                  0);
        }
    }
}

TEST_CASE("most columns of a patient are filled somewhere")
{
    // The demo does not use nTantou6 to nTantou10, cHokenJname2 and cSyogaiFname with its district.
    std::vector<std::string> unused;
    for (const std::string &column : query(sharedDatabase(), "SELECT name FROM pragma_table_info('RIYOUSHA')")) {
        if (countOf(sharedDatabase(), fmt::format("SELECT COUNT({}) FROM RIYOUSHA", column)) == 0)
            unused.push_back(column);
    }
    CHECK(unused == std::vector<std::string>{"cHokenJname2", "cSyogaiFname", "cSyogaiFSubAddress", "nTantou6",
                                             "nTantou7", "nTantou8", "nTantou9", "nTantou10"});
}
