#include "master/shinseisyo_table.h"

#include "master/table_fixture.h"
#include "runtime/date.h"

using namespace inin;

namespace {

using FormFixture = TableFixture<cT_SHINSEISYO>;

// The list of both reads as sent.
const std::string kRead =
    "sql 1   select      SHINSEISYO.iKyotenCd as iKyotenCd     ,SHINSEISYO.iKyotenEb as iKyotenEb"
    "     ,SHINSEISYO.nIDNo as nIDNo     ,SHINSEISYO.cFileName as cFileName     ,SHINSEISYO.cDispName as cDispName"
    "     ,SHINSEISYO.iSejutsuKubun as iSejutsuKubun     ,SHINSEISYO.iHokenType as iHokenType"
    "     ,SHINSEISYO.iDelFlg as iDelFlg     ,SHINSEISYO.iSinseiTP as iSinseiTP"
    "     ,SHINSEISYO.iSoufushoTP as iSoufushoTP     ,SHINSEISYO.iDuplexFlg as iDuplexFlg"
    "     ,SHINSEISYO.iStateNo as iStateNo     ,SHINSEISYO.iRiyouHokenKbn as iRiyouHokenKbn"
    "     ,SHINSEISYO.tUpDateTime as tUpDateTime     ,SHINSEISYO.iPrintType as iPrintType"
    "     ,SHINSEISYO.iKubun as iKubun     ,SHINSEISYO.iKanagawaStaffPrint as iKanagawaStaffPrint"
    "     ,SHINSEISYO.iJoseiFutanKiriage as iJoseiFutanKiriage     ,SHINSEISYO.iTekiyouStaff as iTekiyouStaff"
    "  FROM      SHINSEISYO";
constexpr const char *kOrder = "  order by      nIDNo";

const std::vector<std::string> kColumns = {"iKyotenCd",           "iKyotenEb",          "nIDNo",        "cFileName",
                                           "cDispName",           "iSejutsuKubun",      "iHokenType",   "iDelFlg",
                                           "iSinseiTP",           "iSoufushoTP",        "iDuplexFlg",   "iStateNo",
                                           "iRiyouHokenKbn",      "tUpDateTime",        "iPrintType",   "iKubun",
                                           "iKanagawaStaffPrint", "iJoseiFutanKiriage", "iTekiyouStaff"};

/// A row with a different value in each column.
cD_SHINSEISYO form(std::int32_t iPrintType)
{
    cD_SHINSEISYO row;
    row.iKyotenCd = 71;
    row.iKyotenEb = 72;
    row.nIDNo = 5;
    row.cFileName = "申請書.wfd";
    row.cDispName = "療養費支給申請書";
    row.iSejutsuKubun = 11;
    row.iHokenType = 12;
    row.iDelFlg = 13;
    row.iSinseiTP = 14;
    row.iSoufushoTP = 15;
    row.iDuplexFlg = 16;
    row.iStateNo = 37;
    row.iRiyouHokenKbn = 17;
    row.tUpDateTime = "2020/01/01";
    row.iPrintType = iPrintType;
    row.iKubun = 18;
    row.iKanagawaStaffPrint = 19;
    row.iJoseiFutanKiriage = 20;
    row.iTekiyouStaff = 21;
    return row;
}

const std::string kInsertColumns =
    "exec 1  insert into    SHINSEISYO (      iKyotenCd     ,iKyotenEb     ,nIDNo     ,cFileName     ,cDispName"
    "     ,iSejutsuKubun     ,iHokenType     ,iDelFlg     ,iSinseiTP     ,iSoufushoTP     ,iDuplexFlg     ,iStateNo"
    "     ,iRiyouHokenKbn     ,tUpDateTime     ,iPrintType     ,iKubun     ,iKanagawaStaffPrint"
    "     ,iJoseiFutanKiriage     ,iTekiyouStaff )values( ";
const std::string kUpdate =
    "exec 1  update      SHINSEISYO set       cFileName = '申請書.wfd'     ,cDispName = '療養費支給申請書'"
    "     ,iSejutsuKubun =  11     ,iHokenType =  12     ,iDelFlg =  13     ,iSinseiTP =  14     ,iSoufushoTP =  15"
    "     ,iDuplexFlg =  16     ,iStateNo =  37     ,iRiyouHokenKbn =  17     ,tUpDateTime = GetDate()"
    "     ,iKubun =  18     ,iKanagawaStaffPrint =  19     ,iJoseiFutanKiriage =  20     ,iTekiyouStaff =  21"
    " where    nIDNo = 5";

} // namespace

