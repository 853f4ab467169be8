#include "formoutput/wfd_print_exe.h"
#include "printing/csv_output.h"
#include "printing/form_document_choice.h"
#include "printing/letter_extraction.h"
#include "printing/print_form.h"
#include "printing/run_file.h"
#include "runtime/text.h"
#include "shell/settings.h"

namespace inin {

namespace {

constexpr const char *kReport = "委任状";

std::int16_t runExtraction(frmPrintInin &form)
{
    if (form.iObjectKind == 3) return form.iGetKanjaDataNoPeriod();
    const bool isPlanned = form.iObjectKind == 1;
    if (form.iTgtDateKind == 1) return isPlanned ? form.iGetKanjaDataMonth() : form.iGetKanjaDataMonth_Jisseki();
    if (form.iTgtDateKind == 2) return isPlanned ? form.iGetKanjaDataDay() : form.iGetKanjaDataDay_Jisseki();
    // Deliberate: planned or actual data without a period has no extraction. The run prints the rows of the previous
    // run without saying so, or reports that there are none.
    return iGood;
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
    const std::string form = formDocument(m_app, iPrintKind);
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
    // Deliberate: the settings are stored after a failed output too.
    iSavePrintSetting();
}

void frmPrintInin::saveCSVInin()
{
    m_csvSize = writeIninCsv(m_app, aIninRow, iRowCount);
}

std::int16_t frmPrintInin::iGetKanjaDataMonth()
{
    return extract(kKanjaDataMonth);
}

std::int16_t frmPrintInin::iGetKanjaDataMonth_Jisseki()
{
    return extract(kKanjaDataMonth_Jisseki);
}

std::int16_t frmPrintInin::iGetKanjaDataDay()
{
    return extract(kKanjaDataDay);
}

std::int16_t frmPrintInin::iGetKanjaDataDay_Jisseki()
{
    return extract(kKanjaDataDay_Jisseki);
}

std::int16_t frmPrintInin::iGetKanjaDataNoPeriod()
{
    return extract(kKanjaDataNoPeriod);
}

/// Deliberate: after a failure iRowCount still counts the rows of the previous run, whether or not these remain.
std::int16_t frmPrintInin::extract(const ExtractionRule &rule)
{
    const std::optional<std::int16_t> count =
        LetterExtraction(m_app, csErrMsg).readLetters(rule, letterConditions(), aIninRow);
    if (!count) return iBad;
    iRowCount = *count;
    return iGood;
}

LetterConditions frmPrintInin::letterConditions() const
{
    return {.csTargetDate = csTargetDate,
            .query = {.iKyotenCd = m_app.iKyotenCd,
                      .iKyotenEb = m_app.iKyotenEb,
                      .iTrustKind = iTrustKind,
                      .iPrintKind = iPrintKind,
                      .nKanjaNo = nKanjaNo,
                      .nStaffNo = nStaffNo,
                      .iHokenIndex = iHokenIndex,
                      .iExpireKind = iExpireKind},
            .iDspPeriodKind = iDspPeriodKind,
            .iSyomeiKind = iSyomeiKind,
            .imSetDateFrom = imSetDateFrom.Value,
            .imSetDateTo = imSetDateTo.Value,
            .imSyomei = imSyomei.Value};
}

std::int32_t frmPrintInin::getLastScheduleDay(std::int32_t nRiyoushaNo, std::int32_t nYear, std::int32_t nMonth)
{
    return LetterExtraction(m_app, csErrMsg).lastVisitDay(kLastScheduleDay, nRiyoushaNo, nYear, nMonth);
}

std::int32_t frmPrintInin::getLastJissekieDay(std::int32_t nRiyoushaNo, std::int32_t nYear, std::int32_t nMonth)
{
    return LetterExtraction(m_app, csErrMsg).lastVisitDay(kLastJissekieDay, nRiyoushaNo, nYear, nMonth);
}

} // namespace inin
