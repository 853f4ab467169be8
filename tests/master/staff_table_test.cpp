#include "master/staff_table.h"

#include "master/table_fixture.h"
#include "runtime/date.h"

using namespace inin;

namespace {

using StaffFixture = TableFixture<cT_STAFF>;

const std::vector<std::string> kStaffColumns = {"cAdress1",
                                                "cAdress2",
                                                "cFaxNo",
                                                "cKaiNo",
                                                "cKaiNo2",
                                                "cKaiNo3",
                                                "cMobNo",
                                                "cName",
                                                "cNameKana",
                                                "cNameRyaku",
                                                "cRken",
                                                "cRno",
                                                "cTelNo",
                                                "cYubinNo",
                                                "iChusiFlg",
                                                "iSexKubun",
                                                "iShikakuKubun",
                                                "iSyokushuKubun",
                                                "iYaku",
                                                "nIDNo",
                                                "cEmail",
                                                "iTecAbi",
                                                "iSpeechAbi",
                                                "cPhysical",
                                                "iClaimRate",
                                                "cSikaku",
                                                "cTourokuNo",
                                                "cSmileCd",
                                                "tBirthday",
                                                "tKousinDay",
                                                "tNyusyaDay",
                                                "tKisanDay",
                                                "tRday",
                                                "tTourokuDay",
                                                "cPcName",
                                                "tUpDateTime",
                                                "cTourokuNo2",
                                                "iVehicleType",
                                                "cVehicleNumber",
                                                "cVehicleComment",
                                                "cEmployeeNumber",
                                                "iLookAllRiyousya",
                                                "iWebLicense",
                                                "iLookCharge",
                                                "iStaffHokenTouroku",
                                                "cShikaiNo",
                                                "cShikaiNo_Josei",
                                                "iContractType",
                                                "nLat",
                                                "nLon",
                                                "cIninTourokuNo",
                                                "iIninTourokuChk",
                                                "iKanriSekininFlg"};

} // namespace

TEST_CASE("a fresh staff member has -1 in five numbers and 0 in the others")
{
    const cD_STAFF fresh;
    for (const std::int32_t number :
         {fresh.iSexKubun, fresh.iShikakuKubun, fresh.iSyokushuKubun, fresh.iYaku, fresh.nIDNo})
        CHECK(number == -1);
    for (const std::int32_t number : {fresh.iChusiFlg, fresh.iKyotenId, fresh.iKyotenEb, fresh.iVehicleType,
                                      fresh.iLookAllRiyousya, fresh.iWebLicense, fresh.iLookCharge, fresh.nLat,
                                      fresh.nLon, fresh.iContractType, fresh.iIninTourokuChk, fresh.iKanriSekininFlg})
        CHECK(number == 0);
    for (const std::int16_t number : {fresh.iTecAbi, fresh.iSpeechAbi, fresh.iClaimRate, fresh.iStaffHokenTouroku})
        CHECK(number == 0);
}

TEST_CASE("a fresh staff member has empty texts")
{
    const cD_STAFF fresh;
    for (const std::string *text :
         {&fresh.cShikaiNo,       &fresh.cShikaiNo_Josei, &fresh.cTourokuNo2,   &fresh.cKyotenName,
          &fresh.cTourokuNo,      &fresh.cSmileCd,        &fresh.sBirthday,     &fresh.sKousinDay,
          &fresh.sNyusyaDay,      &fresh.sRday,           &fresh.sTourokuDay,   &fresh.cAdress1,
          &fresh.sKisanDay,       &fresh.cAdress2,        &fresh.cFaxNo,        &fresh.cKaiNo,
          &fresh.cKaiNo2,         &fresh.cKaiNo3,         &fresh.cMobNo,        &fresh.cName,
          &fresh.cNameKana,       &fresh.cNameRyaku,      &fresh.cRken,         &fresh.cRno,
          &fresh.cTelNo,          &fresh.cYubinNo,        &fresh.cPcName,       &fresh.tUpDateTime,
          &fresh.cEmail,          &fresh.cPhysical,       &fresh.cSikaku,       &fresh.cVehicleNumber,
          &fresh.cVehicleComment, &fresh.cEmployeeNumber, &fresh.cIninTourokuNo})
        CHECK(text->empty());
}

