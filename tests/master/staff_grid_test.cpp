#include "master/staff_table.h"

#include "master/staff_texts.h"
#include "master/table_fixture.h"
#include "runtime/date.h"

using namespace inin;

namespace {

const std::string kBeforeCondition = "sql 1   select" + kStaffGridList + "  FROM      STAFF";
constexpr const char *kStaffOrder = "  order by      nIDNo";

struct StaffGridFixture : TableFixture<cT_STAFF> {
    void answer(const std::vector<GivenRow> &rows) { database.results.push_back(rowsOf(kStaffGridColumns, rows)); }
    std::int16_t readGrid()
    {
        const cD_STAFF fresh;
        return table.iDataReadGrid(&fresh);
    }
};

std::int32_t whole(std::int32_t number)
{
    return number;
}

} // namespace

TEST_CASE("a fresh condition row lists the active staff of the branch in order of their numbers")
{
    StaffGridFixture staff;
    CHECK(staff.readGrid() == iGood);
    CHECK(staff.database.log == Log{kBeforeCondition +
                                    " where     (iChusiFlg = 0 OR iChusiFlg IS NULL) and iKyotenCd = 1"
                                    " and iKyotenEb = 2" +
                                    kStaffOrder});
}

TEST_CASE("each condition of the staff grid is present if its field is set")
{
    struct Row {
        const char *claim;
        std::int32_t iChusiFlg;
        std::int32_t nIDNo;
        const char *cName;
        const char *cNameKana;
        const char *condition;
    };
    const Row rows[] = {
        {"stopped and active staff together", 1, -1, "", "", " where iKyotenCd = 1 and iKyotenEb = 2"},
        {"any other mark likewise", -1, -1, "", "", " where iKyotenCd = 1 and iKyotenEb = 2"},
        {"a number of 0 is none", 1, 0, "", "", " where iKyotenCd = 1 and iKyotenEb = 2"},
        {"a number of 1", 1, 1, "", "", " where     nIDNo = 1 and iKyotenCd = 1 and iKyotenEb = 2"},
        {"a part of the name", 1, -1, "山", "", " where     cName LIKE '%山%' and iKyotenCd = 1 and iKyotenEb = 2"},
        {"a part of the kana", 1, -1, "", "ﾔﾏ", " where     cNameKana LIKE '%ﾔﾏ%' and iKyotenCd = 1 and iKyotenEb = 2"},
        {"a blank is a part of a name", 1, -1, " ", "",
         " where     cName LIKE '% %' and iKyotenCd = 1 and iKyotenEb = 2"},
        {"all of them", 0, 12, "山田", "ﾔﾏﾀﾞ",
         " where     (iChusiFlg = 0 OR iChusiFlg IS NULL) and     nIDNo = 12 and     cName LIKE '%山田%'"
         " and     cNameKana LIKE '%ﾔﾏﾀﾞ%' and iKyotenCd = 1 and iKyotenEb = 2"},
        {"a quote character as it is", 1, -1, "O'Neil", "",
         " where     cName LIKE '%O'Neil%' and iKyotenCd = 1 and iKyotenEb = 2"},
    };
    for (const Row &row : rows) {
        CAPTURE(row.claim);
        StaffGridFixture staff;
        cD_STAFF condition;
        condition.iChusiFlg = row.iChusiFlg;
        condition.nIDNo = row.nIDNo;
        condition.cName = row.cName;
        condition.cNameKana = row.cNameKana;
        CHECK(staff->iDataReadGrid(&condition) == iGood);
        CHECK(staff.database.log == Log{kBeforeCondition + row.condition + kStaffOrder});
    }
}

TEST_CASE("the staff grid reads the branch of this installation whatever the condition row's branch")
{
    StaffGridFixture staff;
    staff.app.iKyotenCd = 0;
    staff.app.iKyotenEb = 32767;
    cD_STAFF condition;
    condition.iChusiFlg = 1;
    condition.iKyotenId = 8;
    condition.iKyotenEb = 9;
    CHECK(staff->iDataReadGrid(&condition) == iGood);
    CHECK(staff.database.log == Log{kBeforeCondition + " where iKyotenCd = 0 and iKyotenEb = 32767" + kStaffOrder});
}

