// The staff member in charge in the patient search: typed, or chosen in the staff window on top of it.

#include "search/search_fixture.h"

#include "runtime/runtime_error.h"

#include <doctest/doctest.h>

using namespace inin;

namespace {

using Texts = std::vector<std::string>;
using PatientsFixture = ListFixture<PatientList>;

/// The return key in the staff number, after a number was typed.
struct StaffNumberFixture : PatientsFixture {
    void typed(const Variant &number)
    {
        window.imNum_StaffNo.Value = number;
        world.windows.active = &window.imNum_StaffNo;
        world.windows.log.clear();
        window.key(&window.imNum_StaffNo, kReturnKey);
    }
    void checkAnswers(const std::vector<std::vector<Variant>> &rows)
    {
        FakeResult result;
        result.columns = {"cName", "iChusiFlg"};
        result.rows = rows;
        answer(kStaffCheck, result);
    }
};

} // namespace

TEST_CASE("the return key in a staff number that is empty or 0 selects the first entry and moves on")
{
    for (const Variant &empty : {Variant(Null{}), Variant(std::int32_t{0}), Variant()}) {
        StaffNumberFixture list;
        list.opened();
        list.window.cbo_Sejutusha.ListIndex = std::int16_t{1};
        list.typed(empty);
        CHECK(list.window.cbo_Sejutusha.ListIndex == 0);
        CHECK(list.statements().size() == 2); // nothing is looked up
        CHECK(list.count("tab") == 1);
    }
}

TEST_CASE("the return key in a staff number checks it, selects the entry and moves on")
{
    StaffNumberFixture list;
    list.opened();
    list.checkAnswers({{"鈴木 次郎", std::int16_t{0}}});
    list.typed(std::int32_t{12});
    CHECK(list.statements().back() ==
          "SELECT cName, iChusiFlg FROM STAFF  WHERE nIDNo = 12 AND iKyotenCd = 1 AND iKyotenEb = 2");
    CHECK(list.window.cbo_Sejutusha.ListIndex == 2);
    CHECK(list.count("tab") == 1);
    CHECK(list.world.boxes.shown.empty());
}

TEST_CASE("an unknown staff number shows an error and keeps the focus")
{
    StaffNumberFixture list;
    list.opened();
    list.checkAnswers({});
    list.typed(std::int32_t{99});
    CHECK(list.world.boxes.shown ==
          std::vector{ShownBox{"施術者の検索に失敗しました対象の施術者が存在しません。", Icon::critical, ""}});
    CHECK(list.count("tab") == 0);
    CHECK(list.window.imNum_StaffNo.Value.get() == Variant(std::int32_t{99}));
    CHECK(list.window.cbo_Sejutusha.ListIndex == 0);
}

TEST_CASE("a staff member whose management has ended cannot be confirmed")
{
    StaffNumberFixture list;
    list.opened();
    list.checkAnswers({{"佐藤 花子", std::int16_t{1}}});
    list.typed(std::int32_t{11});
    CHECK(list.boxTexts() == Texts{"施術者の検索に失敗しました管理対象から外れています。"});
    CHECK(list.window.cbo_Sejutusha.ListIndex == 0);
}

TEST_CASE("a usable staff number that is not in the list leaves the list unchanged and moves on")
{
    StaffNumberFixture list;
    list.opened();
    list.window.cbo_Sejutusha.ListIndex = std::int16_t{1};
    list.checkAnswers({{"新人 五郎", Null{}}});
    list.typed(std::int32_t{77});
    CHECK(list.window.cbo_Sejutusha.ListIndex == 1);
    CHECK(list.window.imNum_StaffNo.Value.get() == Variant(std::int32_t{77}));
    CHECK(list.count("tab") == 1);
}

TEST_CASE("the return key moves on from the staff list and from a kind of treatment, not from the search button")
{
    PatientsFixture list;
    list.opened();
    struct Row {
        Control &control;
        long tabs;
    };
    const Row rows[] = {
        {list.window.cbo_Sejutusha, 1}, {list.window.opt_SejutsuKubun(1), 1}, {list.window.btn_StaffSelect, 0}};
    for (const Row &row : rows) {
        CAPTURE(row.control.name());
        list.world.windows.active = &row.control;
        list.world.windows.log.clear();
        list.window.key(&row.control, kReturnKey);
        CHECK(list.count("tab") == row.tabs);
    }
}

TEST_CASE("the staff search on top of the patients' window returns number and entry")
{
    PatientsFixture list;
    list.opened();
    list.world.windows.acts.push_back([](Form &form) {
        CHECK(form.name() == "frm施術者検索");
        auto *grid = gridOf(form);
        REQUIRE(grid != nullptr);
        grid->onDblClick(2);
    });
    press(list.window.btn_StaffSelect);
    CHECK(list.window.imNum_StaffNo.Value.get() == Variant(std::int32_t{12}));
    CHECK(list.window.cbo_Sejutusha.ListIndex == 2);
    CHECK(list.window.isLoaded());
    CHECK(list.count("show frm施術者検索") == 1);
}

TEST_CASE("a chosen staff member of number 0 is selected in the list, not the entry without a condition")
{
    PatientsFixture list;
    list.answer(kStaffList, staffRows({{std::int32_t{11}, "佐藤 花子", ""}, {std::int32_t{0}, "番号 なし", ""}}));
    list.answer(kStaffFound, staffRows({{std::int32_t{0}, "番号 なし", ""}}));
    list.opened();
    list.world.windows.acts.push_back([](Form &form) { gridOf(form)->onDblClick(1); });
    press(list.window.btn_StaffSelect);
    CHECK(list.window.imNum_StaffNo.Value.get() == Variant(std::int32_t{0}));
    CHECK(list.window.cbo_Sejutusha.ListIndex == 2);
}

TEST_CASE("a staff search closed without a choice changes nothing in the patients' window")
{
    PatientsFixture list;
    list.opened();
    list.window.cbo_Sejutusha.ListIndex = std::int16_t{1};
    list.world.windows.closeByControlBox();
    press(list.window.btn_StaffSelect);
    CHECK(list.window.imNum_StaffNo.Value.get() == Variant(std::int32_t{11}));
    CHECK(list.window.cbo_Sejutusha.ListIndex == 1);
    CHECK(list.world.boxes.shown.empty());
}

TEST_CASE("a chosen staff member who is not in the list is only shown in the box")
{
    PatientsFixture list;
    list.opened();
    list.answer(kStaffFound, staffRows({{std::int32_t{77}, "新人 五郎", ""}}));
    list.world.windows.acts.push_back([](Form &form) { gridOf(form)->onDblClick(1); });
    press(list.window.btn_StaffSelect);
    CHECK(list.window.imNum_StaffNo.Value.get() == Variant(std::int32_t{77}));
    CHECK(list.window.cbo_Sejutusha.ListIndex == 0);
}

TEST_CASE("a staff search that cannot be shown is reported with the error text of its class")
{
    PatientsFixture list;
    list.opened();
    // The window's first step fails completely: neither its box nor the box about that failure can be shown.
    list.answer(kStaffList, failure());
    int boxes = 0;
    list.world.boxes.onShow = [&](const ShownBox &) {
        if (++boxes <= 3) throw RuntimeError(error_number::outOfMemory);
    };
    press(list.window.btn_StaffSelect);
    REQUIRE_FALSE(list.world.boxes.shown.empty());
    CHECK(list.world.boxes.shown.back() ==
          ShownBox{"施術者の検索に失敗しました(7)メモリが不足しています。", Icon::critical, ""});
    CHECK(list.window.isLoaded());
}
