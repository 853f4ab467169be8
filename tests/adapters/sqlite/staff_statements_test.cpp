#include "adapters/sqlite/practice_database.h"

#include <doctest/doctest.h>

#include <string>
#include <vector>

using namespace inin;
using namespace inin::sqlite;

namespace {

using Texts = std::vector<std::string>;

const std::string kStaffBranch = " iKyotenCd = 1 and iKyotenEb = 1";
const std::string kStaffOrder = "  order by      nIDNo";

/// The select list of the staff grid, in which some names appear twice.
const std::string kStaffGrid =
    "  select      STAFF.cAdress1 as cAdress1     ,STAFF.cAdress2 as cAdress2     ,STAFF.cFaxNo as cFaxNo"
    "     ,STAFF.cKaiNo as cKaiNo     ,STAFF.cMobNo as cMobNo     ,STAFF.cName as cName     ,STAFF.cNameKana as cNameKana"
    "     ,STAFF.cTelNo as cTelNo     ,STAFF.cYubinNo as cYubinNo     ,STAFF.iChusiFlg as iChusiFlg"
    "     ,STAFF.nIDNo as nIDNo     ,STAFF.cTourokuNo     ,STAFF.cSmileCd     ,STAFF.cNameKana     ,STAFF.tBirthday"
    "     ,STAFF.iSexKubun     ,STAFF.tNyusyaDay     ,STAFF.tNyusyaDay     ,STAFF.tKisanDay     ,STAFF.cTourokuNo"
    "     ,STAFF.cTourokuNo2     ,STAFF.cEmail     ,STAFF.iTecAbi     ,STAFF.iSpeechAbi     ,STAFF.cPhysical"
    "     ,STAFF.iClaimRate     ,STAFF.cSikaku     ,STAFF.iVehicleType     ,STAFF.cVehicleNumber"
    "     ,STAFF.cVehicleComment     ,STAFF.cEmployeeNumber     ,STAFF.iLookAllRiyousya     ,STAFF.iWebLicense"
    "     ,STAFF.iLookCharge     ,STAFF.cKaiNo2     ,STAFF.cKaiNo3     ,STAFF.iStaffHokenTouroku     ,STAFF.cShikaiNo"
    "     ,STAFF.cShikaiNo_Josei     ,STAFF.iContractType     ,STAFF.nLat     ,STAFF.nLon     ,STAFF.cIninTourokuNo"
    "     ,STAFF.iIninTourokuChk     ,STAFF.iKanriSekininFlg";
const std::string kFrom = "  FROM      STAFF";

/// The columns of the staff record that the grid does not have.
const std::string kReadMore =
    "     ,STAFF.cNameRyaku     ,STAFF.cRken     ,STAFF.cRno     ,STAFF.iShikakuKubun     ,STAFF.iSyokushuKubun"
    "     ,STAFF.iYaku     ,STAFF.tKousinDay     ,STAFF.tRday     ,STAFF.tTourokuDay     ,STAFF.cPcName"
    "     ,STAFF.tUpDateTime";

std::string oneOnly(const std::string &select)
{
    return "  select TOP 1" + select.substr(std::string("  select").size());
}

const std::string kStaffInsert =
    " insert into    STAFF (      iKyotenCd     ,iKyotenEb     ,cAdress1     ,cAdress2     ,cFaxNo     ,cKaiNo     ,cKaiNo2"
    "     ,cKaiNo3     ,cMobNo     ,cName     ,cNameKana     ,cNameRyaku     ,cRken     ,cRno     ,cTelNo     ,cYubinNo"
    "     ,iChusiFlg     ,iSexKubun     ,iShikakuKubun     ,iSyokushuKubun     ,iYaku     ,nIDNo     ,cEmail     ,iTecAbi"
    "     ,iSpeechAbi     ,cPhysical     ,iClaimRate     ,cSikaku     ,cTourokuNo     ,cSmileCd     ,tBirthday"
    "     ,tKousinDay     ,tNyusyaDay     ,tKisanDay     ,tRday     ,tTourokuDay     ,cPcName     ,tUpDateTime"
    "     ,cTourokuNo2     ,iVehicleType     ,cVehicleNumber     ,cVehicleComment     ,cEmployeeNumber"
    "     ,iLookAllRiyousya     ,iWebLicense     ,iLookCharge     ,iStaffHokenTouroku     ,cShikaiNo     ,cShikaiNo_Josei"
    "     ,iContractType     ,nLat     ,nLon     ,cIninTourokuNo     ,iIninTourokuChk     ,iKanriSekininFlg )values( "
    "      1     ,1     ,'住所'     ,''     ,''     ,''     ,''     ,''     ,''     ,'新人六子'     ,'ｼﾝｼﾞﾝ'     ,'新'     ,''"
    "     ,''     ,'087-6'     ,'760-0001'     ,0     ,-1     ,-1     ,-1     ,-1     ,6     ,''     ,0     ,0     ,''"
    "     ,0     ,''     ,''     ,''     ,'1990/2/28'     ,Null     ,'20240401'     ,Null     ,Null     ,Null     ,'PC1'"
    "     ,GetDate()     ,''     ,0     ,Null     ,Null     ,Null     ,0     ,0     ,0     ,0     ,''     ,''     ,0     ,0"
    "     ,0     ,''     ,0     ,0 ) ";

} // namespace

