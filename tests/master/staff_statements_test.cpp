#include "master/staff_table.h"

#include "master/staff_texts.h"
#include "master/table_fixture.h"

using namespace inin;

namespace {

using StaffFixture = TableFixture<cT_STAFF>;

// The list of a single read as sent: that of the grid followed by thirteen names.
const std::string kStaffReadList =
    kStaffGridList + "     ,STAFF.cKaiNo2     ,STAFF.cKaiNo3     ,STAFF.cNameRyaku     ,STAFF.cRken     ,STAFF.cRno"
                     "     ,STAFF.iShikakuKubun     ,STAFF.iSyokushuKubun     ,STAFF.iYaku     ,STAFF.tKousinDay"
                     "     ,STAFF.tRday     ,STAFF.tTourokuDay     ,STAFF.cPcName     ,STAFF.tUpDateTime";

constexpr const char *kSetClause =
    " set       cAdress1 = '高松市番町1'     ,cAdress2 = ''     ,cFaxNo = '087-1'     ,cKaiNo = '会1'"
    "     ,cKaiNo2 = '会2'     ,cKaiNo3 = '会3'     ,cMobNo = '090-1'     ,cName = '山田太郎'"
    "     ,cNameKana = 'ﾔﾏﾀﾞ'     ,cNameRyaku = '山'     ,cRken = '37'     ,cRno = '99'     ,cTelNo = '087-2'"
    "     ,cYubinNo = '760-0001'     ,iChusiFlg =  1     ,iSexKubun =  -1     ,iShikakuKubun =  2"
    "     ,iSyokushuKubun =  3     ,iYaku =  4     ,nIDNo =  12     ,cEmail = 'a@b'     ,iTecAbi =  5"
    "     ,iSpeechAbi =  6     ,cPhysical = '良'     ,iClaimRate =  7     ,cSikaku = 'あん摩'     ,cTourokuNo = '登1'"
    "     ,cSmileCd = 'S1'     ,tBirthday =  '1980/5/1'     ,tKousinDay =  Null     ,tNyusyaDay =  '2010/4/1'"
    "     ,tKisanDay =  Null     ,tRday =  Null     ,tTourokuDay =  Null     ,cPcName = 'RECEPTION1'"
    "     ,tUpDateTime = GetDate()     ,cTourokuNo2 = '登2'     ,iVehicleType =  8     ,cVehicleNumber = ''"
    "     ,cVehicleComment = ''     ,cEmployeeNumber = ''     ,iLookAllRiyousya =  9     ,iWebLicense =  10"
    "     ,iLookCharge =  11     ,iStaffHokenTouroku =  12     ,cShikaiNo = '市1'     ,cShikaiNo_Josei = '市2'"
    "     ,iContractType =  13     ,nLat =  34340000     ,nLon =  134040000     ,cIninTourokuNo = '委1'"
    "     ,iIninTourokuChk =  14     ,iKanriSekininFlg =  15";

/// A row with a value in each column except five dates and the three texts that an insert writes as Null.
cD_STAFF yamada()
{
    cD_STAFF row;
    row.iKyotenId = 77;
    row.iKyotenEb = 88;
    row.cAdress1 = "高松市番町1";
    row.cFaxNo = "087-1";
    row.cKaiNo = "会1";
    row.cKaiNo2 = "会2";
    row.cKaiNo3 = "会3";
    row.cMobNo = "090-1";
    row.cName = "山田太郎";
    row.cNameKana = "ﾔﾏﾀﾞ";
    row.cNameRyaku = "山";
    row.cRken = "37";
    row.cRno = "99";
    row.cTelNo = "087-2";
    row.cYubinNo = "760-0001";
    row.iChusiFlg = 1;
    row.iShikakuKubun = 2;
    row.iSyokushuKubun = 3;
    row.iYaku = 4;
    row.nIDNo = 12;
    row.cEmail = "a@b";
    row.iTecAbi = 5;
    row.iSpeechAbi = 6;
    row.cPhysical = "良";
    row.iClaimRate = 7;
    row.cSikaku = "あん摩";
    row.cTourokuNo = "登1";
    row.cSmileCd = "S1";
    row.sBirthday = "1980/5/1";
    row.sNyusyaDay = "2010/4/1";
    row.cPcName = "OTHER";
    row.tUpDateTime = "2000/1/1";
    row.cTourokuNo2 = "登2";
    row.iVehicleType = 8;
    row.iLookAllRiyousya = 9;
    row.iWebLicense = 10;
    row.iLookCharge = 11;
    row.iStaffHokenTouroku = 12;
    row.cShikaiNo = "市1";
    row.cShikaiNo_Josei = "市2";
    row.iContractType = 13;
    row.nLat = 34340000;
    row.nLon = 134040000;
    row.cIninTourokuNo = "委1";
    row.iIninTourokuChk = 14;
    row.iKanriSekininFlg = 15;
    row.cKyotenName = "丸亀";
    return row;
}

} // namespace

