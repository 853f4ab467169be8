#include "master/staff_table.h"

#include "master/staff_texts.h"
#include "master/table_fixture.h"

using namespace inin;

namespace {

using StaffFixture = TableFixture<cT_STAFF>;

} // namespace

TEST_CASE("the grid of all branches has its own conditions, the branch's name and no branch condition")
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
        {"no condition at all", 1, 0, "", "", ""},
        {"active staff", 0, -1, "", "", " where     (STAFF.iChusiFlg = 0 OR STAFF.iChusiFlg IS NULL)"},
        {"all of them", 0, 12, "山田", "ﾔﾏﾀﾞ",
         " where     (STAFF.iChusiFlg = 0 OR STAFF.iChusiFlg IS NULL) and     STAFF.nIDNo = 12"
         " and     STAFF.cName LIKE '%山田%' and     STAFF.cNameKana LIKE '%ﾔﾏﾀﾞ%'"},
    };
    for (const Row &row : rows) {
        CAPTURE(row.claim);
        StaffFixture staff;
        cD_STAFF condition;
        condition.iChusiFlg = row.iChusiFlg;
        condition.nIDNo = row.nIDNo;
        condition.cName = row.cName;
        condition.cNameKana = row.cNameKana;
        CHECK(staff->iDataReadGrid_AllKyoten(&condition) == iGood);
        CHECK(staff.database.log ==
              Log{"sql 1   select" + kStaffGridList +
                  "     ,STAFF.iKyotenCd     ,STAFF.iKyotenEb     ,KYOTEN.cKyotenName  FROM      STAFF"
                  "  LEFT JOIN KYOTEN ON      KYOTEN.iKyotenCd = STAFF.iKyotenCd"
                  "  AND KYOTEN.iKyotenEb = STAFF.iKyotenEb" +
                  row.condition + "  order by      STAFF.iKyotenCd, STAFF.iKyotenEb, STAFF.nIDNo"});
    }
}

TEST_CASE("the grid of all branches fills the branch and its name, and not the three numbers of the other lists")
{
    StaffFixture staff;
    std::vector<std::string> columns = kStaffGridColumns;
    columns.insert(columns.end(), {"iKyotenCd", "iKyotenEb", "cKyotenName"});
    staff.database.results.push_back(rowsOf(columns, {{{"cName", "山田"},
                                                       {"cTourokuNo", "登1"},
                                                       {"cKaiNo", "会1"},
                                                       {"cKaiNo2", "会2"},
                                                       {"cKaiNo3", "会3"},
                                                       {"cTourokuNo2", "登2"},
                                                       {"iKyotenCd", std::int32_t{3}},
                                                       {"iKyotenEb", std::int32_t{4}},
                                                       {"cKyotenName", " 丸亀 "}}}));
    const cD_STAFF fresh;
    REQUIRE(staff->iDataReadGrid_AllKyoten(&fresh) == iGood);
    const cD_STAFF &row = staff->clsSTAFF(0);
    CHECK(row.cName == "山田");
    CHECK(row.cTourokuNo == "登1");
    CHECK(row.cKaiNo == "会1");
    CHECK(row.iKyotenId == 3);
    CHECK(row.iKyotenEb == 4);
    CHECK(row.cKyotenName == "丸亀");
    CHECK(row.cKaiNo2.empty());
    CHECK(row.cKaiNo3.empty());
    CHECK(row.cTourokuNo2.empty());
}