TEST_CASE_FIXTURE(PracticeSession, "the staff grid lists the active staff by number, and NULL means active")
{
    const std::string active = kStaffGrid + kFrom + " where     (iChusiFlg = 0 OR iChusiFlg IS NULL)";
    CHECK(session.rows(active + " and" + kStaffBranch + kStaffOrder, {"nIDNo", "cName", "iChusiFlg"}) ==
          Texts{"3|施術三子|0", "4|施術四郎|NULL"});
    CHECK(session.rows(active + " and     nIDNo = 4 and" + kStaffBranch + kStaffOrder, {"nIDNo"}) == Texts{"4"});
}

TEST_CASE_FIXTURE(PracticeSession, "the staff grid without the condition for active staff lists the stopped staff too")
{
    CHECK(session.rows(kStaffGrid + kFrom + " where" + kStaffBranch + kStaffOrder,
                       {"nIDNo", "tBirthday", "tNyusyaDay"}) ==
          Texts{"3|<1980-05-01 00:00:00>|NULL", "4|NULL|NULL", "5|NULL|NULL"});
    CHECK(session.rows(kStaffGrid + kFrom + " where iKyotenCd = 7 and iKyotenEb = 7" + kStaffOrder, {"nIDNo"}).empty());
}

TEST_CASE_FIXTURE(PracticeSession, "the staff grid filters by parts of the name and kana")
{
    CHECK(session.rows(kStaffGrid + kFrom + " where     cName LIKE '%三子%' and     cNameKana LIKE '%ｾｼﾞｭﾂ%' and" +
                           kStaffBranch + kStaffOrder,
                       {"cName"}) == Texts{"施術三子"});
    CHECK(session
              .rows(kStaffGrid + kFrom + " where     cNameKana LIKE '%せしゅつ%' and" + kStaffBranch + kStaffOrder,
                    {"cName"})
              .empty());
}

TEST_CASE_FIXTURE(PracticeSession, "a staff member is read by number and branch, or by number and name in all branches")
{
    const std::string read = oneOnly(kStaffGrid) + kReadMore + kFrom + " where    nIDNo = 3";
    CHECK(session.rows(read + " and iKyotenCd = 1 and iKyotenEb = 1" + kStaffOrder,
                       {"cName", "cNameRyaku", "cRken", "iYaku"}) == Texts{"施術三子|三子|NULL|NULL"});
    CHECK(session.rows(read + " AND cName = '別拠点の者' " + kStaffOrder, {"cName"}) == Texts{"別拠点の者"});
    CHECK(session.rows(read + kStaffOrder, {"nIDNo"}) == Texts{"3"}); // two branches have a 3
}

TEST_CASE_FIXTURE(PracticeSession, "the identity check reads all rows of a staff number in the branch")
{
    CHECK(session.rows(kStaffGrid + kReadMore + kFrom + " where    nIDNo = 5 and iKyotenCd = 1 and iKyotenEb = 1" +
                           kStaffOrder,
                       {"cName", "iChusiFlg"}) == Texts{"中止五郎|1"});
}