TEST_CASE("one staff member is read by number and branch, or by number and name if numbers span the branches")
{
    struct Row {
        const char *claim;
        std::int32_t iKyotenIdMode;
        const char *cName;
        const char *condition;
    };
    const Row rows[] = {
        {"in this branch the name does not count", 0, "山田",
         " where    nIDNo = 12 and iKyotenCd = 1 and iKyotenEb = 2"},
        {"over all branches without a name", 1, "", " where    nIDNo = 12"},
        {"over all branches with a name", 1, "山田", " where    nIDNo = 12 AND cName = '山田' "},
        {"any other mode is a set flag too", 2, "", " where    nIDNo = 12"},
    };
    for (const Row &row : rows) {
        CAPTURE(row.claim);
        StaffFixture staff;
        staff.app.iKyotenIdMode = row.iKyotenIdMode;
        cD_STAFF condition;
        condition.nIDNo = 12;
        condition.cName = row.cName;
        CHECK(staff->iDataRead(&condition) == iGood);
        CHECK(staff.database.log == Log{"sql 1   select TOP 1" + kStaffReadList + "  FROM      STAFF" +
                                        std::string(row.condition) + "  order by      nIDNo"});
    }
}

TEST_CASE("the read of one staff member accepts any number, even a fresh row's -1")
{
    StaffFixture staff;
    const cD_STAFF fresh;
    CHECK(staff->iDataRead(&fresh) == iGood);
    CHECK(staff.database.log == Log{"sql 1   select TOP 1" + kStaffReadList +
                                    "  FROM      STAFF where    nIDNo = -1 and iKyotenCd = 1"
                                    " and iKyotenEb = 2  order by      nIDNo"});
}

TEST_CASE("the check of a number reads all with that number in this branch, whatever the mode and the name")
{
    for (const std::int32_t mode : {0, 1}) {
        CAPTURE(mode);
        StaffFixture staff;
        staff.app.iKyotenIdMode = mode;
        cD_STAFF condition;
        condition.nIDNo = 12;
        condition.cName = "山田";
        CHECK(staff->iDataIdentChk(&condition) == iGood);
        CHECK(staff.database.log == Log{"sql 1   select" + kStaffReadList +
                                        "  FROM      STAFF where    nIDNo = 12 and iKyotenCd = 1"
                                        " and iKyotenEb = 2  order by      nIDNo"});
    }
}

TEST_CASE("a name is counted over the whole table, except for the given number")
{
    StaffFixture staff;
    staff.database.results.push_back(rowsOf({"Cnt"}, {{{"Cnt", std::int32_t{3}}}}));
    CHECK(staff->iChkStaffName(12, "山田 太郎") == 3);
    CHECK(staff.database.log == Log{"sql 1   SELECT      COUNT(nIDNo) AS Cnt  FROM      STAFF  WHERE nIDNo != 12 AND"
                                    "        cName = '山田 太郎' "});
}

TEST_CASE("the highest number of a branch is queried by the branch")
{
    StaffFixture staff;
    staff.database.results.push_back(rowsOf({"nIDNo"}, {{{"nIDNo", std::int32_t{1020045}}}}));
    std::int32_t nMaxNo = -5;
    CHECK(staff->iGetMaxIDNo(nMaxNo) == iGood);
    CHECK(nMaxNo == 1020045);
    CHECK(staff.database.log == Log{"sql 1   select      max(STAFF.nIDNo) as nIDNo  FROM      STAFF"
                                    "  where iKyotenCd = 1  and iKyotenEb = 2"});
}

