#include "printing/rules_fixture.h"
#include "runtime/runtime_error.h"

namespace inin {

namespace {

/// The form's control throws on a change, as a control of a toolkit may.
void spoil(Control &control, std::int32_t number)
{
    control.watch([number] { throw RuntimeError(number); });
}

ShownBox centralBoxOf(const std::string &description, const std::string &procedure)
{
    return {"下記の情報をオルバーネ株式会社までお伝えください。\rｴﾗｰNo.=" + description +
                "\rﾌｫｰﾑ名=frmPrintInin\r関数名=" + procedure + "\r",
            Icon::critical, "エラーが発生しました。メンテナンス処理"};
}

} // namespace

TEST_CASE("a change of a date box shows its month in the hidden label")
{
    struct Row {
        Date date;
        const char *month;
    };
    for (const Row &row :
         {Row{DateSerial(2024, 5, 31), "令和06年 05月"}, Row{DateSerial(2019, 4, 30), "平成31年 04月"},
          Row{DateSerial(2019, 5, 1), "令和01年 05月"}, Row{DateSerial(1988, 12, 1), "昭和63年 12月"}}) {
        RulesFixture fixture;
        fixture.form.imD_Out.Value = row.date;
        CHECK(fixture.form.iTPeriodMonth.Caption.get() == row.month);
        fixture.form.imD_Out.Value = DateSerial(2001, 1, 1);
        REQUIRE(fixture.form.iTPeriodMonth.Caption.get() == "平成13年 01月");
        fixture.form.imD_LastDay.Value = row.date;
        CHECK(fixture.form.iTPeriodMonth.Caption.get() == row.month);
    }
}

TEST_CASE_FIXTURE(RulesFixture,
                  "a target date option shows the month of its own box, and the hidden one leaves the label unchanged")
{
    form.imD_Out.Value = DateSerial(2024, 5, 1);
    form.imD_LastDay.Value = DateSerial(2024, 7, 28);
    click("optTgtDate(0)");
    CHECK(form.iTPeriodMonth.Caption.get() == "令和06年 05月");
    click("optTgtDate(1)");
    CHECK(form.iTPeriodMonth.Caption.get() == "令和06年 07月");
    click("optTgtDate(2)");
    CHECK(form.iTPeriodMonth.Caption.get() == "令和06年 07月");
}

TEST_CASE_FIXTURE(RulesFixture, "the dates of the period and of the signature show no month")
{
    form.imSetDateFrom.Value = DateSerial(2024, 5, 1);
    form.imSetDateTo.Value = DateSerial(2024, 5, 31);
    form.imSyomei.Value = DateSerial(2024, 5, 1);

    CHECK(form.iTPeriodMonth.Caption.get() == "平成99年99月");
}

TEST_CASE_FIXTURE(RulesFixture, "an emptied date box shows no month and causes no error")
{
    form.imD_Out.Value = DateSerial(2024, 5, 1);
    form.imD_Out.Value = Null{};

    CHECK(form.iTPeriodMonth.Caption.get().empty());
    CHECK(world.boxes.shown.empty());
}

TEST_CASE_FIXTURE(RulesFixture, "an error in the target date's click shows the central box and ends the click")
{
    spoil(form.imD_LastDay, 5);
    click("optTgtDate(0)");

    CHECK(world.boxes.shown == std::vector<ShownBox>{centralBoxOf("5（プロシージャの呼び出し、または引数が不正です。）",
                                                                  "optTgtDate_Click")});
    CHECK(form.iTgtDateKind == 1);
}

TEST_CASE_FIXTURE(RulesFixture, "a month that cannot be displayed is an error of the target date's click")
{
    form.imD_Out.Value.assignQuietly(Binary{std::byte{1}});
    click("optTgtDate(0)");

    CHECK(world.boxes.shown == std::vector<ShownBox>{centralBoxOf("13（型が一致しません。）", "optTgtDate_Click")});
}

TEST_CASE_FIXTURE(RulesFixture, "an error in the period's click is reported under the name of the target's click")
{
    spoil(form.imSetDateFrom, 6);
    click("optDspPeriod(0)");

    CHECK(world.boxes.shown == std::vector<ShownBox>{centralBoxOf("6（オーバーフローしました。）", "optObject_Click")});
    CHECK(form.imSetDateTo.Enabled);
}

TEST_CASE("an error in the report's or the signature's click goes to the caller")
{
    RulesFixture report, signature;
    spoil(report.form.cmbHoken, 91);
    spoil(signature.form.imSyomei, 91);

    CHECK_THROWS_AS(report.click("optPrint(1)"), RuntimeError);
    CHECK_THROWS_AS(signature.click("optSyomei(0)"), RuntimeError);
    CHECK(report.world.boxes.shown.empty());
    CHECK(signature.world.boxes.shown.empty());
}

TEST_CASE("the staff list writes the chosen number into the number box")
{
    struct Row {
        std::int16_t ListIndex;
        std::int32_t number;
    };
    for (const Row &row : {Row{0, 0}, Row{1, 11}, Row{2, 2147483647}, Row{3, 0}}) {
        RulesFixture fixture;
        ListBox &list = fixture.form.cbSejyutsu;
        list.AddItem("－ 指定なし －", -1);
        list.AddItem("佐藤 花子", 11);
        list.AddItem("鈴木 次郎", 2147483647);
        list.AddItem("番号なし", 0);
        list.ListIndex = row.ListIndex;
        CAPTURE(row.ListIndex);
        CHECK(fixture.form.imNum_StaffNo.Value.get() == Variant(row.number));
    }
}

TEST_CASE_FIXTURE(RulesFixture, "a staff list without a choice leaves the number box unchanged")
{
    form.cbSejyutsu.AddItem("佐藤 花子", 11);
    form.cbSejyutsu.ListIndex = std::int16_t{0};
    form.imNum_StaffNo.Value = std::int32_t{77};
    form.cbSejyutsu.ListIndex = std::int16_t{-1};

    CHECK(form.imNum_StaffNo.Value.get() == Variant(std::int32_t{77}));
}

} // namespace inin