TEST_CASE("the staff grid fills each of its texts, trimmed on both sides")
{
    StaffGridFixture staff;
    staff.answer({{{"cAdress1", " 高松市番町1 "},
                   {"cAdress2", "2階 "},
                   {"cFaxNo", "087-1"},
                   {"cKaiNo", "会1"},
                   {"cMobNo", "090-1"},
                   {"cName", "  施術 一郎  "},
                   {"cNameKana", "ｾｼﾞｭﾂ ｲﾁﾛｳ"},
                   {"cTelNo", "087-2"},
                   {"cYubinNo", "760-0001"},
                   {"cTourokuNo", "登1"},
                   {"cSmileCd", "S1"},
                   {"cTourokuNo2", "登2"},
                   {"cEmail", "a@b"},
                   {"cPhysical", "良"},
                   {"cSikaku", "あん摩"},
                   {"cVehicleNumber", "香川1"},
                   {"cVehicleComment", "軽"},
                   {"cEmployeeNumber", "E1"},
                   {"cKaiNo2", "会2"},
                   {"cKaiNo3", "会3"},
                   {"cShikaiNo", "市1"},
                   {"cShikaiNo_Josei", "市2"},
                   {"cIninTourokuNo", "委1"}}});
    REQUIRE(staff.readGrid() == iGood);
    REQUIRE(staff->nデータ数() == 1);
    const cD_STAFF &row = staff->clsSTAFF(0);
    CHECK(row.cAdress1 == "高松市番町1");
    CHECK(row.cAdress2 == "2階");
    CHECK(row.cFaxNo == "087-1");
    CHECK(row.cKaiNo == "会1");
    CHECK(row.cMobNo == "090-1");
    CHECK(row.cName == "施術 一郎");
    CHECK(row.cNameKana == "ｾｼﾞｭﾂ ｲﾁﾛｳ");
    CHECK(row.cTelNo == "087-2");
    CHECK(row.cYubinNo == "760-0001");
    CHECK(row.cTourokuNo == "登1");
    CHECK(row.cSmileCd == "S1");
    CHECK(row.cTourokuNo2 == "登2");
    CHECK(row.cEmail == "a@b");
    CHECK(row.cPhysical == "良");
    CHECK(row.cSikaku == "あん摩");
    CHECK(row.cVehicleNumber == "香川1");
    CHECK(row.cVehicleComment == "軽");
    CHECK(row.cEmployeeNumber == "E1");
    CHECK(row.cKaiNo2 == "会2");
    CHECK(row.cKaiNo3 == "会3");
    CHECK(row.cShikaiNo == "市1");
    CHECK(row.cShikaiNo_Josei == "市2");
    CHECK(row.cIninTourokuNo == "委1");
}

TEST_CASE("the staff grid fills each of its numbers")
{
    StaffGridFixture staff;
    staff.answer({{{"iChusiFlg", std::int16_t{1}},
                   {"nIDNo", whole(2000000001)},
                   {"iSexKubun", " 2 "},
                   {"iTecAbi", whole(3)},
                   {"iSpeechAbi", whole(4)},
                   {"iClaimRate", whole(-5)},
                   {"iVehicleType", whole(6)},
                   {"iLookAllRiyousya", whole(7)},
                   {"iWebLicense", "8"},
                   {"iLookCharge", whole(9)},
                   {"iStaffHokenTouroku", whole(10)},
                   {"iContractType", whole(11)},
                   {"nLat", whole(34340000)},
                   {"nLon", whole(134040000)},
                   {"iIninTourokuChk", whole(14)},
                   {"iKanriSekininFlg", 2.5}}});
    REQUIRE(staff.readGrid() == iGood);
    const cD_STAFF &row = staff->clsSTAFF(0);
    CHECK(row.iChusiFlg == 1);
    CHECK(row.nIDNo == 2000000001);
    CHECK(row.iSexKubun == 2);
    CHECK(row.iTecAbi == 3);
    CHECK(row.iSpeechAbi == 4);
    CHECK(row.iClaimRate == -5);
    CHECK(row.iVehicleType == 6);
    CHECK(row.iLookAllRiyousya == 7);
    CHECK(row.iWebLicense == 8);
    CHECK(row.iLookCharge == 9);
    CHECK(row.iStaffHokenTouroku == 10);
    CHECK(row.iContractType == 11);
    CHECK(row.nLat == 34340000);
    CHECK(row.nLon == 134040000);
    CHECK(row.iIninTourokuChk == 14);
    CHECK(row.iKanriSekininFlg == 2);
}