TEST_CASE("if numbers span the branches, the highest one begins with the branch")
{
    struct Row {
        const char *claim;
        std::int16_t iKyotenCd;
        std::int16_t iKyotenEb;
        const char *condition;
    };
    const Row rows[] = {
        {"the code as it is, the sub-code with two digits", 1, 2,
         "  where iKyotenCd = 1  and iKyotenEb = 2  and LEFT(nIDNo,3) = '102'"},
        {"two digits each", 12, 34, "  where iKyotenCd = 12  and iKyotenEb = 34  and LEFT(nIDNo,4) = '1234'"},
        {"a sub-code of three digits", 5, 123,
         "  where iKyotenCd = 5  and iKyotenEb = 123  and LEFT(nIDNo,4) = '5123'"},
        {"zeros", 0, 0, "  where iKyotenCd = 0  and iKyotenEb = 0  and LEFT(nIDNo,3) = '000'"},
    };
    for (const Row &row : rows) {
        CAPTURE(row.claim);
        StaffFixture staff;
        staff.app.iKyotenIdMode = 1;
        staff.app.iKyotenCd = row.iKyotenCd;
        staff.app.iKyotenEb = row.iKyotenEb;
        staff.database.results.push_back(rowsOf({"nIDNo"}, {{{"nIDNo", std::int32_t{9}}}}));
        std::int32_t nMaxNo = 0;
        CHECK(staff->iGetMaxIDNo(nMaxNo) == iGood);
        CHECK(nMaxNo == 9);
        CHECK(staff.database.log ==
              Log{std::string("sql 1   select      max(STAFF.nIDNo) as nIDNo  FROM      STAFF") + row.condition});
    }
}

TEST_CASE("a branch without staff starts at 0, or at its own four zeros if numbers span the branches")
{
    struct Row {
        const char *claim;
        std::int32_t iKyotenIdMode;
        std::int16_t iKyotenCd;
        std::int16_t iKyotenEb;
        std::int32_t first;
    };
    const Row rows[] = {
        {"0 in this branch alone", 0, 1, 2, 0},   {"code and sub-code with two digits", 1, 1, 2, 1020000},
        {"two digits each", 1, 12, 34, 12340000}, {"branch 0", 1, 0, 2, 20000},
        {"a mode that is not 1", 2, 1, 2, 0},
    };
    for (const Row &row : rows) {
        CAPTURE(row.claim);
        StaffFixture staff;
        staff.app.iKyotenIdMode = row.iKyotenIdMode;
        staff.app.iKyotenCd = row.iKyotenCd;
        staff.app.iKyotenEb = row.iKyotenEb;
        staff.database.results.push_back(rowsOf({"nIDNo"}, {{}}));
        std::int32_t nMaxNo = -5;
        CHECK(staff->iGetMaxIDNo(nMaxNo) == iGood);
        CHECK(nMaxNo == row.first);
    }
}

TEST_CASE("a highest number of 1 is a number: it is kept and not replaced by the branch's first number")
{
    StaffFixture staff;
    staff.app.iKyotenIdMode = 1;
    staff.database.results.push_back(rowsOf({"nIDNo"}, {{{"nIDNo", std::int32_t{1}}}}));
    std::int32_t nMaxNo = -5;
    CHECK(staff->iGetMaxIDNo(nMaxNo) == iGood);
    CHECK(nMaxNo == 1);
}

TEST_CASE("a branch code whose first number exceeds 32 bits overflows and keeps the caller's number")
{
    StaffFixture staff;
    staff.app.iKyotenIdMode = 1;
    staff.app.iKyotenCd = 3000;
    staff.database.results.push_back(rowsOf({"nIDNo"}, {{}}));
    std::int32_t nMaxNo = -5;
    CHECK(staff->iGetMaxIDNo(nMaxNo) == iBad);
    CHECK(staff->sErrMsg() == "6\r\nオーバーフローしました。");
    CHECK(nMaxNo == -5);
}

TEST_CASE("an insert of a staff member writes all columns in their order, by this installation's branch")
{
    StaffFixture staff;
    const cD_STAFF row = yamada();
    CHECK(staff->iDataInsert(&row, 0) == iGood);
    CHECK(staff.database.log ==
          Log{"exec 1  insert into    STAFF (      iKyotenCd     ,iKyotenEb     ,cAdress1     ,cAdress2     ,cFaxNo"
              "     ,cKaiNo     ,cKaiNo2     ,cKaiNo3     ,cMobNo     ,cName     ,cNameKana     ,cNameRyaku     ,cRken"
              "     ,cRno     ,cTelNo     ,cYubinNo     ,iChusiFlg     ,iSexKubun     ,iShikakuKubun"
              "     ,iSyokushuKubun     ,iYaku     ,nIDNo     ,cEmail     ,iTecAbi     ,iSpeechAbi     ,cPhysical"
              "     ,iClaimRate     ,cSikaku     ,cTourokuNo     ,cSmileCd     ,tBirthday     ,tKousinDay"
              "     ,tNyusyaDay     ,tKisanDay     ,tRday     ,tTourokuDay     ,cPcName     ,tUpDateTime"
              "     ,cTourokuNo2     ,iVehicleType     ,cVehicleNumber     ,cVehicleComment     ,cEmployeeNumber"
              "     ,iLookAllRiyousya     ,iWebLicense     ,iLookCharge     ,iStaffHokenTouroku     ,cShikaiNo"
              "     ,cShikaiNo_Josei     ,iContractType     ,nLat     ,nLon     ,cIninTourokuNo     ,iIninTourokuChk"
              "     ,iKanriSekininFlg )values(       1     ,2     ,'高松市番町1'     ,''     ,'087-1'     ,'会1'"
              "     ,'会2'     ,'会3'     ,'090-1'     ,'山田太郎'     ,'ﾔﾏﾀﾞ'     ,'山'     ,'37'     ,'99'"
              "     ,'087-2'     ,'760-0001'     ,1     ,-1     ,2     ,3     ,4     ,12     ,'a@b'     ,5     ,6"
              "     ,'良'     ,7     ,'あん摩'     ,'登1'     ,'S1'     ,'1980/5/1'     ,Null     ,'2010/4/1'     ,Null"
              "     ,Null     ,Null     ,'RECEPTION1'     ,GetDate()     ,'登2'     ,8     ,Null     ,Null     ,Null"
              "     ,9     ,10     ,11     ,12     ,'市1'     ,'市2'     ,13     ,34340000     ,134040000     ,'委1'"
              "     ,14     ,15 ) "});
}