TEST_CASE("a fresh claim form has 0 in every number and empty texts")
{
    const cD_SHINSEISYO row;
    for (const std::int32_t value :
         {row.iTekiyouStaff, row.iKanagawaStaffPrint, row.iKyotenCd, row.iKyotenEb, row.nIDNo, row.iSejutsuKubun,
          row.iHokenType, row.iDelFlg, row.iSinseiTP, row.iSoufushoTP, row.iDuplexFlg, row.iStateNo, row.iRiyouHokenKbn,
          row.iPrintType, row.iKubun, row.iJoseiFutanKiriage})
        CHECK(value == 0);
    CHECK((row.cFileName + row.cDispName + row.tUpDateTime).empty());
}

TEST_CASE("a read of claim forms has a site condition except for print types 0 and 1")
{
    struct Row {
        std::int32_t nIDNo;
        std::int32_t iPrintType;
        const char *condition;
    };
    for (const Row &given :
         {Row{-1, 0, " where iPrintType = 0"}, Row{-1, 1, " where iPrintType = 1"},
          Row{-1, 2, " where iKyotenCd = 1 and iKyotenEb = 2 and iPrintType = 2"},
          Row{-1, -1, " where iKyotenCd = 1 and iKyotenEb = 2 and iPrintType = -1"},
          Row{0, 1, " where    nIDNo = 0 and iPrintType = 1"}, Row{7, 1, " where    nIDNo = 7 and iPrintType = 1"},
          Row{7, 3, " where    nIDNo = 7 and iKyotenCd = 1 and iKyotenEb = 2 and iPrintType = 3"},
          Row{-2, 1, " where iPrintType = 1"}}) {
        CAPTURE(given.condition);
        FormFixture forms;
        cD_SHINSEISYO row = form(given.iPrintType);
        row.nIDNo = given.nIDNo;
        CHECK(forms->iDataRead(&row) == iGood);
        CHECK(forms.database.log == Log{kRead + given.condition + kOrder});
    }
}

TEST_CASE("the grid of claim forms hides deleted ones and selects a prefecture on request")
{
    struct Row {
        std::int32_t iPrintType;
        std::int32_t iDelFlg;
        std::int32_t iStateNo;
        const char *condition;
    };
    for (const Row &given :
         {Row{1, 1, 0, " where iPrintType = 1"},
          Row{0, 0, 0, " where iPrintType = 0 and    (iDelFlg = 0 OR iDelFlg IS NULL)"},
          Row{1, 1, 37, " where iPrintType = 1 and    iStateNo = 37"}, Row{1, 1, -1, " where iPrintType = 1"},
          Row{2, -1, 0, " where iPrintType = 2 and iKyotenCd = 1 and iKyotenEb = 2"},
          Row{2, 0, 13,
              " where iPrintType = 2 and iKyotenCd = 1 and iKyotenEb = 2 and    (iDelFlg = 0 OR iDelFlg IS NULL)"
              " and    iStateNo = 13"}}) {
        CAPTURE(given.condition);
        FormFixture forms;
        cD_SHINSEISYO row = form(given.iPrintType);
        row.iDelFlg = given.iDelFlg;
        row.iStateNo = given.iStateNo;
        CHECK(forms->iDataReadGrid(&row) == iGood);
        CHECK(forms.database.log == Log{kRead + given.condition + kOrder});
    }
}

