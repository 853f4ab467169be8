#include "master/corp_table.h"
#include "master/hoken_table.h"
#include "master/staff_table.h"

#include "master/embedded_fixture.h"

using namespace inin;

// The tables on the embedded database: rows are written and read back.

namespace {

using EmbeddedStaffFixture = EmbeddedFixture<cT_STAFF>;
using EmbeddedCorpFixture = EmbeddedFixture<cT_CORP>;
using EmbeddedHokenFixture = EmbeddedFixture<cT_HOKEN>;

cD_STAFF staffMember(std::int32_t nIDNo, const std::string &cName)
{
    cD_STAFF row;
    row.nIDNo = nIDNo;
    row.cName = cName;
    return row;
}

cD_CORP company(std::int32_t nIDNo, std::int32_t iType, const std::string &cShamei1)
{
    cD_CORP row;
    row.nIDNo = nIDNo;
    row.iType = iType;
    row.cShamei1 = cShamei1;
    return row;
}

cD_HOKEN kind(std::int32_t iType, const std::string &cType)
{
    cD_HOKEN row;
    row.iType = iType;
    row.cType = cType;
    return row;
}

/// The numbers of the rows, joined: "1 2 3".
template <class Fixture, class Number> std::string numbers(Fixture &fixture, Number &&number)
{
    std::string text;
    for (std::int32_t index = 0; index < fixture->nデータ数(); ++index)
        text += (index == 0 ? "" : " ") + std::to_string(number(index));
    return text;
}
std::string numbers(EmbeddedStaffFixture &staff)
{
    return numbers(staff, [&](std::int32_t index) { return staff->clsSTAFF(index).nIDNo; });
}
std::string numbers(EmbeddedCorpFixture &corp)
{
    return numbers(corp, [&](std::int32_t index) { return corp->clsCORP(index).nIDNo; });
}

constexpr const char *kStaffOfTwoBranches =
    "INSERT INTO STAFF (iKyotenCd, iKyotenEb, nIDNo, cName, cNameKana, iChusiFlg) VALUES"
    " (1,2,3,'山田太郎','ﾔﾏﾀﾞ',0), (1,2,1,'鈴木',NULL,NULL), (1,2,2,'中止','ﾁｭｳｼ',1), (9,9,3,'別の山田','ﾔﾏﾀﾞ',0);"
    "INSERT INTO KYOTEN (iKyotenCd, iKyotenEb, cKyotenName) VALUES (1,2,'高松');";

} // namespace

TEST_CASE("a staff member is read back as written")
{
    EmbeddedStaffFixture staff;
    cD_STAFF row = staffMember(12, "山田太郎");
    row.cAdress1 = "高松市番町1";
    row.cNameRyaku = "山";
    row.iChusiFlg = 1;
    row.iYaku = 4;
    row.iTecAbi = 5;
    row.iStaffHokenTouroku = 6;
    row.sBirthday = "1980/5/1";
    row.sRday = "2024/04/02";
    row.cVehicleNumber = "香川1";
    row.nLat = 34340000;
    row.iKanriSekininFlg = 15;
    REQUIRE_MESSAGE(staff->iDataInsert(&row, 0, Transaction::own) == iGood, staff->sErrMsg());

    REQUIRE_MESSAGE(staff->iDataRead(&row) == iGood, staff->sErrMsg());
    REQUIRE(staff->nデータ数() == 1);
    const cD_STAFF &read = staff->clsSTAFF(0);
    CHECK(read.nIDNo == 12);
    CHECK(read.cName == "山田太郎");
    CHECK(read.cAdress1 == "高松市番町1");
    CHECK(read.cAdress2.empty());
    CHECK(read.cNameRyaku == "山");
    CHECK(read.iChusiFlg == 1);
    CHECK(read.iSexKubun == -1);
    CHECK(read.iYaku == 4);
    CHECK(read.iTecAbi == 5);
    CHECK(read.iStaffHokenTouroku == 6);
    CHECK(read.sBirthday == "1980/05/01");
    CHECK(read.sKousinDay.empty());
    CHECK(read.sRday == "2024/04/02");
    CHECK(read.cVehicleNumber == "香川1");
    CHECK(read.nLat == 34340000);
    CHECK(read.iKanriSekininFlg == 15);
    CHECK(read.cPcName == "RECEPTION1");
    CHECK_FALSE(read.tUpDateTime.empty());
    CHECK(staff.value("SELECT iKyotenCd || '/' || iKyotenEb FROM STAFF") == "1/2");
}