TEST_CASE("an update of a staff member sets all columns except the branch, empty vehicle texts in quotes")
{
    StaffFixture staff;
    const cD_STAFF row = yamada();
    CHECK(staff->iDataUpdate(&row, 0) == iGood);
    CHECK(staff.database.log == Log{std::string("exec 1  update      STAFF") + kSetClause +
                                    " where    nIDNo = 12 and iKyotenCd = 1 and iKyotenEb = 2"});
}

TEST_CASE("if numbers span the branches, an update finds its row by the number only")
{
    for (const std::int32_t mode : {1, 2}) {
        CAPTURE(mode);
        StaffFixture staff;
        staff.app.iKyotenIdMode = mode;
        const cD_STAFF row = yamada();
        CHECK(staff->iDataUpdate(&row, 0) == iGood);
        CHECK(staff.database.log ==
              Log{std::string("exec 1  update      STAFF") + kSetClause + " where    nIDNo = 12"});
    }
}

TEST_CASE("each of the six dates of a staff member is written as Null when it is empty")
{
    StaffFixture staff;
    cD_STAFF row;
    row.nIDNo = 1;
    CHECK(staff->iDataUpdate(&row, 0) == iGood);
    for (const char *text : {"     ,tBirthday =  Null", "     ,tKousinDay =  Null", "     ,tNyusyaDay =  Null",
                             "     ,tKisanDay =  Null", "     ,tRday =  Null", "     ,tTourokuDay =  Null"}) {
        CAPTURE(text);
        CHECK(staff.database.log.back().find(text) != std::string::npos);
    }
}

TEST_CASE("each of the six dates of a staff member is written in quotes when it is set")
{
    StaffFixture staff;
    cD_STAFF row;
    row.nIDNo = 1;
    row.sBirthday = "1980/5/1";
    row.sKousinDay = "2024/1/1";
    row.sNyusyaDay = "2024/1/2";
    row.sKisanDay = "2024/1/3";
    row.sRday = "2024/1/4";
    row.sTourokuDay = "2024/1/5";
    CHECK(staff->iDataUpdate(&row, 0) == iGood);
    CHECK(staff.database.log.back().find(
              "     ,tBirthday =  '1980/5/1'     ,tKousinDay =  '2024/1/1'     ,tNyusyaDay =  '2024/1/2'"
              "     ,tKisanDay =  '2024/1/3'     ,tRday =  '2024/1/4'     ,tTourokuDay =  '2024/1/5'     ,cPcName") !=
          std::string::npos);
}

TEST_CASE("vehicle texts and employee number that are not empty are written in quotes by an insert too")
{
    StaffFixture staff;
    cD_STAFF row;
    row.cVehicleNumber = "香川1";
    row.cVehicleComment = "軽";
    row.cEmployeeNumber = "E1";
    CHECK(staff->iDataInsert(&row, 0) == iGood);
    CHECK(staff.database.log.back().find("     ,'香川1'     ,'軽'     ,'E1'") != std::string::npos);
}

TEST_CASE("a staff member is deleted by number in this branch, whatever the mode")
{
    for (const std::int32_t mode : {0, 1}) {
        CAPTURE(mode);
        StaffFixture staff;
        staff.app.iKyotenIdMode = mode;
        const cD_STAFF row = yamada();
        CHECK(staff->iData削除(&row, 0) == iGood);
        CHECK(staff.database.log ==
              Log{"exec 1  delete from      STAFF where    nIDNo = 12 and iKyotenCd = 1 and iKyotenEb = 2"});
    }
}