TEST_CASE_FIXTURE(PracticeSession, "the staff of all branches are listed with the names of their branches")
{
    const std::string sql = kStaffGrid + "     ,STAFF.iKyotenCd     ,STAFF.iKyotenEb     ,KYOTEN.cKyotenName" + kFrom +
                            "  LEFT JOIN KYOTEN ON      KYOTEN.iKyotenCd = STAFF.iKyotenCd"
                            "  AND KYOTEN.iKyotenEb = STAFF.iKyotenEb";
    const std::string order = "  order by      STAFF.iKyotenCd, STAFF.iKyotenEb, STAFF.nIDNo";
    const Texts fields{"iKyotenCd", "iKyotenEb", "nIDNo", "cKyotenName"};
    file.run("DELETE FROM KYOTEN WHERE iKyotenEb = 2");
    CHECK(session.rows(sql + " where     (STAFF.iChusiFlg = 0 OR STAFF.iChusiFlg IS NULL)" + order, fields) ==
          Texts{"1|1|3|高松", "1|1|4|高松", "1|2|3|NULL"});
    CHECK(session.rows(
              sql + " where     STAFF.nIDNo = 3 and     STAFF.cName LIKE '%別%' and     STAFF.cNameKana LIKE '%ベツ%'" +
                  order,
              fields) == Texts{"1|2|3|NULL"});
    CHECK(session.rows(sql + order, {"nIDNo"}) == Texts{"3", "4", "5", "3"});
}

TEST_CASE_FIXTURE(PracticeSession, "the duplicate check counts a name with other numbers in any width")
{
    const auto others = [&](const std::string &number, const std::string &name) {
        return session.rows("  SELECT      COUNT(nIDNo) AS Cnt  FROM      STAFF  WHERE nIDNo != " + number +
                                " AND        cName = '" + name + "' ",
                            {"Cnt"});
    };
    CHECK(others("9", "施術三子") == Texts{"1"});
    CHECK(others("3", "施術三子") == Texts{"0"});
    CHECK(others("9", "別拠点の者 ") == Texts{"1"});
}

TEST_CASE_FIXTURE(PracticeSession, "the highest staff number is that of the branch or of its prefix")
{
    const std::string sql =
        "  select      max(STAFF.nIDNo) as nIDNo  FROM      STAFF  where iKyotenCd = 1  and iKyotenEb = 1";
    CHECK(session.rows(sql, {"nIDNo"}) == Texts{"5"});
    CHECK(session.rows(sql + "  and LEFT(nIDNo,3) = '101'", {"nIDNo"}) == Texts{"NULL"});
    file.run("INSERT INTO STAFF (iKyotenCd, iKyotenEb, nIDNo) VALUES (1, 1, 1010007), (1, 1, 1020009)");
    CHECK(session.rows(sql + "  and LEFT(nIDNo,3) = '101'", {"nIDNo"}) == Texts{"1010007"});
}

TEST_CASE_FIXTURE(PracticeSession, "a staff member is inserted with dates in any format or NULL")
{
    CHECK(session.execute(kStaffInsert) == 1);
    CHECK(session.rows(oneOnly(kStaffGrid) + kReadMore + kFrom + " where    nIDNo = 6" + kStaffOrder,
                       {"cName", "tBirthday", "tNyusyaDay", "tKousinDay", "cVehicleNumber", "iSexKubun", "cPcName"}) ==
          Texts{"新人六子|<1990-02-28 00:00:00>|<2024-04-01 00:00:00>|NULL|NULL|-1|PC1"});
}

TEST_CASE_FIXTURE(PracticeSession,
                  "a staff member is updated by number and branch, and an empty vehicle becomes an empty text")
{
    const std::string update =
        " update      STAFF set       cAdress1 = '転居先'     ,cName = '施術三子'     ,iChusiFlg =  1     ,nIDNo =  3"
        "     ,tBirthday =  '1981/5/2'     ,tKousinDay =  Null     ,cPcName = 'PC2'     ,tUpDateTime = GetDate()"
        "     ,cVehicleNumber = ''     ,iKanriSekininFlg =  1 where    nIDNo = 3";
    CHECK(session.execute(update + " and iKyotenCd = 1 and iKyotenEb = 1") == 1);
    CHECK(file.value("SELECT cAdress1 || tBirthday || cVehicleNumber || iKanriSekininFlg FROM STAFF WHERE nIDNo = 3"
                     " AND iKyotenEb = 1") == "転居先1981-05-02 00:00:001");
    CHECK(session.execute(update) == 2); // without the branch, both with that number
}

TEST_CASE_FIXTURE(PracticeSession, "a staff member is deleted by number and branch")
{
    CHECK(session.execute(" delete from      STAFF where    nIDNo = 3 and iKyotenCd = 1 and iKyotenEb = 1") == 1);
    CHECK(file.value("SELECT group_concat(nIDNo || '-' || iKyotenEb) FROM (SELECT * FROM STAFF ORDER BY nIDNo)") ==
          "3-2,4-1,5-1");
}
