#include "common/helpers.h"
#include "formoutput/wfd_print_exe.h"
#include "printing/csv_output.h"
#include "printing/print_form.h"
#include "printing/run_file.h"
#include "runtime/conversion.h"
#include "runtime/format.h"
#include "runtime/text.h"
#include "shell/error_box.h"
#include "shell/settings.h"

namespace inin {

namespace {

constexpr const char *kReport = "委任状";

struct ReportKind {
    std::int16_t iPrintKind;
    const char *formDocument;
};
/// The last row serves any other kind.
constexpr ReportKind kReportKinds[] = {{1, "委任状23.wfd"}, {2, "委任状37_高松市.wfd"}, {0, "委任状37_01.wfd"}};

std::string formDocumentOf(std::int16_t iPrintKind)
{
    const ReportKind *kind = kReportKinds;
    while (kind->iPrintKind != iPrintKind && kind != std::end(kReportKinds) - 1) ++kind;
    return kind->formDocument;
}

using Extraction = std::int16_t (frmPrintInin::*)();

struct Dispatch {
    std::int16_t iObjectKind;
    std::int16_t iTgtDateKind;
    Extraction extraction;
};
constexpr std::int16_t kAnyKind = 0;
/// Deliberate: planned or actual data without a period has no extraction. The run prints the rows of the previous run,
/// or reports that there are none.
constexpr Dispatch kDispatch[] = {
    {3, kAnyKind, &frmPrintInin::iGetKanjaDataNoPeriod}, {1, 1, &frmPrintInin::iGetKanjaDataMonth},
    {2, 1, &frmPrintInin::iGetKanjaDataMonth_Jisseki},   {1, 2, &frmPrintInin::iGetKanjaDataDay},
    {2, 2, &frmPrintInin::iGetKanjaDataDay_Jisseki},
};

std::int16_t runExtraction(frmPrintInin &form)
{
    for (const Dispatch &line : kDispatch)
        if (line.iObjectKind == form.iObjectKind &&
            (line.iTgtDateKind == kAnyKind || line.iTgtDateKind == form.iTgtDateKind))
            return (form.*line.extraction)();
    return iGood;
}

std::int32_t numberOrMinusOne(const Variant &value, const Regional &regional)
{
    return value.isNull() ? -1 : toLong(value, regional);
}

} // namespace

void frmPrintInin::vRunPrint(std::int16_t iPrintMode)
{
    if (optTgtDate.marked() < 0) {
        m_app.platform.boxes.show("出力対象となる日にちを選択してください。", Icon::information, "情報");
        return;
    }
    setMousePointer(kPointerHourglass);
    // Deliberate double box: iGetPrintCond has already shown the run-time error.
    if (iGetPrintCond() != iGood)
        m_app.platform.boxes.show("印刷条件の取得に失敗しました。", Icon::information);
    else if (findLetters())
        outputLetters(iPrintMode);
    setMousePointer(kPointerDefault);
}

/// True if there are letters to print; otherwise the pointer is already reset, and the caller deliberately resets it
/// again.
bool frmPrintInin::findLetters()
{
    const std::int16_t status = runExtraction(*this);
    // Deliberate double box: a failed extraction has already shown its own.
    if (status != iGood)
        m_app.platform.boxes.show("患者データの取得に失敗しました。", Icon::information);
    else if (iRowCount == 0)
        m_app.platform.boxes.show("該当する患者データがありません。", Icon::information);
    else
        return true;
    setMousePointer(kPointerDefault);
    return false;
}

void frmPrintInin::outputLetters(std::int16_t iPrintMode)
{
    RunFile run(m_app);
    if (!run.lock()) return;
    // A file error, such as a CSV that another program holds open, is deliberately not trapped here: it ends the
    // program.
    saveCSVInin();
    run.setLetters(m_csvSize, iRowCount);
    // An entry in "帳票Format.ini" replaces the form document of every report kind. The query still depends on
    // iPrintKind.
    std::string form = csGetFormatFile(m_app, kReport, kReport);
    if (form.empty()) form = formDocumentOf(iPrintKind);
    cls_WfdPrintExe output(m_app);
    if (output.iInit(csSysDir(m_app) + form, kReport) == iGood) {
        // The results are deliberately ignored: a tool that did not start is visible only in sErrMsg, and the run ends
        // as a success either way.
        static_cast<void>(output.iSetDataText(1, kReport, kCsvFile));
        if (iPrintMode != 0)
            output.iPrintDialog(0);
        else
            output.iPreviewActX();
    } else {
        m_app.platform.boxes.show("帳票の印刷に失敗しました。" + std::string(kCr) + "[" + output.sErrMsg + "]",
                                  Icon::critical);
    }
    run.unlock();
    iSavePrintSetting();
}

std::int16_t frmPrintInin::iGetPrintCond()
try {
    readTargetDate();
    iObjectKind = static_cast<std::int16_t>(optObject(0).Value ? 1 : optObject(1).Value ? 2 : 3);
    iTrustKind = optTrust(0).Value ? 1 : 2;
    readPeriodKind();
    nKanjaNo = numberOrMinusOne(imNum_CD.Value, m_app.regional);
    nStaffNo = numberOrMinusOne(imNum_StaffNo.Value, m_app.regional);
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

/// The day boxes are hidden and the fields are never read, but a failure here still ends the run.
void frmPrintInin::readPeriodKind()
{
    iDspPeriodKind = optDspPeriod(0).Value ? 1 : 2;
    if (iDspPeriodKind == 1) return;
    const Date target = toDate(csTargetDate, m_app.regional);
    const Variant lastDay = Day(DateSerial(Year(target), Month(target) + 1, 0));
    const Variant a = vMin(inPeriodFrom.Value, lastDay, m_app.regional);
    const Variant b = vMin(inPeriodTo.Value, lastDay, m_app.regional);
    iPeriodFromDay = toInteger(vMin(a, b, m_app.regional), m_app.regional);
    iPeriodToDay = toInteger(vMax(a, b, m_app.regional), m_app.regional);
}

} // namespace inin
