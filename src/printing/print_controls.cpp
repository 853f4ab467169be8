#include "printing/print_controls.h"

namespace inin {

namespace {

constexpr std::int32_t kSystemColour = -1;
constexpr std::int32_t kFrameColour = 0x00F6F6F6;
constexpr std::int32_t kSearchColour = 0x00C0E0FF;
constexpr std::int32_t kNameColour = 0x00F1F1F1;
constexpr std::int32_t kCommandColour = 0x00D0FBD0;

constexpr const char *kMonthFormat = "ggg ee年mm月";
constexpr const char *kDayFormat = "ggg ee年mm月dd日";
constexpr const char *kLongNumber = "########0";
constexpr const char *kDayNumber = "####0";

constexpr std::int16_t kNoTab = -1;
enum class Seen { yes, no };

} // namespace

/// One row of the screen's design table. The tab order is the order in which the operator moves through the screen.
struct PrintControls::Design {
    Control &control;
    Control *container;
    std::int16_t TabIndex = kNoTab;
    const char *Caption = "";
    Seen seen = Seen::yes;
    std::int32_t BackColor = kSystemColour;
    const char *ToolTipText = "";
};

PrintControls::PrintControls()
{
    designReportAndObject();
    designFilters();
    designLetterItems();
    designCommands();
    designValues();
}

void PrintControls::design(std::initializer_list<Design> lines)
{
    for (const Design &line : lines) {
        line.control.Container = line.container;
        line.control.TabIndex = line.TabIndex;
        line.control.Caption = line.Caption;
        line.control.Visible = line.seen == Seen::yes;
        line.control.BackColor = line.BackColor;
        line.control.ToolTipText = line.ToolTipText;
        m_designed.push_back(&line.control);
    }
}

void PrintControls::designReportAndObject()
{
    design({
        {Frame3, nullptr, kNoTab, "帳票種類", Seen::yes, kFrameColour},
        {optPrint(0), &Frame3, 0, "委任状（標準）"},
        {optPrint(1), &Frame3, 1, "委任状（愛知県後期高齢　フォーマット印刷）"},
        {optPrint(2), &Frame3, 2, "委任状（高松市　フォーマット印刷）"},
        {frmObject, nullptr, kNoTab, "出力対象（委任状出力対象となる条件）", Seen::yes, kFrameColour},
        {optObject(0), &frmObject, 3, "予定データが入力されている利用者を対象"},
        {optObject(1), &frmObject, 4, "実績データが入力されている利用者を対象"},
        {optObject(2), &frmObject, 5, "指定しない"},
    });
}

void PrintControls::designFilters()
{
    Control *const frame = &fraJisseki;
    design({
        {fraJisseki, nullptr, kNoTab, "抽出条件", Seen::yes, kFrameColour},
        {Label1, frame, kNoTab, "施術者"},
        {btn_StaffSelect, frame, 6, "検索", Seen::yes, kSearchColour},
        {imNum_StaffNo, frame, 7},
        {cbSejyutsu, frame, 8},
        {chkChushi, frame, 9, "管理終了の施術者も表示する", Seen::no},
        {Label7, frame, kNoTab, "出力利用者"},
        {btn_KanjaSelect, frame, 10, "検索", Seen::yes, kSearchColour},
        {imNum_CD, frame, 11},
        {lbl_SelKanja, frame, kNoTab, "", Seen::yes, kNameColour},
        {chkExpireDay, frame, 12, "施術終了の利用者も対象とする", Seen::no},
        {optTgtDate(0), frame, 13, "対象月"},
        {imD_Out, frame, 14},
        {optTgtDate(1), frame, 15, "最終施術日"},
        {imD_LastDay, frame, 16},
        {optTgtDate(2), frame, 31, "期間不問", Seen::no},
        {Label5, frame, kNoTab, "保険種別"},
        {cmbHoken, frame, 17},
    });
}

void PrintControls::designLetterItems()
{
    design({
        {Frame2, nullptr, kNoTab, "受任者", Seen::yes, kFrameColour},
        {optTrust(0), &Frame2, 18, "本社情報を出力"},
        {optTrust(1), &Frame2, 19, "代理人情報を出力"},
        {Frame1, nullptr, kNoTab, "委任状表示項目（委任期間の設定）", Seen::yes, kFrameColour},
        {optDspPeriod(0), &Frame1, 20, "月初～月末を設定"},
        {optDspPeriod(1), &Frame1, 21, "表示期間の設定"},
        {imSetDateFrom, &Frame1, 22},
        {lbl001_0, &Frame1, kNoTab, "から"},
        {imSetDateTo, &Frame1, 23},
        {lbl001_1, &Frame1, kNoTab, "まで"},
        {iTPeriodMonth, &Frame1, kNoTab, "平成99年99月", Seen::no},
        {inPeriodFrom, &Frame1, 38, "", Seen::no},
        {Label4, &Frame1, kNoTab, "日", Seen::no},
        {Label2, &Frame1, kNoTab, "～", Seen::no},
        {inPeriodTo, &Frame1, 39, "", Seen::no},
        {Label3, &Frame1, kNoTab, "日", Seen::no},
        {Frame4, nullptr, kNoTab, "委任状の署名日", Seen::yes, kFrameColour},
        {optSyomei(0), &Frame4, 24, "自動設定"},
        {optSyomei(1), &Frame4, 25, "署名日を入力"},
        {imSyomei, &Frame4, 26},
    });
}

void PrintControls::designCommands()
{
    design({
        {Picture1, nullptr, kNoTab, "", Seen::yes, kFrameColour},
        // Deliberate: this tip speaks of a list of treatments, although the button prints letters.
        {btnPrint(0), &Picture1, 27, "印刷", Seen::yes, kCommandColour, "実績一覧を印刷します。"},
        {btnPrint(1), &Picture1, 28, "ﾌﾟﾚﾋﾞｭｰ", Seen::yes, kCommandColour, "印刷物のプレビューを表示します。"},
        {btnPrint(6), &Picture1, 29, "戻る", Seen::yes, kCommandColour, "処理を終了します。"},
        {mnFunc, nullptr, kNoTab, "機能(&F)"},
        {mnF01, &mnFunc, kNoTab, "印刷"},
        {mnF02, &mnFunc, kNoTab, "ﾌﾟﾚﾋﾞｭｰ"},
        {mnKugiri, &mnFunc, kNoTab, "-"},
        {mnF12, &mnFunc, kNoTab, "戻る"},
        {mnHelp, nullptr, kNoTab, "ヘルプ(&H)"},
        {mnVer, &mnHelp, kNoTab, "ﾊﾞｰｼﾞｮﾝ情報"},
        {mnDispHelp, &mnHelp, kNoTab, "オンラインヘルプ(&M)"},
    });
    btnPrint(6).Cancel = true;
}

void PrintControls::designValues()
{
    imD_Out.Format = kMonthFormat;
    for (DateBox *box : {&imD_LastDay, &imSetDateFrom, &imSetDateTo, &imSyomei}) box->Format = kDayFormat;
    for (NumberBox *box : {&imNum_StaffNo, &imNum_CD}) box->Format = kLongNumber;
    for (NumberBox *box : {&inPeriodFrom, &inPeriodTo}) {
        box->Format = kDayNumber;
        box->Min = 1;
        box->Max = 31;
        box->Value = std::int32_t{1};
    }
    optSyomei(1).Value = true;
}

} // namespace inin