TEST_CASE("an empty vehicle text is NULL after an insert and an empty text after an update")
{
    EmbeddedStaffFixture staff;
    const cD_STAFF row = staffMember(12, "山田");
    REQUIRE_MESSAGE(staff->iDataInsert(&row, 0, Transaction::own) == iGood, staff->sErrMsg());
    for (const char *column : {"cVehicleNumber", "cVehicleComment", "cEmployeeNumber", "tBirthday"})
        CHECK(staff.value(std::string("SELECT ") + column + " FROM STAFF") == "(null)");
    REQUIRE_MESSAGE(staff->iDataUpdate(&row, 0, Transaction::own) == iGood, staff->sErrMsg());
    for (const char *column : {"cVehicleNumber", "cVehicleComment", "cEmployeeNumber"})
        CHECK(staff.value(std::string("SELECT ") + column + " FROM STAFF").empty());
    CHECK(staff.value("SELECT tBirthday FROM STAFF") == "(null)");
}

TEST_CASE("an update of a staff member changes only the one of this branch")
{
    EmbeddedStaffFixture staff;
    staff.run(kStaffOfTwoBranches);
    const cD_STAFF row = staffMember(3, "山田次郎");
    REQUIRE_MESSAGE(staff->iDataUpdate(&row, 0, Transaction::own) == iGood, staff->sErrMsg());
    CHECK(staff.value("SELECT cName FROM STAFF WHERE iKyotenCd = 1 AND nIDNo = 3") == "山田次郎");
    CHECK(staff.value("SELECT cName FROM STAFF WHERE iKyotenCd = 9") == "別の山田");
    CHECK(staff.value("SELECT cName FROM STAFF WHERE nIDNo = 1") == "鈴木");
}

TEST_CASE("if numbers span the branches, an update changes the staff member of the number in every branch")
{
    EmbeddedStaffFixture staff;
    staff.run(kStaffOfTwoBranches);
    staff.site.iKyotenIdMode = 1;
    const cD_STAFF row = staffMember(3, "山田次郎");
    REQUIRE_MESSAGE(staff->iDataUpdate(&row, 0) == iGood, staff->sErrMsg());
    CHECK(staff.value("SELECT COUNT(*) FROM STAFF WHERE cName = '山田次郎'") == "2");
}

TEST_CASE("a delete removes only the staff member of this branch")
{
    EmbeddedStaffFixture staff;
    staff.run(kStaffOfTwoBranches);
    const cD_STAFF row = staffMember(3, "");
    REQUIRE_MESSAGE(staff->iData削除(&row, 0, Transaction::own) == iGood, staff->sErrMsg());
    CHECK(staff.value("SELECT COUNT(*) FROM STAFF WHERE iKyotenCd = 1 AND nIDNo = 3") == "0");
    CHECK(staff.value("SELECT COUNT(*) FROM STAFF") == "3");
}

TEST_CASE("the staff grid lists the active staff of the branch by number, NULL included")
{
    EmbeddedStaffFixture staff;
    staff.run(kStaffOfTwoBranches);
    cD_STAFF condition;
    REQUIRE_MESSAGE(staff->iDataReadGrid(&condition) == iGood, staff->sErrMsg());
    CHECK(numbers(staff) == "1 3");
    condition.iChusiFlg = 1;
    REQUIRE(staff->iDataReadGrid(&condition) == iGood);
    CHECK(numbers(staff) == "1 2 3");
    condition.cName = "田";
    REQUIRE(staff->iDataReadGrid(&condition) == iGood);
    CHECK(numbers(staff) == "3");
}