TEST_CASE("the read of one staff member fills the properties that the grid omits")
{
    StaffFixture staff;
    staff.database.results.push_back(rowsOf(kStaffColumns, {{{"nIDNo", std::int32_t{12}},
                                                             {"cNameRyaku", " 略 "},
                                                             {"cRken", "県"},
                                                             {"cRno", "番"},
                                                             {"cKaiNo2", "会2"},
                                                             {"cKaiNo3", "会3"},
                                                             {"iShikakuKubun", std::int32_t{2}},
                                                             {"iSyokushuKubun", std::int32_t{3}},
                                                             {"iYaku", std::int32_t{4}},
                                                             {"tKousinDay", DateSerial(2024, 4, 1)},
                                                             {"tRday", DateSerial(2024, 4, 2)},
                                                             {"tTourokuDay", DateSerial(2024, 4, 3)},
                                                             {"cPcName", "PC "},
                                                             {"tUpDateTime", Date(45413.5)}}}));
    cD_STAFF condition;
    condition.nIDNo = 12;
    REQUIRE(staff->iDataRead(&condition) == iGood);
    REQUIRE(staff->nデータ数() == 1);
    const cD_STAFF &row = staff->clsSTAFF(0);
    CHECK(row.nIDNo == 12);
    CHECK(row.cNameRyaku == "略");
    CHECK(row.cRken == "県");
    CHECK(row.cRno == "番");
    CHECK(row.cKaiNo2 == "会2");
    CHECK(row.cKaiNo3 == "会3");
    CHECK(row.iShikakuKubun == 2);
    CHECK(row.iSyokushuKubun == 3);
    CHECK(row.iYaku == 4);
    CHECK(row.sKousinDay == "2024/04/01");
    CHECK(row.sRday == "2024/04/02");
    CHECK(row.sTourokuDay == "2024/04/03");
    CHECK(row.cPcName == "PC");
    CHECK(row.tUpDateTime == "2024/05/01 12:00:00");
}

TEST_CASE("a single read of only NULLs turns every -1 of the fresh row into 0")
{
    StaffFixture staff;
    staff.database.results.push_back(rowsOf(kStaffColumns, {{}}));
    const cD_STAFF fresh;
    REQUIRE(staff->iDataIdentChk(&fresh) == iGood);
    const cD_STAFF &row = staff->clsSTAFF(0);
    for (const std::int32_t number : {row.iSexKubun, row.iShikakuKubun, row.iSyokushuKubun, row.iYaku, row.nIDNo})
        CHECK(number == 0);
    CHECK(row.sKousinDay.empty());
    CHECK(row.tUpDateTime.empty());
}

TEST_CASE("an unused name counts 0")
{
    StaffFixture staff;
    staff.database.results.push_back(rowsOf({"Cnt"}, {{{"Cnt", std::int32_t{0}}}}));
    CHECK(staff->iChkStaffName(1, "山田") == 0);
}

TEST_CASE("a count of names beyond 16 bits overflows")
{
    StaffFixture staff;
    staff.database.results.push_back(rowsOf({"Cnt"}, {{{"Cnt", std::int32_t{32768}}}}));
    CHECK(staff->iChkStaffName(1, "山田") == -1);
    CHECK(staff->sErrMsg() == "6\r\nオーバーフローしました。");
}

TEST_CASE("a name with a single quote cannot be counted and fails with the session's text")
{
    StaffFixture staff;
    staff.database.results.push_back(failure(-2147217900, "構文が正しくありません。"));
    CHECK(staff->iChkStaffName(1, "O'Neil") == -1);
    CHECK(staff->sErrMsg() == "(-2147217900)構文が正しくありません。\rSQL=  SELECT      COUNT(nIDNo) AS Cnt  FROM"
                              "      STAFF  WHERE nIDNo != 1 AND        ・・・");
}

TEST_CASE("a failed query of the highest number keeps the caller's number")
{
    StaffFixture staff;
    staff.database.results.push_back(failure(-2147467259, "切れました。"));
    std::int32_t nMaxNo = 55;
    CHECK(staff->iGetMaxIDNo(nMaxNo) == -1);
    CHECK(nMaxNo == 55);
    CHECK(staff->sErrMsg().starts_with("(-2147467259)切れました。\rSQL="));
}

TEST_CASE("reads and checks of staff without a condition row fail in the same way")
{
    using ReadOperation = std::int16_t (cT_STAFF::*)(const cD_STAFF *);
    for (const ReadOperation read : {&cT_STAFF::iDataReadGrid, &cT_STAFF::iDataRead, &cT_STAFF::iDataIdentChk,
                                     &cT_STAFF::iDataReadGrid_AllKyoten}) {
        StaffFixture staff;
        CHECK(((*staff.operator->()).*read)(nullptr) == iBad);
        CHECK(staff->sErrMsg() == "STAFFが無効です。");
        CHECK(staff.database.log.empty());
    }
}
