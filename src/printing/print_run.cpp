#include "formoutput/wfd_print_exe.h"
#include "printing/csv_output.h"
#include "printing/form_document_choice.h"
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

} // namespace inin
