#include "search/search_sql.h"
#include "support/fake_platform.h"

#include <doctest/doctest.h>

using namespace inin;

namespace {

/// A filter without any condition, including ended patients, so that one condition can be tested alone.
SearchFilter anything()
{
    SearchFilter filter;
    filter.includeEnded = 1;
    return filter;
}

SearchFilter with(void (*change)(SearchFilter &))
{
    SearchFilter filter = anything();
    change(filter);
    return filter;
}

struct Case {
    const char *what;
    SearchFilter filter;
    std::string sql;
};

void setAll(SearchFilter &filter)
{
    filter.name = "佐藤";
    filter.kana = "ｻﾄｳ";
    filter.telephone = "06-";
    filter.includeEnded = 0;
    filter.staffNumber = 11;
    filter.staffName = "鈴木";
    filter.kind = kAcupuncture;
    filter.number = 123456;
}

} // namespace

TEST_CASE("the patient statement has these conditions for each filter alone, for none and for all")
{
    FakeWorld world; // branch 1, 2 on 2024/06/15
    const Case cases[] = {
        {"none", anything(),
         "SELECT   iKyotenCd, iKyotenEb,  nIDNo, cName, cNameKana, cNameRyaku,  cTelNo, cAdress1, cAdress2  FROM "
         "RIYOUSHA  WHERE nIDNo >= 0  AND iKyotenCd = 1 AND iKyotenEb = 2 ORDER BY nIDNo "},
        {"name", with([](SearchFilter &f) { f.name = "佐藤 "; }),
         "SELECT   iKyotenCd, iKyotenEb,  nIDNo, cName, cNameKana, cNameRyaku,  cTelNo, cAdress1, cAdress2  FROM "
         "RIYOUSHA  WHERE nIDNo >= 0  AND iKyotenCd = 1 AND iKyotenEb = 2 AND cName LIKE '%佐藤 %' ORDER BY nIDNo "},
        {"kana", with([](SearchFilter &f) { f.kana = "ｻﾄｳ"; }),
         "SELECT   iKyotenCd, iKyotenEb,  nIDNo, cName, cNameKana, cNameRyaku,  cTelNo, cAdress1, cAdress2  FROM "
         "RIYOUSHA  WHERE nIDNo >= 0  AND iKyotenCd = 1 AND iKyotenEb = 2 AND cNameKana LIKE '%ｻﾄｳ%' ORDER BY nIDNo "},
        {"telephone", with([](SearchFilter &f) { f.telephone = "06-"; }),
         "SELECT   iKyotenCd, iKyotenEb,  nIDNo, cName, cNameKana, cNameRyaku,  cTelNo, cAdress1, cAdress2  FROM "
         "RIYOUSHA  WHERE nIDNo >= 0  AND iKyotenCd = 1 AND iKyotenEb = 2 AND cTelNo LIKE '%06-%' ORDER BY nIDNo "},
        {"ended left out", with([](SearchFilter &f) { f.includeEnded = 0; }),
         "SELECT   iKyotenCd, iKyotenEb,  nIDNo, cName, cNameKana, cNameRyaku,  cTelNo, cAdress1, cAdress2  FROM "
         "RIYOUSHA  WHERE nIDNo >= 0  AND iKyotenCd = 1 AND iKyotenEb = 2 AND (tExpireDay IS NULL  OR tExpireDay >= "
         "'2024/06/15' OR ('2024/04' <= SUBSTRING(CONVERT(VARCHAR, tExpireDay, 111),1,7))) ORDER BY nIDNo "},
        {"staff", with([](SearchFilter &f) { f.staffNumber = 11; }),
         "SELECT   iKyotenCd, iKyotenEb,  nIDNo, cName, cNameKana, cNameRyaku,  cTelNo, cAdress1, cAdress2  FROM "
         "RIYOUSHA  WHERE nIDNo >= 0  AND iKyotenCd = 1 AND iKyotenEb = 2 AND (nTantou=11  OR nTantou2=11  OR "
         "nTantou3=11  OR nTantou4=11  OR nTantou5=11)  ORDER BY nIDNo "},
        {"massage", with([](SearchFilter &f) { f.kind = 0; }),
         "SELECT   iKyotenCd, iKyotenEb,  nIDNo, cName, cNameKana, cNameRyaku,  cTelNo, cAdress1, cAdress2  FROM "
         "RIYOUSHA  WHERE nIDNo >= 0  AND iKyotenCd = 1 AND iKyotenEb = 2 AND iSejutsuKubun=0 ORDER BY nIDNo "},
        {"acupuncture", with([](SearchFilter &f) { f.kind = 1; }),
         "SELECT   iKyotenCd, iKyotenEb,  nIDNo, cName, cNameKana, cNameRyaku,  cTelNo, cAdress1, cAdress2  FROM "
         "RIYOUSHA  WHERE nIDNo >= 0  AND iKyotenCd = 1 AND iKyotenEb = 2 AND iSejutsuKubun=1 ORDER BY nIDNo "},
        {"number", with([](SearchFilter &f) { f.number = 123456; }),
         "SELECT   iKyotenCd, iKyotenEb,  nIDNo, cName, cNameKana, cNameRyaku,  cTelNo, cAdress1, cAdress2  FROM "
         "RIYOUSHA  WHERE nIDNo >= 0  AND iKyotenCd = 1 AND iKyotenEb = 2 AND nIDNo=123456 ORDER BY nIDNo "},
        {"negative numbers", with([](SearchFilter &f) { f.number = f.staffNumber = -5; }),
         "SELECT   iKyotenCd, iKyotenEb,  nIDNo, cName, cNameKana, cNameRyaku,  cTelNo, cAdress1, cAdress2  FROM "
         "RIYOUSHA  WHERE nIDNo >= 0  AND iKyotenCd = 1 AND iKyotenEb = 2 ORDER BY nIDNo "},
        {"all", with(setAll),
         "SELECT   iKyotenCd, iKyotenEb,  nIDNo, cName, cNameKana, cNameRyaku,  cTelNo, cAdress1, cAdress2  FROM "
         "RIYOUSHA  WHERE nIDNo >= 0  AND iKyotenCd = 1 AND iKyotenEb = 2 AND cName LIKE '%佐藤%' AND cNameKana LIKE "
         "'%ｻﾄｳ%' AND cTelNo LIKE '%06-%' AND (tExpireDay IS NULL  OR tExpireDay >= '2024/06/15' OR ('2024/04' <= "
         "SUBSTRING(CONVERT(VARCHAR, tExpireDay, 111),1,7))) AND (nTantou=11  OR nTantou2=11  OR nTantou3=11  OR "
         "nTantou4=11  OR nTantou5=11)  AND iSejutsuKubun=1 AND nIDNo=123456 ORDER BY nIDNo "},
    };
    for (const Case &row : cases) {
        CAPTURE(row.what);
        CHECK(patientSearchSql(world.app, row.filter, "2024/04") == row.sql);
    }
}