TEST_CASE("the highest number of a claim form is queried within site and print type")
{
    struct Row {
        std::int16_t iPrintType;
        const char *condition;
    };
    for (const Row &given : {Row{0, " iPrintType = 0"}, Row{1, " iPrintType = 1"},
                             Row{2, " iKyotenCd = 1 and iKyotenEb = 2 and iPrintType = 2"}}) {
        FormFixture forms;
        forms.database.results.push_back(rowsOf({"nIDNo"}, {{{"nIDNo", 41}}}));
        std::int32_t nMaxNo = 0;
        CHECK(forms->iGetMaxIDNo(nMaxNo, given.iPrintType) == iGood);
        CHECK(nMaxNo == 41);
        CHECK(forms.database.log == Log{std::string("sql 1   select      max(SHINSEISYO.nIDNo) as nIDNo"
                                                    "  FROM      SHINSEISYO where") +
                                        given.condition});
    }
}

TEST_CASE("the highest number without any claim form is 0")
{
    FormFixture forms;
    forms.database.results.push_back(rowsOf({"nIDNo"}, {{}}));
    std::int32_t nMaxNo = 9;
    CHECK(forms->iGetMaxIDNo(nMaxNo, 1) == iGood);
    CHECK(nMaxNo == 0);
}

TEST_CASE("a failed query of the highest number keeps the variable")
{
    FormFixture forms;
    forms.database.results.push_back(failure(-2147217865, "表がありません。"));
    std::int32_t nMaxNo = 9;
    CHECK(forms->iGetMaxIDNo(nMaxNo, 1) == iBad);
    CHECK(nMaxNo == 9);
    CHECK(forms->sErrMsg() == "(-2147217865)表がありません。\rSQL=  select      max(SHINSEISYO.nIDNo) as nIDNo"
                              "  FROM      SHINSEISYO where iPrintT・・・");
}

TEST_CASE("a system-wide claim form is inserted under branch 0, others under this site")
{
    struct Row {
        std::int32_t iPrintType;
        const char *site;
        const char *printType;
    };
    const std::string middle =
        "     ,5     ,'申請書.wfd'     ,'療養費支給申請書'     ,11     ,12     ,13     ,14     ,15"
        "     ,16     ,37     ,17     ,GetDate()     ,";
    for (const Row &given :
         {Row{0, "      '0'     ,'0'", "0"}, Row{1, "      '0'     ,'0'", "1"}, Row{2, "      '1'     ,'2'", "2"}}) {
        FormFixture forms;
        const cD_SHINSEISYO row = form(given.iPrintType);
        CHECK(forms->iDataInsert(&row, 0) == iGood);
        std::string sql = kInsertColumns;
        sql.append(given.site).append(middle).append(given.printType).append("     ,18     ,19     ,20     ,21 ) ");
        CHECK(forms.database.log == Log{sql});
    }
}

TEST_CASE("an update of a claim form sets all columns except its keys")
{
    FormFixture forms;
    const cD_SHINSEISYO own = form(3), wide = form(1);
    CHECK(forms->iDataUpdate(&own, 0) == iGood);
    CHECK(forms->iDataUpdate(&wide, 0) == iGood);
    CHECK(forms.database.log ==
          Log{kUpdate + " and iKyotenCd = 1 and iKyotenEb = 2 and iPrintType = 3", kUpdate + " and iPrintType = 1"});
}

TEST_CASE("a delete of a claim form uses its keys")
{
    FormFixture forms;
    const cD_SHINSEISYO own = form(3), wide = form(0);
    CHECK(forms->iData削除(&own, 0) == iGood);
    CHECK(forms->iData削除(&wide, 0) == iGood);
    CHECK(forms.database.log ==
          Log{"exec 1  delete from      SHINSEISYO where    nIDNo = 5    and iKyotenCd = 1    and iKyotenEb = 2"
              "    and iPrintType = 3",
              "exec 1  delete from      SHINSEISYO where    nIDNo = 5    and iPrintType = 0"});
}

