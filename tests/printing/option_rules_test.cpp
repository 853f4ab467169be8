#include "printing/rules_fixture.h"
#include "runtime/runtime_error.h"

#include <algorithm>

namespace inin {

namespace {
using Names = std::vector<std::string>;

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

TEST_CASE("each option disables exactly these controls of a fresh screen")
{
    struct Row {
        const char *option;
        Names disabled;
    };
    const Row rows[] = {
        {"optPrint(0)", {}},
        {"optPrint(1)", {"optObject(0)",    "optObject(1)",    "btn_StaffSelect", "imNum_StaffNo", "cbSejyutsu",
                         "btn_KanjaSelect", "imNum_CD",        "lbl_SelKanja",    "chkExpireDay",  "optTgtDate(0)",
                         "imD_Out",         "optTgtDate(1)",   "imD_LastDay",     "cmbHoken",      "optTrust(0)",
                         "optTrust(1)",     "optDspPeriod(0)", "optDspPeriod(1)", "imSetDateFrom", "imSetDateTo"}},
        {"optPrint(2)", {}},
        {"optObject(0)", {}},
        {"optObject(1)", {}},
        {"optObject(2)", {}},
        {"optTgtDate(0)", {"imD_LastDay"}},
        {"optTgtDate(1)", {"imD_Out"}},
        {"optTgtDate(2)", {"frmObject", "imD_Out", "imD_LastDay"}},
        {"optTrust(0)", {}},
        {"optTrust(1)", {}},
        {"optDspPeriod(0)", {"imSetDateFrom", "imSetDateTo"}},
        {"optDspPeriod(1)", {}},
        {"optSyomei(0)", {"imSyomei"}},
    };
    for (const Row &row : rows) {
        RulesFixture fixture;
        fixture.click(row.option);
        CAPTURE(row.option);
        Names expected = row.disabled, disabled = fixture.disabled();
        std::ranges::sort(expected);
        std::ranges::sort(disabled);
        CHECK(disabled == expected);
    }
}

TEST_CASE("each option enables exactly these controls of a completely disabled screen")
{
    struct Row {
        const char *option;
        Names enabled;
    };
    const Names conditions = {"optObject(0)",    "optObject(1)",    "btn_StaffSelect", "imNum_StaffNo", "cbSejyutsu",
                              "btn_KanjaSelect", "imNum_CD",        "lbl_SelKanja",    "chkExpireDay",  "optTgtDate(0)",
                              "imD_Out",         "optTgtDate(1)",   "imD_LastDay",     "cmbHoken",      "optTrust(0)",
                              "optTrust(1)",     "optDspPeriod(0)", "optDspPeriod(1)", "imSetDateFrom", "imSetDateTo"};
    const Row rows[] = {
        {"optPrint(0)", conditions},
        {"optPrint(1)", {}},
        {"optPrint(2)", conditions},
        {"optObject(0)", {}},
        {"optObject(2)", {}},
        {"optTgtDate(0)", {"imD_Out", "frmObject"}},
        {"optTgtDate(1)", {"imD_LastDay", "frmObject"}},
        {"optTgtDate(2)", {}},
        {"optTrust(1)", {}},
        {"optDspPeriod(0)", {}},
        {"optDspPeriod(1)", {"imSetDateFrom", "imSetDateTo"}},
        {"optSyomei(0)", {}},
    };
    for (const Row &row : rows) {
        RulesFixture fixture;
        fixture.disableEverything();
        fixture.click(row.option);
        CAPTURE(row.option);
        Names expected = row.enabled, enabled;
        for (const Control *control : fixture.form.controls())
            if (control->Enabled) enabled.push_back(control->name());
        std::ranges::sort(expected);
        std::ranges::sort(enabled);
        CHECK(enabled == expected);
    }
}

TEST_CASE_FIXTURE(RulesFixture, "the entered signature enables its date again")
{
    click("optSyomei(0)");
    REQUIRE(disabled() == Names{"imSyomei"});
    click("optSyomei(1)");

    CHECK(disabled().empty());
}

TEST_CASE("each option sets the kind of its group and leaves the other kinds unchanged")
{
    struct Row {
        const char *option;
        std::int16_t iTgtDateKind, iObjectKind, iDspPeriodKind, iTrustKind;
    };
    const Row rows[] = {
        {"optObject(0)", 7, 1, 7, 7},    {"optObject(1)", 7, 2, 7, 7},  {"optObject(2)", 7, 2, 7, 7},
        {"optTrust(0)", 7, 7, 7, 1},     {"optTrust(1)", 7, 7, 7, 2},   {"optTgtDate(0)", 1, 7, 7, 7},
        {"optTgtDate(1)", 2, 7, 7, 7},   {"optTgtDate(2)", 3, 7, 7, 7}, {"optDspPeriod(0)", 7, 7, 1, 7},
        {"optDspPeriod(1)", 7, 7, 2, 7}, {"optSyomei(0)", 7, 7, 7, 7},  {"optPrint(0)", 7, 7, 7, 7},
        {"optPrint(1)", 7, 2, 7, 7},     {"optPrint(2)", 7, 7, 7, 7},
    };
    for (const Row &row : rows) {
        RulesFixture fixture;
        frmPrintInin &form = fixture.form;
        form.iTgtDateKind = form.iObjectKind = form.iDspPeriodKind = form.iTrustKind = form.iPrintKind = 7;
        fixture.click(row.option);
        CAPTURE(row.option);
        CHECK(form.iTgtDateKind == row.iTgtDateKind);
        CHECK(form.iObjectKind == row.iObjectKind);
        CHECK(form.iDspPeriodKind == row.iDspPeriodKind);
        CHECK(form.iTrustKind == row.iTrustKind);
        CHECK(form.iPrintKind == 7);
    }
}

TEST_CASE_FIXTURE(RulesFixture,
                  "the Aichi format disables the conditions in order and selects the forced option in between")
{
    Names changed;
    watchInto(changed);
    click("optPrint(1)");

    CHECK(changed == Names{"optPrint(1)",     "optTrust(0)",   "optTrust(1)",   "optDspPeriod(0)", "optDspPeriod(1)",
                           "imSetDateFrom",   "imSetDateTo",   "optObject(2)",  "optObject(0)",    "optObject(1)",
                           "btn_StaffSelect", "imNum_StaffNo", "cbSejyutsu",    "btn_KanjaSelect", "imNum_CD",
                           "lbl_SelKanja",    "chkExpireDay",  "optTgtDate(0)", "optTgtDate(1)",   "imD_Out",
                           "imD_LastDay",     "cmbHoken"});
}

TEST_CASE("the other formats enable the conditions again in the same order")
{
    for (const char *option : {"optPrint(0)", "optPrint(2)"}) {
        RulesFixture fixture;
        fixture.click("optPrint(1)");
        Names changed;
        fixture.watchInto(changed);
        fixture.click(option);
        CAPTURE(option);
        CHECK(changed == Names{option,          "optPrint(1)",     "optTrust(0)",
                               "optTrust(1)",   "optDspPeriod(0)", "optDspPeriod(1)",
                               "imSetDateFrom", "imSetDateTo",     "optObject(0)",
                               "optObject(1)",  "btn_StaffSelect", "imNum_StaffNo",
                               "cbSejyutsu",    "btn_KanjaSelect", "imNum_CD",
                               "lbl_SelKanja",  "chkExpireDay",    "optTgtDate(0)",
                               "optTgtDate(1)", "imD_Out",         "imD_LastDay",
                               "cmbHoken"});
    }
}

TEST_CASE("after the Aichi format the forced option stays selected and both dates of each pair are enabled")
{
    for (const char *option : {"optPrint(0)", "optPrint(2)"}) {
        RulesFixture fixture;
        for (const char *before : {"optObject(0)", "optTgtDate(0)", "optDspPeriod(0)", "optPrint(1)"})
            fixture.click(before);
        fixture.click(option);
        CAPTURE(option);
        CHECK(fixture.form.optObject.marked() == 2);
        CHECK(fixture.form.optTgtDate.marked() == 0);
        CHECK(fixture.form.optDspPeriod.marked() == 0);
        CHECK(fixture.disabled().empty());
    }
}

TEST_CASE_FIXTURE(RulesFixture, "the next click in a group corrects the state after the blind enabling")
{
    for (const char *option : {"optTgtDate(0)", "optDspPeriod(0)", "optPrint(1)", "optPrint(0)"}) click(option);
    REQUIRE(disabled().empty());
    click("optTgtDate(1)");
    CHECK(disabled() == Names{"imD_Out"});
    click("optDspPeriod(1)");
    CHECK(disabled() == Names{"imD_Out"});
    click("optDspPeriod(0)");
    CHECK(disabled() == Names{"imD_Out", "imSetDateFrom", "imSetDateTo"});
}

TEST_CASE_FIXTURE(RulesFixture,
                  "the Aichi format leaves an object option that is already none unchanged and fires nothing")
{
    click("optObject(2)");
    form.iObjectKind = 3;
    click("optPrint(1)");

    CHECK(form.optObject(2).Value);
    CHECK(form.iObjectKind == 3);
}

TEST_CASE_FIXTURE(RulesFixture, "the report rule never changes the signature, the hidden option and the target frame")
{
    Control *const untouched[] = {&form.imSyomei,  &form.optSyomei(0),  &form.optSyomei(1),
                                  &form.frmObject, &form.optTgtDate(2), &form.optObject(2)};
    for (Control *control : untouched) control->Enabled = false;
    for (const char *option : {"optPrint(1)", "optPrint(0)", "optPrint(2)"}) {
        click(option);
        CAPTURE(option);
        for (const Control *control : untouched) CHECK_FALSE(control->Enabled.get());
    }
}

TEST_CASE_FIXTURE(RulesFixture, "a disabled target frame disables its options without changing their own attribute")
{
    click("optTgtDate(2)");

    for (std::int16_t Index = 0; Index < 3; ++Index) {
        CHECK_FALSE(form.optObject(Index).isReachable());
        CHECK(form.optObject(Index).Enabled);
    }
}

TEST_CASE("the target frame disabled by the hidden option is enabled only by a target date")
{
    RulesFixture fixture;
    fixture.click("optTgtDate(2)");
    for (const char *option : {"optPrint(0)", "optPrint(1)", "optPrint(2)", "optDspPeriod(1)"}) {
        fixture.click(option);
        CAPTURE(option);
        CHECK_FALSE(fixture.form.frmObject.Enabled.get());
    }
    for (const char *option : {"optTgtDate(0)", "optTgtDate(1)"}) {
        fixture.click("optTgtDate(2)");
        fixture.click(option);
        CAPTURE(option);
        CHECK(fixture.form.frmObject.Enabled.get());
    }
}

TEST_CASE_FIXTURE(RulesFixture, "an index beyond the group counts as the last kind, and has no effect on the signature")
{
    form.optObject_Click(9);
    form.optTrust_Click(9);
    form.optTgtDate_Click(9);
    form.optDspPeriod_Click(9);
    form.imSyomei.Enabled = false;
    form.optSyomei_Click(2);

    CHECK(form.iObjectKind == 2);
    CHECK(form.iTrustKind == 2);
    CHECK(form.iTgtDateKind == 3);
    CHECK(form.iDspPeriodKind == 2);
    CHECK_FALSE(form.imSyomei.Enabled);
}

TEST_CASE_FIXTURE(RulesFixture, "a click on an option that is already selected runs no rule")
{
    click("optTgtDate(0)");
    form.imD_LastDay.Enabled = true;
    form.iTgtDateKind = 9;
    click("optTgtDate(0)");

    CHECK(form.imD_LastDay.Enabled);
    CHECK(form.iTgtDateKind == 9);
}

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

} // namespace inin
