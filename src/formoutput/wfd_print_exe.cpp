#include "formoutput/wfd_print_exe.h"

#include "common/text_file.h"
#include "runtime/conversion.h"
#include "shell/error_box.h"
#include "shell/settings.h"

#include <fmt/format.h>

#include <utility>

namespace inin {

namespace {

constexpr std::int16_t kGood = 0;
constexpr std::int16_t kFailed = -1;

constexpr const char *kViewer = "wfrfv10.exe";
constexpr const char *kMerger = "wfrimg10.exe";
constexpr const char *kScript = "WfdCom.dat";
constexpr const char *kMergedForm = "tmp.wfd";
/// Fixed text: the preview window finds the script relative to the current folder, whatever SYSTEM_TMP is. A site must
/// keep SYSTEM_TMP at "TMP" below the application folder, or the window shows an older script or none.
constexpr const char *kPreviewWindowCommand = "WrVb6Viewer.exe /c ./TMP\\WfdCom.dat";

/// The status of a setter: a failure sets sErrMsg and shows nothing.
template <class Body> std::int16_t status(std::string &sErrMsg, Body &&body)
try {
    body();
    return kGood;
} catch (const RuntimeError &error) {
    sErrMsg = numberedText(error);
    return kFailed;
}

} // namespace

std::int16_t cls_WfdPrintExe::iInit(const std::string &csWfdFnm, const std::string &csTitle)
{
    return status(sErrMsg, [&] {
        m_tool = kViewer;
        m_tmpDir = csTmpDir(m_app);
        m_report.form = csWfdFnm;
        if (!csTitle.empty()) m_report.title = csTitle;
        const WfdReport fresh;
        m_report.offsetX = fresh.offsetX;
        m_report.offsetY = fresh.offsetY;
        m_report.zoom = fresh.zoom;
        m_report.repeatStart = fresh.repeatStart;
        m_report.items.clear();
    });
}

WfdReport::DataEntry &cls_WfdPrintExe::dataEntry(std::int16_t iDataNo)
{
    if (iDataNo < 1 || std::cmp_greater(iDataNo, m_report.data.size())) throw RuntimeError(error_number::subscript);
    return m_report.data[static_cast<std::size_t>(iDataNo - 1)];
}

std::int16_t cls_WfdPrintExe::iSetDataText(std::int16_t iDataNo, const std::string &csDataName,
                                           const std::string &csCsvPath)
{
    return status(sErrMsg, [&] { dataEntry(iDataNo) = {csDataName, m_tmpDir + csCsvPath, 0}; });
}

std::int16_t cls_WfdPrintExe::iSetDataTextNoTitle(std::int16_t iDataNo, const std::string &csDataName,
                                                  const std::string &csCsvPath)
{
    return status(sErrMsg, [&] { dataEntry(iDataNo) = {csDataName, csCsvPath, -1}; });
}

std::int16_t cls_WfdPrintExe::iSetOffset(std::int32_t nOstX, std::int32_t nOstY)
{
    m_report.offsetX = nOstX;
    m_report.offsetY = nOstY;
    return kGood;
}

std::int16_t cls_WfdPrintExe::iSetPrintZoom(std::int16_t iZoomType)
{
    m_report.zoom = iZoomType;
    return kGood;
}

std::int16_t cls_WfdPrintExe::iSetItemValue(const std::string &csRepNm, const std::string &csSecNm,
                                            const std::string &csItemNm, const std::string &csValue)
{
    return status(sErrMsg, [&] {
        // The count is a 16-bit number: one item too many is an overflow, and the item is not kept.
        static_cast<void>(narrow(static_cast<std::int32_t>(m_report.items.size()) + 1));
        m_report.items.push_back({csRepNm, csSecNm, csItemNm, csValue});
    });
}

std::int16_t cls_WfdPrintExe::iSetRepeatStart(std::int16_t iStartPos)
{
    m_report.repeatStart = iStartPos;
    return kGood;
}

std::string cls_WfdPrintExe::scriptPath() const
{
    return m_tmpDir + kScript;
}

std::string cls_WfdPrintExe::viewerCommand() const
{
    return m_tool + " /c " + scriptPath();
}

std::int16_t cls_WfdPrintExe::iMakeComFile(std::int16_t iExeType, std::int16_t iPaper)
try {
    TextOutput script(m_app.platform, scriptPath());
    for (const std::string &line : scriptLines(m_report, iExeType, iPaper)) script.printLine(line);
    script.close();
    return kGood;
} catch (const RuntimeError &error) {
    sErrMsg = numberedText(error);
    m_app.platform.boxes.show(sErrMsg, Icon::critical);
    return kFailed;
}

Variant cls_WfdPrintExe::writeAndStart(std::int16_t iExeType, std::int16_t iPaper, const std::string &commandLine,
                                       WindowStyle style)
try {
    if (iMakeComFile(iExeType, iPaper) == kGood) m_app.platform.processes.start(commandLine, style);
    return {};
} catch (const RuntimeError &error) {
    sErrMsg = numberedText(error);
    return {};
}

Variant cls_WfdPrintExe::iPreview(std::int16_t iPaper)
{
    return writeAndStart(kExeShow, iPaper, viewerCommand(), WindowStyle::minimizedFocus);
}

Variant cls_WfdPrintExe::iPreviewData()
{
    // Only the script is wanted; a failure has shown its box and set sErrMsg.
    static_cast<void>(iMakeComFile(kExeShow, kDefaultPaper));
    return {};
}

Variant cls_WfdPrintExe::iPreviewActX()
{
    return writeAndStart(kExeShow, kDefaultPaper, kPreviewWindowCommand, WindowStyle::maximizedFocus);
}

Variant cls_WfdPrintExe::iPrintBk()
{
    return writeAndStart(kExePrint, kDefaultPaper, viewerCommand(), WindowStyle::minimizedFocus);
}

Variant cls_WfdPrintExe::iPrintDialog(std::int16_t iPaper)
{
    return writeAndStart(kExePrintByDialog, iPaper, viewerCommand(), WindowStyle::minimizedFocus);
}

Variant cls_WfdPrintExe::addPrint(std::int16_t wfNum, const std::string &csDataName,
                                  const Array<std::string> &csCsvPath, const Array<std::string> &csWfdFnm,
                                  const std::string &csTitle)
{
    return mergeAndPrint(wfNum, csDataName, csCsvPath, csWfdFnm, csTitle, nullptr);
}

Variant cls_WfdPrintExe::addPrint_addCSV(std::int16_t wfNum, const std::string &csDataName,
                                         const Array<std::string> &csCsvPath, const std::string &csDataName2,
                                         const Array<std::string> &csCsvPath2, const Array<std::string> &csWfdFnm,
                                         const Array<std::int16_t> &iAddCSVFlg, const std::string &csTitle)
{
    const SecondSource second{csDataName2, csCsvPath2, iAddCSVFlg};
    return mergeAndPrint(wfNum, csDataName, csCsvPath, csWfdFnm, csTitle, &second);
}

Variant cls_WfdPrintExe::mergeAndPrint(std::int16_t wfNum, const std::string &csDataName,
                                       const Array<std::string> &csCsvPath, const Array<std::string> &csWfdFnm,
                                       const std::string &csTitle, const SecondSource *second)
{
    Variant result = std::int16_t{1};
    try {
        Processes &processes = m_app.platform.processes;
        writeMergeScript(wfNum, csDataName, csCsvPath, csWfdFnm, csTitle, second);
        result = std::int16_t{0};
        processes.start(fmt::format("{} {}{} /c {}", kMerger, m_tmpDir, kMergedForm, scriptPath()),
                        WindowStyle::minimizedFocus);
        // Deliberately no wait, as in the whole suite: the merger must have read its script before it is overwritten.
        writeMergedPrintScript(csTitle);
        processes.start(viewerCommand(), WindowStyle::minimizedFocus);
    } catch (const RuntimeError &error) {
        sErrMsg = numberedText(error);
    }
    return result;
}

void cls_WfdPrintExe::writeMergeScript(std::int16_t wfNum, const std::string &csDataName,
                                       const Array<std::string> &csCsvPath, const Array<std::string> &csWfdFnm,
                                       const std::string &csTitle, const SecondSource *second)
{
    TextOutput script(m_app.platform, scriptPath());
    script.printLine(fmt::format("setTitle,\"{}\"", csTitle));
    for (std::int32_t i = 1; i <= wfNum; ++i) {
        script.printLine(mergeDataLine(csDataName, csCsvPath(i)));
        if (second != nullptr && second->flags(i) == 1) script.printLine(mergeDataLine(second->name, second->paths(i)));
        script.printLine(fmt::format("setreport,\"{}\"", csWfdFnm(i)));
        if (i != wfNum) script.printLine("AddReport");
    }
    script.close();
}

void cls_WfdPrintExe::writeMergedPrintScript(const std::string &csTitle)
{
    TextOutput script(m_app.platform, scriptPath());
    script.printLine(fmt::format("Title,\"{}\"", csTitle));
    script.printLine(fmt::format("FileName,\"{}{}\"", m_tmpDir, kMergedForm));
    script.printLine(endLine(kExePrintByDialog));
    script.close();
}

} // namespace inin