TEST_CASE("the grid of all branches gives each branch its name, or none if the branch is unknown")
{
    EmbeddedStaffFixture staff;
    staff.run(kStaffOfTwoBranches);
    const cD_STAFF condition;
    REQUIRE_MESSAGE(staff->iDataReadGrid_AllKyoten(&condition) == iGood, staff->sErrMsg());
    REQUIRE(numbers(staff) == "1 3 3");
    CHECK(staff->clsSTAFF(1).cKyotenName == "高松");
    CHECK(staff->clsSTAFF(1).iKyotenId == 1);
    CHECK(staff->clsSTAFF(1).iKyotenEb == 2);
    CHECK(staff->clsSTAFF(2).cKyotenName.empty());
    CHECK(staff->clsSTAFF(2).iKyotenId == 9);
}

TEST_CASE("the check of a staff number finds only those of this branch")
{
    EmbeddedStaffFixture staff;
    staff.run(kStaffOfTwoBranches);
    cD_STAFF condition = staffMember(3, "");
    REQUIRE_MESSAGE(staff->iDataIdentChk(&condition) == iGood, staff->sErrMsg());
    REQUIRE(numbers(staff) == "3");
    CHECK(staff->clsSTAFF(0).cName == "山田太郎");
    condition.nIDNo = 99;
    REQUIRE(staff->iDataIdentChk(&condition) == iGood);
    CHECK(staff->nデータ数() == 0);
}

TEST_CASE("a staff name is counted across the branches without the given number")
{
    EmbeddedStaffFixture staff;
    staff.run(kStaffOfTwoBranches);
    CHECK(staff->iChkStaffName(1, "別の山田") == 1);
    CHECK(staff->iChkStaffName(3, "別の山田") == 0);
    CHECK(staff->iChkStaffName(1, "誰も") == 0);
}

TEST_CASE("the highest staff number is that of the branch, or of its prefix if numbers span the branches")
{
    EmbeddedStaffFixture staff;
    std::int32_t nMaxNo = -5;
    REQUIRE_MESSAGE(staff->iGetMaxIDNo(nMaxNo) == iGood, staff->sErrMsg());
    CHECK(nMaxNo == 0);
    staff.run(kStaffOfTwoBranches);
    REQUIRE(staff->iGetMaxIDNo(nMaxNo) == iGood);
    CHECK(nMaxNo == 3);

    staff.site.iKyotenIdMode = 1;
    REQUIRE_MESSAGE(staff->iGetMaxIDNo(nMaxNo) == iGood, staff->sErrMsg());
    CHECK(nMaxNo == 1020000);
    staff.run("INSERT INTO STAFF (iKyotenCd, iKyotenEb, nIDNo) VALUES (1,2,1020007), (1,2,2000000)");
    REQUIRE(staff->iGetMaxIDNo(nMaxNo) == iGood);
    CHECK(nMaxNo == 1020007);
}

TEST_CASE("a staff name with a single quote breaks each statement that contains it and changes nothing")
{
    EmbeddedStaffFixture staff;
    staff.run(kStaffOfTwoBranches);
    const cD_STAFF row = staffMember(3, "O'Neil");
    CHECK(staff->iDataReadGrid(&row) == iBad);
    CHECK(staff->sErrMsg().starts_with("(-2147217900)"));
    CHECK(staff->iChkStaffName(3, "O'Neil") == -1);
    CHECK(staff->iDataInsert(&row, 0, Transaction::own) == iBad);
    CHECK(staff->sErrMsg().starts_with("ERR:iExecSQL (-2147217900)"));
    CHECK(staff->iDataUpdate(&row, 0, Transaction::own) == iBad);
    CHECK(staff->sErrMsg().starts_with("ERR:iExecSQL (-2147217900)"));
    CHECK(staff.value("SELECT cName FROM STAFF WHERE iKyotenCd = 1 AND nIDNo = 3") == "山田太郎");
}

TEST_CASE("a second staff member with the same number is refused and the transaction is closed")
{
    EmbeddedStaffFixture staff;
    const cD_STAFF row = staffMember(12, "山田");
    REQUIRE_MESSAGE(staff->iDataInsert(&row, 0, Transaction::own) == iGood, staff->sErrMsg());
    CHECK(staff->iDataInsert(&row, 0, Transaction::own) == iBad);
    CHECK(staff->sErrMsg().starts_with("ERR:iExecSQL (-2147217873)"));
    // A transaction left open would prevent a new one.
    const cD_STAFF other = staffMember(13, "鈴木");
    CHECK_MESSAGE(staff->iDataInsert(&other, 0, Transaction::own) == iGood, staff->sErrMsg());
}

