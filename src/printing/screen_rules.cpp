#include "common/helpers.h"
#include "printing/control_pick.h"
#include "printing/print_form.h"
#include "runtime/format.h"
#include "shell/error_box.h"

#include <array>

namespace inin {

namespace {

using Screen = PrintControls;

/// The size is that of the longest step; unused elements are null.
using Controls = std::array<ControlPick, 7>;

enum class Does { nothing, enable, disable, mark, showMonth };

struct Step {
    Does does = Does::nothing;
    Controls controls{};                  ///< for enable and disable
    OptionGroup Screen::*group = nullptr; ///< for mark: selects the option Index of this group
    std::int16_t Index = 0;               ///< for mark
    DateBox Screen::*date = nullptr;      ///< for showMonth
};

constexpr Step enable(const Controls &controls)
{
    return {Does::enable, controls};
}
constexpr Step disable(const Controls &controls)
{
    return {Does::disable, controls};
}
constexpr Step mark(OptionGroup Screen::*group, std::int16_t Index)
{
    return {Does::mark, {}, group, Index};
}
constexpr Step showMonth(DateBox Screen::*date)
{
    return {Does::showMonth, {}, nullptr, 0, date};
}

/// The size is that of the longest rule; the order counts.
using Steps = std::array<Step, 5>;

constexpr Controls kTrustAndPeriod = {pickOption<&Screen::optTrust, 0>,     pickOption<&Screen::optTrust, 1>,
                                      pickOption<&Screen::optDspPeriod, 0>, pickOption<&Screen::optDspPeriod, 1>,
                                      pick<&Screen::imSetDateFrom>,         pick<&Screen::imSetDateTo>};
constexpr Controls kPlannedAndActual = {pickOption<&Screen::optObject, 0>, pickOption<&Screen::optObject, 1>};
constexpr Controls kPeople = {pick<&Screen::btn_StaffSelect>, pick<&Screen::imNum_StaffNo>, pick<&Screen::cbSejyutsu>,
                              pick<&Screen::btn_KanjaSelect>, pick<&Screen::imNum_CD>,      pick<&Screen::lbl_SelKanja>,
                              pick<&Screen::chkExpireDay>};
constexpr Controls kTargetAndInsurance = {pickOption<&Screen::optTgtDate, 0>, pickOption<&Screen::optTgtDate, 1>,
                                          pick<&Screen::imD_Out>, pick<&Screen::imD_LastDay>, pick<&Screen::cmbHoken>};
constexpr Controls kMonth = {pick<&Screen::imD_Out>};
constexpr Controls kLastDay = {pick<&Screen::imD_LastDay>};
constexpr Controls kTargetData = {pick<&Screen::frmObject>};
constexpr Controls kPeriod = {pick<&Screen::imSetDateFrom>, pick<&Screen::imSetDateTo>};
constexpr Controls kSignature = {pick<&Screen::imSyomei>};

constexpr Steps kTakeConditions = {disable(kTrustAndPeriod), mark(&Screen::optObject, 2), disable(kPlannedAndActual),
                                   disable(kPeople), disable(kTargetAndInsurance)};
constexpr Steps kGiveConditions = {enable(kTrustAndPeriod), enable(kPlannedAndActual), enable(kPeople),
                                   enable(kTargetAndInsurance)};
constexpr Steps kByMonth = {enable(kMonth), disable(kLastDay), enable(kTargetData), showMonth(&Screen::imD_Out)};
constexpr Steps kByLastDay = {disable(kMonth), enable(kLastDay), enable(kTargetData), showMonth(&Screen::imD_LastDay)};
constexpr Steps kWithoutPeriod = {disable(kMonth), disable(kLastDay), disable(kTargetData)};

/// The effect of a click on an option: a kind field first, then the steps.
struct ClickRule {
    OptionGroup Screen::*group;
    std::int16_t Index;
    std::int16_t value;
    std::int16_t frmPrintInin::*kind; ///< receives the value; null: the group has no field
    Steps steps;
};

constexpr std::int16_t kAnyOther = -1;

/// All click rules of the option groups: group, index, value, kind field, steps. The first row that matches the index
/// applies; an index without a row does nothing. "Actual data" and "none" deliberately give the same kind: a run reads
/// the options themselves. The report rows are blind on purpose: they read no other group, so that after the Aichi
/// format every control is enabled until the next click in its own group.
constexpr ClickRule kClickRules[] = {
    {&Screen::optPrint, 1, 0, nullptr, kTakeConditions},
    {&Screen::optPrint, kAnyOther, 0, nullptr, kGiveConditions},
    {&Screen::optObject, 0, 1, &frmPrintInin::iObjectKind, {}},
    {&Screen::optObject, kAnyOther, 2, &frmPrintInin::iObjectKind, {}},
    {&Screen::optTgtDate, 0, 1, &frmPrintInin::iTgtDateKind, kByMonth},
    {&Screen::optTgtDate, 1, 2, &frmPrintInin::iTgtDateKind, kByLastDay},
    {&Screen::optTgtDate, kAnyOther, 3, &frmPrintInin::iTgtDateKind, kWithoutPeriod},
    {&Screen::optTrust, 0, 1, &frmPrintInin::iTrustKind, {}},
    {&Screen::optTrust, kAnyOther, 2, &frmPrintInin::iTrustKind, {}},
    {&Screen::optDspPeriod, 0, 1, &frmPrintInin::iDspPeriodKind, {disable(kPeriod)}},
    {&Screen::optDspPeriod, kAnyOther, 2, &frmPrintInin::iDspPeriodKind, {enable(kPeriod)}},
    {&Screen::optSyomei, 0, 0, nullptr, {disable(kSignature)}},
    {&Screen::optSyomei, 1, 0, nullptr, {enable(kSignature)}},
};

const ClickRule *ruleOf(OptionGroup Screen::*group, std::int16_t Index)
{
    for (const ClickRule &rule : kClickRules)
        if (rule.group == group && (rule.Index == Index || rule.Index == kAnyOther)) return &rule;
    return nullptr;
}

void setEnabled(Screen &screen, const Controls &controls, bool isEnabled)
{
    for (const ControlPick control : controls)
        if (control != nullptr) control(screen).Enabled = isEnabled;
}

} // namespace

/// Applies the row of the click.
void frmPrintInin::runClickRule(OptionGroup PrintControls::*group, std::int16_t Index)
{
    const ClickRule *rule = ruleOf(group, Index);
    if (rule == nullptr) return;
    if (rule->kind != nullptr) this->*rule->kind = rule->value;
    for (const Step &step : rule->steps) {
        switch (step.does) {
        case Does::nothing:
            break;
        case Does::enable:
        case Does::disable:
            setEnabled(*this, step.controls, step.does == Does::enable);
            break;
        case Does::mark:
            (this->*step.group)(step.Index).Value = true;
            break;
        case Does::showMonth:
            showPeriodMonth(this->*step.date);
            break;
        }
    }
}

/// As runClickRule; an error shows the central box under the given procedure name.
void frmPrintInin::runReportedRule(OptionGroup PrintControls::*group, std::int16_t Index, const char *csFuncName)
try {
    runClickRule(group, Index);
} catch (const RuntimeError &error) {
    vErrorBox(m_app, error, kErrorBoxTask, name(), csFuncName);
}

void frmPrintInin::optPrint_Click(std::int16_t Index)
{
    runClickRule(&PrintControls::optPrint, Index);
}

void frmPrintInin::optObject_Click(std::int16_t Index)
{
    runReportedRule(&PrintControls::optObject, Index, "optObject_Click");
}

void frmPrintInin::optTgtDate_Click(std::int16_t Index)
{
    runReportedRule(&PrintControls::optTgtDate, Index, "optTgtDate_Click");
}

void frmPrintInin::optTrust_Click(std::int16_t Index)
{
    runReportedRule(&PrintControls::optTrust, Index, "optTrust_Click");
}

void frmPrintInin::optDspPeriod_Click(std::int16_t Index)
{
    // Deliberate: it reports errors under the name optObject_Click.
    runReportedRule(&PrintControls::optDspPeriod, Index, "optObject_Click");
}

void frmPrintInin::optSyomei_Click(std::int16_t Index)
{
    runClickRule(&PrintControls::optSyomei, Index);
}

/// An empty box shows no month; only the run reports that it is empty.
void frmPrintInin::showPeriodMonth(const DateBox &date)
{
    iTPeriodMonth.Caption = csNullToStr(Format(date.Value, "gggee年 mm月", m_app.regional), m_app.regional);
}

void frmPrintInin::cbSejyutsu_Click()
{
    if (cbSejyutsu.ListIndex == -1) return;
    const std::int32_t nIDNo = cbSejyutsu.ItemData(cbSejyutsu.ListIndex);
    imNum_StaffNo.Value = nIDNo == kNoChoice ? std::int32_t{0} : nIDNo;
}

void frmPrintInin::chkChushi_Click()
{
    static_cast<void>(setStuff()); // a failure is visible only in csErrMsg
}

} // namespace inin
