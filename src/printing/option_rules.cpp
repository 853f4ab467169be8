// The rules of the options: which kind field they set and which controls they enable.

#include "common/helpers.h"
#include "printing/print_form.h"
#include "runtime/format.h"
#include "shell/error_box.h"

namespace inin {

namespace {
constexpr std::int16_t kAichiFormat = 1; // of optPrint
} // namespace

/// The Aichi format disables all conditions, every other format enables them. This ignores the other options on
/// purpose: after the Aichi format both dates of each pair are enabled until the next click in their own group, and
/// "none" stays selected.
void frmPrintInin::optPrint_Click(std::int16_t Index)
{
    const bool isEnabled = Index != kAichiFormat;
    Control *const conditions[] = {
        &optTrust(0),   &optTrust(1),     &optDspPeriod(0), &optDspPeriod(1), &imSetDateFrom,
        &imSetDateTo,   &optObject(0),    &optObject(1),    &btn_StaffSelect, &imNum_StaffNo,
        &cbSejyutsu,    &btn_KanjaSelect, &imNum_CD,        &lbl_SelKanja,    &chkExpireDay,
        &optTgtDate(0), &optTgtDate(1),   &imD_Out,         &imD_LastDay,     &cmbHoken,
    };
    for (Control *condition : conditions) {
        // "None" is selected, and its click fires, directly before the other two options are disabled.
        if (condition == &optObject(0) && !isEnabled) optObject(2).Value = true;
        condition->Enabled = isEnabled;
    }
}

/// Deliberate: "none" gives 2 as well. A run reads the options themselves and stores the exact kind. This click and the
/// next one assign only numbers, which cannot fail, so they need no error box.
void frmPrintInin::optObject_Click(std::int16_t Index)
{
    iObjectKind = Index == 0 ? 1 : 2;
}

void frmPrintInin::optTrust_Click(std::int16_t Index)
{
    iTrustKind = Index == 0 ? 1 : 2;
}

void frmPrintInin::optTgtDate_Click(std::int16_t Index)
try {
    iTgtDateKind = static_cast<std::int16_t>(Index == 0 ? 1 : Index == 1 ? 2 : 3);
    imD_Out.Enabled = Index == 0;
    imD_LastDay.Enabled = Index == 1;
    frmObject.Enabled = Index == 0 || Index == 1;
    if (Index == 0) imD_Out_Change();
    if (Index == 1) imD_LastDay_Change();
} catch (const RuntimeError &error) {
    vErrorBox(m_app, error, kErrorBoxTask, name(), "optTgtDate_Click");
}

void frmPrintInin::optDspPeriod_Click(std::int16_t Index)
try {
    iDspPeriodKind = Index == 0 ? 1 : 2;
    imSetDateFrom.Enabled = Index != 0;
    imSetDateTo.Enabled = Index != 0;
} catch (const RuntimeError &error) {
    // Deliberate: the box shows the name of another click.
    vErrorBox(m_app, error, kErrorBoxTask, name(), "optObject_Click");
}

void frmPrintInin::optSyomei_Click(std::int16_t Index)
{
    if (Index == 0) imSyomei.Enabled = false;
    if (Index == 1) imSyomei.Enabled = true;
}

void frmPrintInin::imD_Out_Change()
{
    showPeriodMonth(imD_Out);
}

void frmPrintInin::imD_LastDay_Change()
{
    showPeriodMonth(imD_LastDay);
}

/// The label is hidden, but kept current. An empty box gives an empty label; only the run reports that it is empty.
void frmPrintInin::showPeriodMonth(const DateBox &date)
{
    iTPeriodMonth.Caption = csNullToStr(Format(date.Value, "gggee年 mm月", m_app.regional), m_app.regional);
}

} // namespace inin
