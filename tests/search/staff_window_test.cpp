// Behaviour of the staff search only.

#include "search/search_fixture.h"

#include <doctest/doctest.h>

using namespace inin;

namespace {
using Texts = std::vector<std::string>;
} // namespace

TEST_CASE("the staff window shows these captions and columns, and has no staff list, kinds or information")
{
    const SearchFixture fixture;
    FakeWorld world;
    const frm施術者検索 window(world.app);
    CHECK(window.name() == "frm施術者検索");
    CHECK(window.Caption.get() == "施術者検索");
    CHECK(window.chkEndSejutsuha.name() == "chkEndSejutsuha");
    CHECK(window.chkEndSejutsuha.Caption.get() == "管理を終了した施術者も表示する");
    Texts headers;
    for (const Grid::Column &column : window.spr_1ran.columns()) headers.push_back(column.header);
    CHECK(headers == Texts{"IDNo.", "施術者名", "フリガナ"});
    for (const char *name : {"cbo_Sejutusha", "imNum_StaffNo", "btn_StaffSelect", "opt_SejutsuKubun(0)", "lbl_1ranInf"})
        CHECK(window.find(name) == nullptr);
}

TEST_CASE("a staff row has number, name and kana")
{
    ListFixture<StaffList> list;
    list.opened();
    CHECK(rowTexts(list.window.spr_1ran, 2) == Texts{"12", "鈴木 次郎", "ｽｽﾞｷ ｼﾞﾛｳ"});
}

TEST_CASE("the staff window opens no session of its own")
{
    ListFixture<StaffList> list;
    list.init();
    CHECK(list.world.database.log.empty());
    CHECK(list.window.iInit(0, 0, -1) == 0);
}

TEST_CASE("former staff are hidden unless the caller or the check box includes them")
{
    ListFixture<StaffList> hidden;
    hidden.opened();
    CHECK(hidden.window.chkEndSejutsuha.Value == 0);
    CHECK(hidden.statements().back() ==
          " select      * from      (         select              nIDNo             ,iKyotenCd             ,iKyotenEb"
          "             ,cName             ,cNameRyaku              ,cNameKana          from              STAFF where "
          "(iChusiFlg = 0 OR iChusiFlg IS NULL) and iKyotenCd = 1 and iKyotenEb = 2      )staff order by     nIDNo    "
          ",cName ");
    const std::string all =
        " select      * from      (         select              nIDNo             ,iKyotenCd             ,iKyotenEb"
        "             ,cName             ,cNameRyaku              ,cNameKana          from              STAFF where "
        "iKyotenCd = 1 and iKyotenEb = 2      )staff order by     nIDNo    ,cName ";
    hidden.window.chkEndSejutsuha.Value = 1;
    press(hidden.window.but_Read);
    CHECK(hidden.statements().back() == all);

    SearchFixture shown;
    frm施術者検索 window(shown.world.app);
    REQUIRE(window.iInit(0, 1, -1) == 0);
    open(window);
    CHECK(window.chkEndSejutsuha.Value == 1);
    CHECK(shown.statements().back() == all);
}

TEST_CASE("staff number 0 sets no condition, and 1 sets one")
{
    ListFixture<StaffList> list;
    list.opened();
    list.window.in_SiboriID.Value = std::int32_t{0};
    press(list.window.but_Read);
    CHECK(list.statements().back().find(" nIDNo = ") == std::string::npos);
    list.window.in_SiboriID.Value = std::int32_t{1};
    press(list.window.but_Read);
    CHECK(list.statements().back().find(" and nIDNo = 1 and") != std::string::npos);
}

TEST_CASE("a consultation without staff shows the message of an empty list")
{
    SearchFixture fixture;
    fixture.answer(kStaffFound, staffRows({}));
    frm施術者検索 window(fixture.world.app);
    REQUIRE(window.iInit(0, 0, 77) == 0);
    open(window);
    CHECK(fixture.statements().back().ends_with(" where      soudan.SoudanID = 77 order by     nIDNo    ,cName "));
    CHECK(fixture.world.boxes.shown ==
          std::vector{ShownBox{"該当する施術者データがありません。", Icon::information, ""}});
    CHECK(window.isLoaded());
}

TEST_CASE("all boxes together set all conditions of a staff search, and the consultation is kept")
{
    SearchFixture fixture;
    frm施術者検索 window(fixture.world.app);
    REQUIRE(window.iInit(0, 1, 77) == 0);
    open(window);
    window.txt_SiboriName.Text = "佐藤";
    window.txt_SiboriKana.Text = "ｻﾄｳ";
    window.chkEndSejutsuha.Value = 0;
    window.in_SiboriID.Value = std::int32_t{11};
    press(window.but_Read);
    CHECK(
        fixture.statements().back() ==
        " select      * from      (         select              nIDNo             ,iKyotenCd             ,iKyotenEb"
        "             ,cName             ,cNameRyaku              ,cNameKana          from              STAFF where "
        "cName LIKE '%佐藤%' and cNameKana LIKE '%ｻﾄｳ%' and (iChusiFlg = 0 OR iChusiFlg IS NULL) and nIDNo = 11 and "
        "iKyotenCd = 1 and iKyotenEb = 2      )staff      left join      (         select              nIDNo as "
        "SoudanID             ,iStaffKyotenCd             ,iStaffKyotenEb              ,nStaffIDNo          from      "
        "        SOUDAN_TANTOU         where              iStaffKyotenCd = 1         and  iStaffKyotenEb = 2      "
        ")soudan      on          staff.nIDNo = soudan.nStaffIDNo      and staff.iKyotenCd = soudan.iStaffKyotenCd    "
        "  and staff.iKyotenEb = soudan.iStaffKyotenEb where      soudan.SoudanID = 77 order by     nIDNo    ,cName ");
}