TEST_CASE("the dates of a staff member are texts in the short date format")
{
    StaffGridFixture staff;
    staff.answer({{{"tBirthday", DateSerial(1980, 5, 1)}, {"tNyusyaDay", Date(45413.5)}, {"tKisanDay", " 2024/1/2 "}}});
    REQUIRE(staff.readGrid() == iGood);
    CHECK(staff->clsSTAFF(0).sBirthday == "1980/05/01");
    CHECK(staff->clsSTAFF(0).sNyusyaDay == "2024/05/01 12:00:00");
    CHECK(staff->clsSTAFF(0).sKisanDay == "2024/1/2");
}

TEST_CASE("a staff member with only NULLs has empty texts and zeros in the columns of the grid")
{
    StaffGridFixture staff;
    staff.answer({{}});
    REQUIRE(staff.readGrid() == iGood);
    REQUIRE(staff->nデータ数() == 1);
    const cD_STAFF &row = staff->clsSTAFF(0);
    for (const std::string *text : {&row.cName, &row.cNameKana, &row.cAdress1, &row.sBirthday, &row.sNyusyaDay,
                                    &row.sKisanDay, &row.cEmail, &row.cVehicleNumber, &row.cIninTourokuNo})
        CHECK(text->empty());
    // The fresh row's -1 is replaced by the 0 of NULL.
    for (const std::int32_t number : {row.nIDNo, row.iChusiFlg, row.iSexKubun, row.nLat, row.nLon}) CHECK(number == 0);
    CHECK(row.iTecAbi == 0);
    // The grid does not read these: they keep the values of a fresh row.
    for (const std::int32_t number : {row.iShikakuKubun, row.iSyokushuKubun, row.iYaku}) CHECK(number == -1);
}

TEST_CASE("the staff grid leaves unchanged the properties that it does not read")
{
    StaffGridFixture staff;
    std::vector<std::string> columns = kStaffGridColumns;
    columns.insert(columns.end(), {"cNameRyaku", "cRken", "iKyotenCd", "cPcName"});
    staff.database.results.push_back(
        rowsOf(columns, {{{"cNameRyaku", "略"}, {"cRken", "県"}, {"iKyotenCd", whole(5)}, {"cPcName", "PC"}}}));
    REQUIRE(staff.readGrid() == iGood);
    const cD_STAFF &row = staff->clsSTAFF(0);
    CHECK(row.cNameRyaku.empty());
    CHECK(row.cRken.empty());
    CHECK(row.iKyotenId == 0);
    CHECK(row.cPcName.empty());
}

TEST_CASE("a flag or a 16-bit number of a staff member beyond 16 bits overflows")
{
    for (const char *column : {"iChusiFlg", "iTecAbi", "iSpeechAbi", "iClaimRate", "iStaffHokenTouroku"}) {
        CAPTURE(column);
        StaffGridFixture staff;
        staff.answer({{{"nIDNo", whole(1)}, {column, whole(32767)}}, {{"nIDNo", whole(2)}, {column, whole(32768)}}});
        CHECK(staff.readGrid() == iBad);
        CHECK(staff->sErrMsg() == "6\r\nオーバーフローしました。");
        CHECK(staff->nデータ数() == 1);
    }
}

