#include "printing/extraction.h"

#include <doctest/doctest.h>

#include <string>

namespace inin {

namespace {

/// The part of the statement after the conditions common to all extractions.
std::string tailOf(const ExtractionRule &rule, const ExtractionQuery &query)
{
    const std::string sql = extractionSql(rule, query);
    const std::string shared = " AND HOKENJA.cIDno = RIYOUSHA.cHokenNo ";
    const auto place = sql.find(shared);
    REQUIRE(place != std::string::npos);
    return sql.substr(place + shared.size());
}

ExtractionQuery allFilters()
{
    ExtractionQuery query;
    query.iKyotenCd = 12;
    query.iKyotenEb = 34;
    query.iTrustKind = 1;
    query.nKanjaNo = 501;
    query.nStaffNo = 8;
    query.iHokenIndex = 2;
    query.iExpireKind = 1;
    query.bounds = {"LOW", "HIGH"};
    return query;
}

} // namespace

TEST_CASE("all filters of planned data by month follow the visits, main staff member included")
{
    CHECK(tailOf(kKanjaDataMonth, allFilters()) ==
          " AND s1.iKyotenCd = 12 AND s1.iKyotenEb = 34 AND s1.nIDRiyoushaNo = RIYOUSHA.nIDNo "
          " AND s1.nDate = (select max(nDate) from SCHEDULE s2 where s1.nIDRiyoushaNo = s2.nIDRiyoushaNo "
          " AND s2.iKyotenCd = 12 AND s2.iKyotenEb = 34 AND s2.nDate BETWEEN LOW AND HIGH)"
          " AND RIYOUSHA.nIDNo = 501 AND RIYOUSHA.nTantou = 8 AND RIYOUSHA.iHoken = 2 ORDER BY RIYOUSHA.nTantou");
}

TEST_CASE("all filters of actual data by month use the main staff member")
{
    CHECK(tailOf(kKanjaDataMonth_Jisseki, allFilters()) ==
          " AND j1.iKyotenCd = 12 AND j1.iKyotenEb = 34 AND j1.nRiyoushaIDNo = RIYOUSHA.nIDNo "
          " AND j1.tServicyDayStart = (select max(tServicyDayStart) from JISSEKI j2 where j1.nRiyoushaIDNo = "
          "j2.nRiyoushaIDNo "
          " AND j2.iKyotenCd = 12 AND j2.iKyotenEb = 34"
          " AND j2.tServicyDayStart >=  'LOW'  AND j2.tServicyDayStart <  'HIGH') "
          " AND RIYOUSHA.nIDNo = 501 AND RIYOUSHA.nTantou = 8 AND RIYOUSHA.iHoken = 2 ORDER BY RIYOUSHA.nTantou");
}

TEST_CASE("all filters of planned data by day use the staff member of the visit")
{
    CHECK(tailOf(kKanjaDataDay, allFilters()) ==
          " AND SCHEDULE.iKyotenCd = 12 AND SCHEDULE.iKyotenEb = 34 AND SCHEDULE.nIDRiyoushaNo = RIYOUSHA.nIDNo "
          " AND SCHEDULE.nDate = LOW"
          " AND RIYOUSHA.nIDNo = 501 AND SCHEDULE.nIDStaffNo = 8 AND RIYOUSHA.iHoken = 2"
          " ORDER BY SCHEDULE.nIDStaffNo");
}

TEST_CASE("all filters of actual data by day use the staff member of the visit")
{
    CHECK(tailOf(kKanjaDataDay_Jisseki, allFilters()) ==
          " AND JISSEKI.iKyotenCd = 12 AND JISSEKI.iKyotenEb = 34 AND JISSEKI.nRiyoushaIDNo = RIYOUSHA.nIDNo "
          " AND JISSEKI.tServicyDayStart >= 'LOW'  AND JISSEKI.tServicyDayStart < 'HIGH' "
          " AND RIYOUSHA.nIDNo = 501 AND JISSEKI.nStaffIDNo = 8 AND RIYOUSHA.iHoken = 2"
          " ORDER BY JISSEKI.nStaffIDNo");
}

TEST_CASE("all filters without a period still leave out ended patients")
{
    CHECK(tailOf(kKanjaDataNoPeriod, allFilters()) ==
          " AND RIYOUSHA.tExpireDay IS NULL  "
          " AND RIYOUSHA.nIDNo = 501 AND RIYOUSHA.nTantou = 8 AND RIYOUSHA.iHoken = 2 ORDER BY RIYOUSHA.nTantou");
}

TEST_CASE("a patient, staff member or insurance of 0 or below adds no condition")
{
    for (const std::int32_t number : {0, -1, -77}) {
        ExtractionQuery query;
        query.iTrustKind = 1;
        query.nKanjaNo = number;
        query.nStaffNo = number;
        query.iHokenIndex = static_cast<std::int16_t>(number);
        CAPTURE(number);
        CHECK(tailOf(kKanjaDataNoPeriod, query) == " AND RIYOUSHA.tExpireDay IS NULL   ORDER BY RIYOUSHA.nTantou");
    }
}

TEST_CASE("each filter works without the others")
{
    struct Row {
        std::int32_t nKanjaNo, nStaffNo;
        std::int16_t iHokenIndex;
        std::string tail;
    };
    for (const Row &row : {Row{1, 0, 0, " AND RIYOUSHA.nIDNo = 1 ORDER BY RIYOUSHA.nTantou"},
                           Row{0, 1, 0, " AND RIYOUSHA.nTantou = 1 ORDER BY RIYOUSHA.nTantou"},
                           Row{0, 0, 1, " AND RIYOUSHA.iHoken = 1 ORDER BY RIYOUSHA.nTantou"},
                           Row{2147483647, 0, 0, " AND RIYOUSHA.nIDNo = 2147483647 ORDER BY RIYOUSHA.nTantou"}}) {
        ExtractionQuery query;
        query.iTrustKind = 1;
        query.nKanjaNo = row.nKanjaNo;
        query.nStaffNo = row.nStaffNo;
        query.iHokenIndex = row.iHokenIndex;
        CAPTURE(row.tail);
        CHECK(tailOf(kKanjaDataNoPeriod, query) == " AND RIYOUSHA.tExpireDay IS NULL  " + row.tail);
    }
}

TEST_CASE("only planned data by month reads the check box of ended patients")
{
    struct Row {
        const ExtractionRule *rule;
        bool looks;
    };
    for (const Row &row :
         {Row{&kKanjaDataMonth, true}, Row{&kKanjaDataMonth_Jisseki, false}, Row{&kKanjaDataDay, false},
          Row{&kKanjaDataDay_Jisseki, false}, Row{&kKanjaDataNoPeriod, false}}) {
        ExtractionQuery query;
        query.iExpireKind = 0;
        const std::string unticked = extractionSql(*row.rule, query);
        query.iExpireKind = 1;
        const std::string ticked = extractionSql(*row.rule, query);
        query.iExpireKind = 2; // any value except 0 counts as ticked
        CHECK(extractionSql(*row.rule, query) == ticked);

        CAPTURE(row.rule->procedure);
        CHECK((unticked.find(" AND RIYOUSHA.tExpireday is NULL ORDER BY ") != std::string::npos) == row.looks);
        CHECK(ticked.find("tExpireday is NULL") == std::string::npos);
        CHECK((ticked == unticked) == !row.looks);
    }
}

TEST_CASE("only report kind 1 without a period selects a single row")
{
    struct Row {
        const ExtractionRule *rule;
        std::int16_t iPrintKind;
        bool single;
    };
    for (const Row &row :
         {Row{&kKanjaDataNoPeriod, 0, false}, Row{&kKanjaDataNoPeriod, 1, true}, Row{&kKanjaDataNoPeriod, 2, false},
          Row{&kKanjaDataMonth, 1, false}, Row{&kKanjaDataMonth_Jisseki, 1, false}, Row{&kKanjaDataDay, 1, false},
          Row{&kKanjaDataDay_Jisseki, 1, false}}) {
        ExtractionQuery query;
        query.iPrintKind = row.iPrintKind;
        const std::string sql = extractionSql(*row.rule, query);

        CAPTURE(row.rule->procedure);
        CAPTURE(row.iPrintKind);
        CHECK(sql.starts_with("SELECT TOP 1 HOKENJA.cName as HokenName, RIYOUSHA.cName AS RiyouName, "
                              "RIYOUSHA.cAdress1 as RiyouAdd, RIYOUSHA.nIDNo,  ") == row.single);
        CHECK((sql.find("TOP") != std::string::npos) == row.single);
    }
}

TEST_CASE("any receiver other than 1 is the agent")
{
    for (const std::int16_t iTrustKind : std::initializer_list<std::int16_t>{0, 2, 3}) {
        ExtractionQuery query;
        query.iTrustKind = iTrustKind;
        CAPTURE(iTrustKind);
        CHECK(extractionSql(kKanjaDataNoPeriod, query).find(" AND CORP.nIDNo = RIYOUSHA.nDairiID ") !=
              std::string::npos);
    }
}

} // namespace inin