TEST_CASE("writes without the flag are part of the caller's transaction")
{
    EmbeddedStaffFixture staff;
    const cD_STAFF row = staffMember(12, "山田");
    REQUIRE(staff.session.iBeginTrans() == iGood);
    REQUIRE_MESSAGE(staff->iDataInsert(&row, 0) == iGood, staff->sErrMsg());
    REQUIRE(staff.session.iRollback() == iGood);
    CHECK(staff.value("SELECT COUNT(*) FROM STAFF") == "0");

    REQUIRE(staff.session.iBeginTrans() == iGood);
    REQUIRE(staff->iDataInsert(&row, 0) == iGood);
    REQUIRE(staff.session.iCommitTrans() == iGood);
    CHECK(staff.value("SELECT COUNT(*) FROM STAFF") == "1");
}

TEST_CASE("a company is read back as written")
{
    EmbeddedCorpFixture corp;
    cD_CORP row = company(5, 0, "会社一");
    row.cAddress1 = "高松市番町1";
    row.cKozaMeigi2 = "口座";
    row.iKinSiten = 1;
    row.nLat = 34340000;
    row.cKinyuNo = "0173";
    row.cJigyousyoNo = "37-1";
    row.iKyotenToshiNo = 6;
    row.cEmail = "a@b";
    REQUIRE_MESSAGE(corp->iDataInsert(&row, 0, Transaction::own) == iGood, corp->sErrMsg());

    cD_CORP condition;
    condition.iType = 0;
    REQUIRE_MESSAGE(corp->iDataRead(&condition) == iGood, corp->sErrMsg());
    REQUIRE(corp->nデータ数() == 1);
    const cD_CORP &read = corp->clsCORP(0);
    CHECK(read.nIDNo == 5);
    CHECK(read.iType == 0);
    CHECK(read.cShamei1 == "会社一");
    CHECK(read.cAddress1 == "高松市番町1");
    CHECK(read.cKozaMeigi2 == "口座");
    CHECK(read.iKinSiten == 1);
    CHECK(read.iKozaType == -1);
    CHECK(read.nLat == 34340000);
    CHECK(read.cKinyuNo == "0173");
    CHECK(read.cJigyousyoNo == "37-1");
    CHECK(read.iKyotenToshiNo == 6);
    CHECK(read.cEmail == "a@b");
    CHECK(read.cPcName == "RECEPTION1");
    CHECK_FALSE(read.tUpDateTime.empty());
    CHECK(corp.value("SELECT iKyotenCd || '/' || iKyotenEb FROM CORP") == "1/2");
}

TEST_CASE("companies are read by number and kind, the others by the check, a list by parts of a name")
{
    EmbeddedCorpFixture corp;
    for (const cD_CORP &row : {company(0, 0, "本社"), company(2, 1, "代理人"), company(3, 3, "団体の会社")})
        REQUIRE_MESSAGE(corp->iDataInsert(&row, 0, Transaction::own) == iGood, corp->sErrMsg());
    corp.run("INSERT INTO CORP (iKyotenCd, iKyotenEb, nIDNo, iType, cShamei1) VALUES (9,9,7,0,'別の本社')");

    cD_CORP condition;
    REQUIRE(corp->iDataRead(&condition) == iGood);
    CHECK(numbers(corp) == "0 2 3");
    condition.nIDNo = 0;
    REQUIRE(corp->iDataRead(&condition) == iGood);
    CHECK(numbers(corp) == "0");
    REQUIRE(corp->iDataReadChk(&condition) == iGood);
    CHECK(numbers(corp) == "2 3");
    REQUIRE(corp->iDataReadGrid_Jouken(&condition) == iGood);
    CHECK(numbers(corp) == "0 2 3");
    condition.cShamei1 = "社";
    REQUIRE(corp->iDataReadGrid_Jouken(&condition) == iGood);
    CHECK(numbers(corp) == "0 3");
    REQUIRE(corp->iDataReadGrid() == iGood);
    CHECK(numbers(corp) == "0 2 3");
    std::int32_t nMaxNo = 0;
    REQUIRE(corp->iGetMaxIDNo(nMaxNo) == iGood);
    CHECK(nMaxNo == 3);
}