TEST_CASE("the patient statement writes today in the system's date format")
{
    FakeWorld world;
    world.app.regional = Regional{"d.M.yy"};
    CHECK(
        patientSearchSql(world.app, SearchFilter{}, "9999/12").find(" OR tExpireDay >= '15.6.24' OR ('9999/12' <= ") !=
        std::string::npos);
}

TEST_CASE("the staff statement has these conditions for each filter alone, for none and for all")
{
    const FakeWorld world;
    const Case cases[] = {
        {"none", anything(),
         " select      * from      (         select              nIDNo             ,iKyotenCd             ,iKyotenEb"
         "             ,cName             ,cNameRyaku              ,cNameKana          from              STAFF where "
         "iKyotenCd = 1 and iKyotenEb = 2      )staff order by     nIDNo    ,cName "},
        {"name", with([](SearchFilter &f) { f.name = "佐藤"; }),
         " select      * from      (         select              nIDNo             ,iKyotenCd             ,iKyotenEb"
         "             ,cName             ,cNameRyaku              ,cNameKana          from              STAFF where "
         "cName LIKE '%佐藤%' and iKyotenCd = 1 and iKyotenEb = 2      )staff order by     nIDNo    ,cName "},
        {"kana", with([](SearchFilter &f) { f.kana = "ｻﾄｳ"; }),
         " select      * from      (         select              nIDNo             ,iKyotenCd             ,iKyotenEb"
         "             ,cName             ,cNameRyaku              ,cNameKana          from              STAFF where "
         "cNameKana LIKE '%ｻﾄｳ%' and iKyotenCd = 1 and iKyotenEb = 2      )staff order by     nIDNo    ,cName "},
        {"ended left out", with([](SearchFilter &f) { f.includeEnded = 0; }),
         " select      * from      (         select              nIDNo             ,iKyotenCd             ,iKyotenEb"
         "             ,cName             ,cNameRyaku              ,cNameKana          from              STAFF where "
         "(iChusiFlg = 0 OR iChusiFlg IS NULL) and iKyotenCd = 1 and iKyotenEb = 2      )staff order by     nIDNo    "
         ",cName "},
        {"number", with([](SearchFilter &f) { f.number = 11; }),
         " select      * from      (         select              nIDNo             ,iKyotenCd             ,iKyotenEb"
         "             ,cName             ,cNameRyaku              ,cNameKana          from              STAFF where "
         "nIDNo = 11 and iKyotenCd = 1 and iKyotenEb = 2      )staff order by     nIDNo    ,cName "},
        {"all", with(setAll),
         " select      * from      (         select              nIDNo             ,iKyotenCd             ,iKyotenEb"
         "             ,cName             ,cNameRyaku              ,cNameKana          from              STAFF where "
         "cName LIKE '%佐藤%' and cNameKana LIKE '%ｻﾄｳ%' and (iChusiFlg = 0 OR iChusiFlg IS NULL) and nIDNo = 123456 "
         "and iKyotenCd = 1 and iKyotenEb = 2      )staff order by     nIDNo    ,cName "},
    };
    for (const Case &row : cases) {
        CAPTURE(row.what);
        CHECK(staffSearchSql(world.app, row.filter, -1) == row.sql);
    }
}

