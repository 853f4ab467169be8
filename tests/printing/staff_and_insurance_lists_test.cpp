#include "printing/print_fixture.h"
#include "runtime/runtime_error.h"

#include <doctest/doctest.h>

namespace inin {

namespace {

/// A screen with its own session, as the load leaves it before filling the lists.
struct ListFixture : PrintFixture {
    ListFixture()
    {
        form.session = std::make_unique<cT_ADODB>(world.app);
        REQUIRE(form.session->iInit("Provider=Fake") == iGood);
        REQUIRE(form.session->iConnect() == iGood);
        world.database.log.clear();
    }
};

using Items = std::vector<std::pair<std::string, std::int32_t>>;

Items itemsOf(const ListBox &list)
{
    Items items;
    for (const ListBox::Item &item : list.items()) items.emplace_back(item.text, item.ItemData);
    return items;
}

FakeResult failing(std::int32_t number, const std::string &description)
{
    FakeResult result;
    result.error = number;
    result.description = description;
    return result;
}

FakeResult manyStaff(std::int32_t count)
{
    std::vector<std::pair<Variant, Variant>> rows;
    for (std::int32_t number = 1; number <= count; ++number)
        rows.emplace_back(number, "施術者" + std::to_string(number));
    return staffMembers(rows);
}

} // namespace

TEST_CASE_FIXTURE(ListFixture, "the staff list contains its first entry and the staff in the order of the read")
{
    answerTo(kStaffSql, staffMembers({{std::int32_t{30}, "後"}, {std::int32_t{4}, " 先 "}, {std::int32_t{9}, Null{}}}));

    CHECK(form.setStuff() == 0);
    CHECK(itemsOf(form.cbSejyutsu) == Items{{"－ 指定なし －", -1}, {"後", 30}, {"先", 4}, {"", 9}});
    CHECK(form.cbSejyutsu.ListIndex == 0);
    CHECK(form.imNum_StaffNo.Value.get() == Variant(std::int32_t{0}));
}

TEST_CASE_FIXTURE(ListFixture, "the staff list reads this branch on the screen's session, and closes nothing")
{
    REQUIRE(form.setStuff() == 0);

    REQUIRE(world.database.log.size() == 1);
    CHECK(world.database.log[0].starts_with("sql 1   select      STAFF.cAdress1 as cAdress1     ,STAFF.cAdress2"));
    CHECK(world.database.log[0].ends_with("  FROM      STAFF where     (iChusiFlg = 0 OR iChusiFlg IS NULL)"
                                          " and iKyotenCd = 1 and iKyotenEb = 2  order by      nIDNo"));
}

TEST_CASE_FIXTURE(ListFixture, "ticking the box of former staff fills the staff list again without the condition")
{
    form.chkChushi.Value = std::int16_t{1};

    REQUIRE(world.database.log.size() == 1);
    CHECK(world.database.log[0].ends_with(
        "  FROM      STAFF where iKyotenCd = 1 and iKyotenEb = 2  order by      nIDNo"));
    CHECK(form.cbSejyutsu.ListCount() == 3);

    form.chkChushi.Value = std::int16_t{0};
    REQUIRE(world.database.log.size() == 2);
    CHECK(world.database.log[1].find("iChusiFlg = 0 OR") != std::string::npos);
}

TEST_CASE_FIXTURE(ListFixture, "refilling the staff list selects its first entry and sets the number to 0")
{
    REQUIRE(form.setStuff() == 0);
    form.cbSejyutsu.ListIndex = std::int16_t{2};
    REQUIRE(form.imNum_StaffNo.Value.get() == Variant(std::int32_t{12}));

    CHECK(form.setStuff() == 0);
    CHECK(form.cbSejyutsu.ListCount() == 3);
    CHECK(form.cbSejyutsu.ListIndex == 0);
    CHECK(form.imNum_StaffNo.Value.get() == Variant(std::int32_t{0}));
}

TEST_CASE_FIXTURE(ListFixture, "an empty staff table fails with its message and keeps the old list")
{
    REQUIRE(form.setStuff() == 0);
    answerTo(kStaffSql, staffMembers({}));

    CHECK(form.setStuff() == -1);
    CHECK(form.csErrMsg == "スタッフが存在しません。メイン画面に戻ります");
    CHECK(form.cbSejyutsu.ListCount() == 3);
    CHECK(world.boxes.shown.empty());
}

TEST_CASE("staff tables of 1 and 5,000 rows are listed completely")
{
    for (const std::int32_t count : {1, 5000}) {
        ListFixture fixture;
        fixture.answerTo(kStaffSql, manyStaff(count));
        CAPTURE(count);
        REQUIRE(fixture.form.setStuff() == 0);
        CHECK(fixture.form.cbSejyutsu.ListCount() == count + 1);
        CHECK(fixture.form.cbSejyutsu.ItemData(static_cast<std::int16_t>(count)) == count);
        CHECK(fixture.form.cbSejyutsu.items().back().text == "施術者" + std::to_string(count));
    }
}

TEST_CASE_FIXTURE(ListFixture, "more staff than a list can count is an overflow of the fill")
{
    answerTo(kStaffSql, manyStaff(32767));

    CHECK(form.setStuff() == -1);
    CHECK(form.csErrMsg == "setStuff でエラー6\r\nオーバーフローしました。");
}

TEST_CASE_FIXTURE(ListFixture, "a staff row whose columns are all NULL is an empty entry with the number 0")
{
    answerTo(kStaffSql, staffMembers({{Null{}, Null{}}}));

    CHECK(form.setStuff() == 0);
    CHECK(itemsOf(form.cbSejyutsu) == Items{{"－ 指定なし －", -1}, {"", 0}});
}

TEST_CASE("a failed staff read sets the table's error text after the heading, and shows nothing")
{
    struct Row {
        FakeResult answer;
        const char *csErrMsg;
    };
    FakeResult halfway = staffMembers({{std::int32_t{1}, "一"}, {std::int32_t{2}, "二"}});
    halfway.failingMove = 1;
    const Row rows[] = {
        {failing(-2147217865, "STAFFがありません。"),
         "setStuff でエラー(-2147217865)STAFFがありません。\rSQL=  select      STAFF.cAdress1 as cAdress1"
         "     ,STAFF.cAdress2 as cAdress2     ,ST・・・"},
        {staffMembers({{"番号", "名"}}), "setStuff でエラー13\r\n型が一致しません。"},
        {staffMembers({{3e9, "名"}}), "setStuff でエラー6\r\nオーバーフローしました。"},
    };
    for (const Row &row : rows) {
        ListFixture fixture;
        fixture.answerTo(kStaffSql, row.answer);
        CHECK(fixture.form.setStuff() == -1);
        CHECK(fixture.form.csErrMsg == row.csErrMsg);
        CHECK(fixture.world.boxes.shown.empty());
    }
    ListFixture fixture;
    fixture.answerTo(kStaffSql, halfway);
    CHECK(fixture.form.setStuff() == -1);
    CHECK(fixture.form.csErrMsg.starts_with("setStuff でエラー"));
    CHECK(fixture.form.cbSejyutsu.ListCount() == 0);
}

TEST_CASE_FIXTURE(PrintFixture, "a staff list without a session fails with the runtime's error text")
{
    CHECK(form.setStuff() == -1);
    CHECK(form.csErrMsg == "setStuff でエラー91\r\nオブジェクト変数または With ブロック変数が設定されていません。");
}

TEST_CASE_FIXTURE(PrintFixture,
                  "ticking the box of former staff on a screen that never connected has no visible effect")
{
    form.chkChushi.Value = std::int16_t{1};

    CHECK(world.boxes.shown.empty());
    CHECK(form.cbSejyutsu.ListCount() == 0);
}

TEST_CASE_FIXTURE(ListFixture, "a staff fill that a control refuses fails with the error's number and text")
{
    form.imNum_StaffNo.watch([] { throw RuntimeError(380); });

    CHECK(form.setStuff() == -1);
    CHECK(form.csErrMsg.starts_with("setStuff でエラー380\r\n"));
}

TEST_CASE_FIXTURE(PrintFixture, "the insurance list contains its first entry and the labels with their kinds")
{
    answerTo(
        kInsuranceSql,
        insuranceKinds({{Null{}, " 種別なし "}, {std::int32_t{1}, Null{}}, {std::int32_t{1}, "国保"}, {"7", "社保"}}));
    world.database.log.clear();

    CHECK(form.nGetFutanKingaku() == 0);
    CHECK(itemsOf(form.cmbHoken) == Items{{"－ 指定なし －", -1}, {"種別なし", 0}, {"", 1}, {"国保", 1}, {"社保", 7}});
    CHECK(form.cmbHoken.ListIndex == 0);
    CHECK(world.database.log ==
          std::vector<std::string>{"connect 1",
                                   "sql 1   select      HOKEN.cName as cName     ,HOKEN.cRyaku as cRyaku"
                                   "     ,HOKEN.cType as cType     ,HOKEN.iType as iType  FROM      HOKEN"
                                   "  order by      iType",
                                   "disconnect 1"});
}

TEST_CASE_FIXTURE(PrintFixture, "an empty insurance table leaves only the first entry in the list")
{
    answerTo(kInsuranceSql, insuranceKinds({}));

    CHECK(form.nGetFutanKingaku() == 0);
    CHECK(itemsOf(form.cmbHoken) == Items{{"－ 指定なし －", -1}});
}

TEST_CASE("a kind beyond 16 bits is listed completely, and one beyond 32 bits fails the read")
{
    PrintFixture large, huge;
    large.answerTo(kInsuranceSql, insuranceKinds({{std::int32_t{70000}, "大"}, {std::int32_t{-2147483647}, "小"}}));
    huge.answerTo(kInsuranceSql, insuranceKinds({{3e9, "巨"}}));

    CHECK(large.form.nGetFutanKingaku() == 0);
    CHECK(itemsOf(large.form.cmbHoken) == Items{{"－ 指定なし －", -1}, {"大", 70000}, {"小", -2147483647}});
    CHECK(huge.form.nGetFutanKingaku() == -1);
    CHECK(huge.world.boxes.shown.empty());
}

TEST_CASE_FIXTURE(PrintFixture, "a failed insurance read shows no box of its own and keeps the old list")
{
    answerTo(kInsuranceSql, failing(-2147217865, "HOKENがありません。"));

    CHECK(form.nGetFutanKingaku() == -1);
    CHECK(world.boxes.shown.empty());
    CHECK(itemsOf(form.cmbHoken) == Items{{"－ 指定なし －", -1}, {"国保", 30}});
}

TEST_CASE_FIXTURE(PrintFixture, "a failed connection for the insurance list shows its heading and its error text")
{
    world.database.connectError = ado_error::timedOut;

    CHECK(form.nGetFutanKingaku() == -1);
    CHECK(onlyBox() == ShownBox{"nGetFutanKingaku() でエラー\r\n(-2147217871)接続できません。", Icon::critical, ""});
}

TEST_CASE_FIXTURE(PrintFixture, "the insurance list does not use the screen's session")
{
    form.load();
    const cT_ADODB *session = form.session.get();
    REQUIRE(form.nGetFutanKingaku() == 0);

    CHECK(form.session.get() == session);
    CHECK(world.database.log.back() == "disconnect 4");
}

TEST_CASE_FIXTURE(PrintFixture, "more kinds than a list can count fail the fill and keep the entries added so far")
{
    answerTo(kInsuranceSql, insuranceKinds(std::vector<std::pair<Variant, Variant>>(32767, {std::int32_t{1}, "同"})));

    CHECK(form.nGetFutanKingaku() == -1);
    CHECK(form.cmbHoken.ListCount() == 32767);
    CHECK(form.cmbHoken.ListIndex == -1);
}

TEST_CASE_FIXTURE(ListFixture, "a number without an entry stays in the box, and the list is unchanged")
{
    REQUIRE(form.setStuff() == 0);
    form.cbSejyutsu.ListIndex = std::int16_t{1};
    form.imNum_StaffNo.Value = std::int32_t{999};

    CHECK(form.cbSejyutsu.ListIndex == 1);
    markScreen();
    REQUIRE(form.iGetPrintCond() == 0);
    CHECK(form.nStaffNo == 999);
}

} // namespace inin