TEST_CASE("a company is updated and deleted in this branch only")
{
    EmbeddedCorpFixture corp;
    corp.run("INSERT INTO CORP (iKyotenCd, iKyotenEb, nIDNo, iType, cShamei1) VALUES (9,9,5,0,'別'), (1,2,5,0,'前')");
    const cD_CORP row = company(5, 2, "後");
    REQUIRE_MESSAGE(corp->iDataUpdate(&row, 0, Transaction::own) == iGood, corp->sErrMsg());
    CHECK(corp.value("SELECT cShamei1 FROM CORP WHERE iKyotenCd = 1") == "後");
    CHECK(corp.value("SELECT cShamei1 FROM CORP WHERE iKyotenCd = 9") == "別");
    REQUIRE_MESSAGE(corp->iData削除(&row, 0, Transaction::own) == iGood, corp->sErrMsg());
    CHECK(corp.value("SELECT COUNT(*) FROM CORP WHERE iKyotenCd = 1") == "0");
    CHECK(corp.value("SELECT COUNT(*) FROM CORP WHERE iKyotenCd = 9") == "1");
}

TEST_CASE("a company name with a single quote breaks the write statement")
{
    EmbeddedCorpFixture corp;
    const cD_CORP row = company(5, 0, "O'Neil");
    CHECK(corp->iDataInsert(&row, 0, Transaction::own) == iBad);
    CHECK(corp->sErrMsg().starts_with("ERR:iExecSQL (-2147217900)"));
    CHECK(corp.value("SELECT COUNT(*) FROM CORP") == "0");
}

TEST_CASE("insurance kinds are written, updated, read in order and deleted")
{
    EmbeddedHokenFixture hoken;
    for (const cD_HOKEN &row : {kind(70000, "後期"), kind(1, "国保"), kind(2, "社保")})
        REQUIRE_MESSAGE(hoken->iDataInsert(&row, 0, Transaction::own) == iGood, hoken->sErrMsg());
    hoken.run("INSERT INTO HOKEN (iKyotenCd, iKyotenEb, cType, iType) VALUES (9,9,'国保',1), (1,2,NULL,NULL)");
    const cD_HOKEN changed = kind(2, "組合");
    REQUIRE_MESSAGE(hoken->iDataUpdate(&changed, 0, Transaction::own) == iGood, hoken->sErrMsg());
    const cD_HOKEN gone = kind(1, "");
    REQUIRE_MESSAGE(hoken->iData削除(&gone, 0, Transaction::own) == iGood, hoken->sErrMsg());

    REQUIRE_MESSAGE(hoken->iDataRead(&gone) == iGood, hoken->sErrMsg());
    REQUIRE(hoken->nデータ数() == 4);
    // NULL sorts first and reads as 0; the other branch keeps its 国保.
    CHECK(hoken->clsHOKEN(0).iType == 0);
    CHECK(hoken->clsHOKEN(0).cType.empty());
    CHECK(hoken->clsHOKEN(1).cType == "国保");
    CHECK(hoken->clsHOKEN(2).cType == "組合");
    CHECK(hoken->clsHOKEN(3).iType == 70000);
    CHECK(hoken.value("SELECT COUNT(*) FROM HOKEN WHERE iKyotenCd = 1 AND iType = 1") == "0");
}

TEST_CASE("an insurance kind with a single quote breaks the write statement")
{
    EmbeddedHokenFixture hoken;
    const cD_HOKEN row = kind(1, "国'保");
    CHECK(hoken->iDataInsert(&row, 0, Transaction::own) == iBad);
    CHECK(hoken->sErrMsg().starts_with("ERR:iExecSQL (-2147217900)"));
    CHECK(hoken.value("SELECT COUNT(*) FROM HOKEN") == "0");
}