TEST_CASE("a branch without staff is a successful read of no rows")
{
    StaffGridFixture staff;
    CHECK(staff.readGrid() == iGood);
    CHECK(staff->nデータ数() == 0);
    CHECK(staff->sErrMsg().empty());
}

TEST_CASE("staff lists of 1 and of 5,000 keep the order of the read")
{
    for (const std::int32_t count : {1, 5000}) {
        CAPTURE(count);
        StaffGridFixture staff;
        std::vector<GivenRow> rows;
        for (std::int32_t number = 1; number <= count; ++number)
            rows.push_back({{"nIDNo", number}, {"cName", "施術者" + std::to_string(number)}});
        staff.answer(rows);
        REQUIRE(staff.readGrid() == iGood);
        REQUIRE(staff->nデータ数() == count);
        bool inOrder = true;
        for (std::int32_t index = 0; index < count; ++index)
            inOrder = inOrder && staff->clsSTAFF(index).nIDNo == index + 1 &&
                      staff->clsSTAFF(index).cName == "施術者" + std::to_string(index + 1);
        CHECK(inOrder);
    }
}

TEST_CASE("a second read replaces the staff")
{
    StaffGridFixture staff;
    staff.answer({{{"nIDNo", whole(1)}}, {{"nIDNo", whole(2)}}});
    staff.answer({{{"nIDNo", whole(3)}}});
    REQUIRE(staff.readGrid() == iGood);
    REQUIRE(staff.readGrid() == iGood);
    REQUIRE(staff->nデータ数() == 1);
    CHECK(staff->clsSTAFF(0).nIDNo == 3);
}

TEST_CASE("a name with a single quote is a failed opening of its statement")
{
    StaffGridFixture staff;
    staff.answer({{{"nIDNo", whole(1)}}});
    REQUIRE(staff.readGrid() == iGood);
    staff.database.results.push_back(failure(-2147217900, "'Neil' 付近に不適切な構文があります。"));
    cD_STAFF condition;
    condition.cName = "O'Neil";
    CHECK(staff->iDataReadGrid(&condition) == iBad);
    CHECK(staff->sErrMsg() == "(-2147217900)'Neil' 付近に不適切な構文があります。\rSQL="
                              "  select      STAFF.cAdress1 as cAdress1     ,STAFF.cAdress2 as cAdress2     ,ST・・・");
    // A read that did not open keeps the rows of the last one.
    CHECK(staff->nデータ数() == 1);
}

TEST_CASE("a connection lost in the row loop keeps the staff read completely before")
{
    StaffGridFixture staff;
    FakeResult result =
        rowsOf(kStaffGridColumns, {{{"nIDNo", whole(1)}}, {{"nIDNo", whole(2)}}, {{"nIDNo", whole(3)}}});
    result.failingMove = 2;
    staff.database.results.push_back(result);
    CHECK(staff.readGrid() == iBad);
    CHECK(staff->sErrMsg() == "-2147467259\r\n接続が失われました。");
    CHECK(staff->nデータ数() == 2);
    CHECK(staff->clsSTAFF(1).nIDNo == 2);
}

TEST_CASE("a column missing in the result ends the read at the first row")
{
    StaffGridFixture staff;
    staff.database.results.push_back(rowsOf({"cAdress1"}, {{{"cAdress1", "高松市"}}}));
    CHECK(staff.readGrid() == iBad);
    CHECK(staff->sErrMsg() == "3265\r\n要求された名前、または序数に対応する項目がコレクションで見つかりません。");
    CHECK(staff->nデータ数() == 0);
}

TEST_CASE("a staff grid without a condition row fails and sends nothing")
{
    StaffGridFixture staff;
    staff.answer({{{"nIDNo", whole(1)}}});
    REQUIRE(staff.readGrid() == iGood);
    staff.database.log.clear();
    CHECK(staff->iDataReadGrid(nullptr) == iBad);
    CHECK(staff->sErrMsg() == "STAFFが無効です。");
    CHECK(staff->nデータ数() == 1);
    CHECK(staff.database.log.empty());
}