TEST_CASE("a consultation other than -1, even number 0, joins its staff to the staff statement")
{
    const FakeWorld world;
    const std::string joined =
        " select      * from      (         select              nIDNo             ,iKyotenCd             ,iKyotenEb"
        "             ,cName             ,cNameRyaku              ,cNameKana          from              STAFF where "
        "(iChusiFlg = 0 OR iChusiFlg IS NULL) and iKyotenCd = 1 and iKyotenEb = 2      )staff      left join      (      "
        "   select              nIDNo as SoudanID             ,iStaffKyotenCd             ,iStaffKyotenEb             "
        " ,nStaffIDNo          from              SOUDAN_TANTOU         where              iStaffKyotenCd = 1         "
        "and  iStaffKyotenEb = 2      )soudan      on          staff.nIDNo = soudan.nStaffIDNo      and "
        "staff.iKyotenCd = soudan.iStaffKyotenCd      and staff.iKyotenEb = soudan.iStaffKyotenEb where      "
        "soudan.SoudanID = ";
    CHECK(staffSearchSql(world.app, SearchFilter{}, 77) == joined + "77 order by     nIDNo    ,cName ");
    CHECK(staffSearchSql(world.app, SearchFilter{}, 0) == joined + "0 order by     nIDNo    ,cName ");
}

TEST_CASE("both windows read the staff of the branch by this statement")
{
    const FakeWorld world;
    CHECK(staffListSql(world.app) == "SELECT nIDNo, cName, cNameRyaku  FROM STAFF  WHERE nIDNo >= 0  AND iKyotenCd = 1 "
                                     "AND iKyotenEb = 2 ORDER BY nIDNo ");
}

TEST_CASE("a staff number is checked by this statement")
{
    const FakeWorld world;
    CHECK(staffCheckSql(world.app, 11) ==
          "SELECT cName, iChusiFlg FROM STAFF  WHERE nIDNo = 11 AND iKyotenCd = 1 AND iKyotenEb = 2");
    CHECK(staffCheckSql(world.app, -3) ==
          "SELECT cName, iChusiFlg FROM STAFF  WHERE nIDNo = -3 AND iKyotenCd = 1 AND iKyotenEb = 2");
}
