#include "printing/print_fixture.h"

#include <doctest/doctest.h>

#include <algorithm>

namespace inin {

TEST_CASE_FIXTURE(PrintFixture, "the form has its caption and its size in twips")
{
    CHECK(form.name() == "frmPrintInin");
    CHECK(form.Caption.get() == "委任状印刷");
    CHECK(form.Width.get() == 7020);
    CHECK(form.Height.get() == 11025);
}

TEST_CASE("each control has its frame, caption, position in the tab order and visibility")
{
    struct Row {
        const char *name;
        const char *container;
        std::int16_t TabIndex;
        const char *Caption;
        bool Visible;
    };
    const Row rows[] = {
        {"optPrint(0)", "Frame3", 0, "委任状（標準）", true},
        {"optPrint(1)", "Frame3", 1, "委任状（愛知県後期高齢\u3000フォーマット印刷）", true},
        {"optPrint(2)", "Frame3", 2, "委任状（高松市\u3000フォーマット印刷）", true},
        {"optObject(0)", "frmObject", 3, "予定データが入力されている利用者を対象", true},
        {"optObject(1)", "frmObject", 4, "実績データが入力されている利用者を対象", true},
        {"optObject(2)", "frmObject", 5, "指定しない", true},
        {"btn_StaffSelect", "fraJisseki(1)", 6, "検索", true},
        {"imNum_StaffNo", "fraJisseki(1)", 7, "", true},
        {"cbSejyutsu", "fraJisseki(1)", 8, "", true},
        {"chkChushi", "fraJisseki(1)", 9, "管理終了の施術者も表示する", false},
        {"btn_KanjaSelect", "fraJisseki(1)", 10, "検索", true},
        {"imNum_CD", "fraJisseki(1)", 11, "", true},
        {"chkExpireDay", "fraJisseki(1)", 12, "施術終了の利用者も対象とする", false},
        {"optTgtDate(0)", "fraJisseki(1)", 13, "対象月", true},
        {"imD_Out", "fraJisseki(1)", 14, "", true},
        {"optTgtDate(1)", "fraJisseki(1)", 15, "最終施術日", true},
        {"imD_LastDay", "fraJisseki(1)", 16, "", true},
        {"cmbHoken", "fraJisseki(1)", 17, "", true},
        {"optTrust(0)", "Frame2", 18, "本社情報を出力", true},
        {"optTrust(1)", "Frame2", 19, "代理人情報を出力", true},
        {"optDspPeriod(0)", "Frame1", 20, "月初～月末を設定", true},
        {"optDspPeriod(1)", "Frame1", 21, "表示期間の設定", true},
        {"imSetDateFrom", "Frame1", 22, "", true},
        {"imSetDateTo", "Frame1", 23, "", true},
        {"optSyomei(0)", "Frame4", 24, "自動設定", true},
        {"optSyomei(1)", "Frame4", 25, "署名日を入力", true},
        {"imSyomei", "Frame4", 26, "", true},
        {"btnPrint(0)", "Picture1", 27, "印刷", true},
        {"btnPrint(1)", "Picture1", 28, "ﾌﾟﾚﾋﾞｭｰ", true},
        {"btnPrint(6)", "Picture1", 29, "戻る", true},
        {"optTgtDate(2)", "fraJisseki(1)", 31, "期間不問", false},
        {"inPeriodFrom", "Frame1", 38, "", false},
        {"inPeriodTo", "Frame1", 39, "", false},
        {"Label1", "fraJisseki(1)", -1, "施術者", true},
        {"Label7", "fraJisseki(1)", -1, "出力利用者", true},
        {"Label5", "fraJisseki(1)", -1, "保険種別", true},
        {"lbl_SelKanja", "fraJisseki(1)", -1, "", true},
        {"lbl001(0)", "Frame1", -1, "から", true},
        {"lbl001(1)", "Frame1", -1, "まで", true},
        {"iTPeriodMonth", "Frame1", -1, "平成99年99月", false},
        {"Label4", "Frame1", -1, "日", false},
        {"Label2", "Frame1", -1, "～", false},
        {"Label3", "Frame1", -1, "日", false},
        {"Frame3", "", -1, "帳票種類", true},
        {"frmObject", "", -1, "出力対象（委任状出力対象となる条件）", true},
        {"fraJisseki(1)", "", -1, "抽出条件", true},
        {"Frame2", "", -1, "受任者", true},
        {"Frame1", "", -1, "委任状表示項目（委任期間の設定）", true},
        {"Frame4", "", -1, "委任状の署名日", true},
        {"Picture1", "", -1, "", true},
        {"mnFunc", "", -1, "機能(&F)", true},
        {"mnF01", "mnFunc", -1, "印刷", true},
        {"mnF02", "mnFunc", -1, "ﾌﾟﾚﾋﾞｭｰ", true},
        {"mnKugiri", "mnFunc", -1, "-", true},
        {"mnF12", "mnFunc", -1, "戻る", true},
        {"mnHelp", "", -1, "ヘルプ(&H)", true},
        {"mnVer", "mnHelp", -1, "ﾊﾞｰｼﾞｮﾝ情報", true},
        {"mnDispHelp", "mnHelp", -1, "オンラインヘルプ(&M)", true},
    };
    FakeWorld world;
    const frmPrintInin form(world.app);
    for (const Row &row : rows) {
        CAPTURE(row.name);
        const Control *control = form.find(row.name);
        REQUIRE(control != nullptr);
        CHECK((control->Container == nullptr ? "" : control->Container->name()) == row.container);
        CHECK(control->TabIndex == row.TabIndex);
        CHECK(control->Caption.get() == row.Caption);
        CHECK(control->Visible.get() == row.Visible);
        CHECK(control->Enabled.get());
    }
    CHECK(form.controls().size() == std::size(rows));
}

TEST_CASE_FIXTURE(PrintFixture, "a container precedes its contents")
{
    const std::vector<Control *> &controls = form.controls();
    for (auto control = controls.begin(); control != controls.end(); ++control)
        if ((*control)->Container != nullptr) {
            CAPTURE((*control)->name());
            CHECK(std::find(controls.begin(), control, (*control)->Container) != control);
        }
}

TEST_CASE_FIXTURE(PrintFixture, "date and number boxes show their formats")
{
    CHECK(form.imD_Out.Format == "ggg ee年mm月");
    for (const DateBox *box : {&form.imD_LastDay, &form.imSetDateFrom, &form.imSetDateTo, &form.imSyomei})
        CHECK(box->Format == "ggg ee年mm月dd日");
    for (const NumberBox *box : {&form.imNum_StaffNo, &form.imNum_CD}) CHECK(box->Format == "########0");
    for (const NumberBox *box : {&form.inPeriodFrom, &form.inPeriodTo}) CHECK(box->Format == "####0");
}

TEST_CASE_FIXTURE(PrintFixture, "the hidden day boxes contain 1 and are limited to the days of a month")
{
    for (const NumberBox *box : {&form.inPeriodFrom, &form.inPeriodTo}) {
        CHECK(box->Value.get() == Variant(std::int32_t{1}));
        CHECK(box->Min == 1);
        CHECK(box->Max == 31);
    }
}

TEST_CASE_FIXTURE(PrintFixture, "only the option of the entered signature date is initially selected")
{
    const frmPrintInin &fresh = form;
    CHECK(fresh.optPrint.marked() == -1);
    CHECK(fresh.optObject.marked() == -1);
    CHECK(fresh.optTgtDate.marked() == -1);
    CHECK(fresh.optTrust.marked() == -1);
    CHECK(fresh.optDspPeriod.marked() == -1);
    CHECK(fresh.optSyomei.marked() == 1);
}

TEST_CASE_FIXTURE(PrintFixture, "colours match the design")
{
    for (const char *name : {"Frame3", "frmObject", "fraJisseki(1)", "Frame2", "Frame1", "Frame4", "Picture1"})
        CHECK(form.find(name)->BackColor.get() == 0x00F6F6F6);
    for (const char *name : {"btn_StaffSelect", "btn_KanjaSelect"})
        CHECK(form.find(name)->BackColor.get() == 0x00C0E0FF);
    for (const char *name : {"btnPrint(0)", "btnPrint(1)", "btnPrint(6)"})
        CHECK(form.find(name)->BackColor.get() == 0x00D0FBD0);
    CHECK(form.lbl_SelKanja.BackColor.get() == 0x00F1F1F1);
    CHECK(form.cmbHoken.BackColor.get() == -1);
}

TEST_CASE_FIXTURE(PrintFixture, "the commands have tool tips, and the escape key presses the last one")
{
    CHECK(form.btnPrint(0).ToolTipText.get() == "実績一覧を印刷します。");
    CHECK(form.btnPrint(1).ToolTipText.get() == "印刷物のプレビューを表示します。");
    CHECK(form.btnPrint(6).ToolTipText.get() == "処理を終了します。");
    CHECK_FALSE(form.btnPrint(0).Cancel);
    CHECK_FALSE(form.btnPrint(1).Cancel);
    CHECK(form.btnPrint(6).Cancel);
}

TEST_CASE_FIXTURE(PrintFixture, "menu entries have their function keys")
{
    CHECK(form.mnF01.Shortcut == 112);
    CHECK(form.mnF02.Shortcut == 113);
    CHECK(form.mnF12.Shortcut == 123);
    CHECK(form.mnKugiri.Shortcut == 0);
}

} // namespace inin
