#include "common/helpers.h"
#include "printing/print_form.h"
#include "runtime/conversion.h"
#include "runtime/format.h"
#include "shell/error_box.h"

namespace inin {

namespace {

std::int32_t numberOrMinusOne(const Variant &value)
{
    return value.isNull() ? -1 : toLong(value);
}

} // namespace

std::int16_t frmPrintInin::iGetPrintCond()
try {
    readTargetDate();
    iObjectKind = static_cast<std::int16_t>(optObject(0).Value ? 1 : optObject(1).Value ? 2 : 3);
    iTrustKind = optTrust(0).Value ? 1 : 2;
    readPeriodKind();
    nKanjaNo = numberOrMinusOne(imNum_CD.Value);
    nStaffNo = numberOrMinusOne(imNum_StaffNo.Value);
    // Deliberate: the SQL uses the position in the list, not the entry's item data.
    iHokenIndex = cmbHoken.ListIndex;
    iExpireKind = chkExpireDay.Value;
    iPrintKind = markedPrintKind();
    iSyomeiKind = markedSyomeiKind();
    return iGood;
} catch (const RuntimeError &error) {
    m_app.platform.boxes.show(numberedText(error), Icon::none);
    return iBad;
}

std::int16_t frmPrintInin::markedPrintKind()
{
    return static_cast<std::int16_t>(optPrint(0).Value ? 0 : optPrint(2).Value ? 2 : 1);
}

std::int16_t frmPrintInin::markedSyomeiKind()
{
    return optSyomei(0).Value ? 0 : 1;
}

/// Deliberate: the three dates are written in three ways. The operator sees this text only as 最終施術日 of a letter by
/// last treatment day. Without an option the kind and the date of the previous run remain.
void frmPrintInin::readTargetDate()
{
    if (optTgtDate(0).Value) {
        iTgtDateKind = 1;
        csTargetDate = formatText(imD_Out.Value, "yyyy/mm/1", m_app.regional);
    } else if (optTgtDate(1).Value) {
        iTgtDateKind = 2;
        csTargetDate = formatText(imD_LastDay.Value, "yyyy/mm/dd", m_app.regional);
    } else if (optTgtDate(2).Value) {
        iTgtDateKind = 3;
        const Date today = m_app.platform.clock.now();
        csTargetDate =
            std::to_string(Year(today)) + "/" + std::to_string(Month(today)) + "/" + std::to_string(Day(today));
    }
}

/// The day boxes are hidden and nothing reads the two fields: the letter's period is in imSetDateFrom and imSetDateTo.
/// A failure here still ends the run.
void frmPrintInin::readPeriodKind()
{
    iDspPeriodKind = optDspPeriod(0).Value ? 1 : 2;
    if (iDspPeriodKind == 1) return;
    const Date target = toDate(csTargetDate, m_app.regional);
    const Variant lastDay = Day(lastDayOfMonth(Year(target), Month(target)));
    const Variant a = vMin(inPeriodFrom.Value, lastDay);
    const Variant b = vMin(inPeriodTo.Value, lastDay);
    iPeriodFromDay = toInteger(vMin(a, b));
    iPeriodToDay = toInteger(vMax(a, b));
}

} // namespace inin