TEST_CASE("a read fills each property of a claim form from its column")
{
    FormFixture forms;
    forms.database.results.push_back(rowsOf(kColumns, {{{"iKyotenCd", 1},
                                                        {"iKyotenEb", 2},
                                                        {"nIDNo", 3},
                                                        {"cFileName", " 申請書.wfd "},
                                                        {"cDispName", " 名 "},
                                                        {"iSejutsuKubun", 4},
                                                        {"iHokenType", 5},
                                                        {"iDelFlg", 6},
                                                        {"iSinseiTP", 7},
                                                        {"iSoufushoTP", 8},
                                                        {"iDuplexFlg", 9},
                                                        {"iStateNo", 10},
                                                        {"iRiyouHokenKbn", 11},
                                                        {"tUpDateTime", DateSerial(2024, 5, 1)},
                                                        {"iPrintType", 12},
                                                        {"iKubun", 13},
                                                        {"iKanagawaStaffPrint", 14},
                                                        {"iJoseiFutanKiriage", 15},
                                                        {"iTekiyouStaff", 16}}}));
    const cD_SHINSEISYO condition;
    REQUIRE(forms->iDataRead(&condition) == iGood);
    REQUIRE(forms->nデータ数() == 1);
    const cD_SHINSEISYO &read = forms->clsSHINSEISYO(0);
    CHECK(read.iKyotenCd == 1);
    CHECK(read.iKyotenEb == 2);
    CHECK(read.nIDNo == 3);
    CHECK(read.cFileName == "申請書.wfd");
    CHECK(read.cDispName == "名");
    CHECK(read.iSejutsuKubun == 4);
    CHECK(read.iHokenType == 5);
    CHECK(read.iDelFlg == 6);
    CHECK(read.iSinseiTP == 7);
    CHECK(read.iSoufushoTP == 8);
    CHECK(read.iDuplexFlg == 9);
    CHECK(read.iStateNo == 10);
    CHECK(read.iRiyouHokenKbn == 11);
    CHECK(read.tUpDateTime == "2024/05/01");
    CHECK(read.iPrintType == 12);
    CHECK(read.iKubun == 13);
    CHECK(read.iKanagawaStaffPrint == 14);
    CHECK(read.iJoseiFutanKiriage == 15);
    CHECK(read.iTekiyouStaff == 16);
}

TEST_CASE("NULL, a non-numeric text and a number out of range in a claim form count as empty or 0")
{
    FormFixture forms;
    forms.database.results.push_back(
        rowsOf(kColumns, {{{"nIDNo", 3}, {"iHokenType", "不明"}, {"iStateNo", 2147483648.0}, {"iKubun", 2.5}}}));
    const cD_SHINSEISYO condition;
    REQUIRE_MESSAGE(forms->iDataReadGrid(&condition) == iGood, forms->sErrMsg());
    const cD_SHINSEISYO &read = forms->clsSHINSEISYO(0);
    CHECK(read.nIDNo == 3);
    CHECK(read.cFileName.empty());
    CHECK(read.tUpDateTime.empty());
    CHECK(read.iDelFlg == 0);
    CHECK(read.iHokenType == 0);
    CHECK(read.iStateNo == 0);
    CHECK(read.iKubun == 2);
}

TEST_CASE("without a condition row the read of claim forms fails with the table's text, the grid with the runtime's")
{
    FormFixture forms;
    CHECK(forms->iDataRead(nullptr) == iBad);
    CHECK(forms->sErrMsg() == "SHINSEISYOが無効です。");
    CHECK(forms->iDataReadGrid(nullptr) == iBad);
    CHECK(forms->sErrMsg() == "91\r\nオブジェクト変数または With ブロック変数が設定されていません。");
    CHECK(forms.database.log.empty());
}

TEST_CASE("a claim form outside the rows is a subscript error")
{
    FormFixture forms;
    CHECK_THROWS_AS((void)forms->clsSHINSEISYO(0), RuntimeError);
}
