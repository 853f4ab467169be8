#pragma once

#include "formoutput/wfd_script.h"
#include "runtime/runtime_error.h"
#include "shell/app.h"

#include <cstdint>
#include <string>
#include <vector>

namespace inin {

/// The bridge to the external form tools: collects the data of one report, writes the command script "WfdCom.dat" into
/// the temporary folder and starts a tool with it. The tool returns no result. One object serves one report.
class cls_WfdPrintExe {
public:
    explicit cls_WfdPrintExe(App &app) : m_app(app) {}

    /// "(" number ")" description of the last failure.
    std::string sErrMsg;

    /// Sets form path and title and resets the numeric settings and the items; an empty title keeps the old one.
    [[nodiscard]] std::int16_t iInit(const std::string &csWfdFnm, const std::string &csTitle = {});
    /// Data source 1 to 5 from a CSV with a title row, named by its file name in the temporary folder.
    [[nodiscard]] std::int16_t iSetDataText(std::int16_t iDataNo, const std::string &csDataName,
                                            const std::string &csCsvPath);
    /// Data source 1 to 5 from a CSV without a title row, named by its full path.
    [[nodiscard]] std::int16_t iSetDataTextNoTitle(std::int16_t iDataNo, const std::string &csDataName,
                                                   const std::string &csCsvPath);
    [[nodiscard]] std::int16_t iSetOffset(std::int32_t nOstX, std::int32_t nOstY);
    [[nodiscard]] std::int16_t iSetPrintZoom(std::int16_t iZoomType);
    [[nodiscard]] std::int16_t iSetItemValue(const std::string &csRepNm, const std::string &csSecNm,
                                             const std::string &csItemNm, const std::string &csValue);
    [[nodiscard]] std::int16_t iSetRepeatStart(std::int16_t iStartPos);

    // The output operations always return Empty; a failure is visible only in sErrMsg.
    Variant iPreview(std::int16_t iPaper = 0);
    Variant iPreviewData();
    Variant iPreviewActX();
    Variant iPrintBk();
    Variant iPrintDialog(std::int16_t iPaper = 0);

    /// An array of the caller with a lower bound of its own; an index outside it is error 9.
    template <class T> struct Array {
        std::int32_t lowerBound = 1;
        std::vector<T> elements;
        [[nodiscard]] const T &operator()(std::int32_t index) const;
    };
    /// Merges `wfNum` reports into one form and prints it. Returns 1 until the first script is closed, 0 afterwards.
    Variant addPrint(std::int16_t wfNum, const std::string &csDataName, const Array<std::string> &csCsvPath,
                     const Array<std::string> &csWfdFnm, const std::string &csTitle);
    /// Like addPrint, with a second data source for the reports whose `iAddCSVFlg` is 1.
    Variant addPrint_addCSV(std::int16_t wfNum, const std::string &csDataName, const Array<std::string> &csCsvPath,
                            const std::string &csDataName2, const Array<std::string> &csCsvPath2,
                            const Array<std::string> &csWfdFnm, const Array<std::int16_t> &iAddCSVFlg,
                            const std::string &csTitle);

private:
    /// A second data source for the reports whose flag is 1.
    struct SecondSource {
        const std::string &name;
        const Array<std::string> &paths;
        const Array<std::int16_t> &flags;
    };

    [[nodiscard]] WfdReport::DataEntry &dataEntry(std::int16_t iDataNo);
    /// 0, or -1 after a box with the failure.
    [[nodiscard]] std::int16_t iMakeComFile(std::int16_t iExeType, std::int16_t iPaper);
    [[nodiscard]] std::string scriptPath() const;
    [[nodiscard]] std::string viewerCommand() const;
    Variant writeAndStart(std::int16_t iExeType, std::int16_t iPaper, const std::string &commandLine,
                          WindowStyle style);
    Variant mergeAndPrint(std::int16_t wfNum, const std::string &csDataName, const Array<std::string> &csCsvPath,
                          const Array<std::string> &csWfdFnm, const std::string &csTitle, const SecondSource *second);
    void writeMergeScript(std::int16_t wfNum, const std::string &csDataName, const Array<std::string> &csCsvPath,
                          const Array<std::string> &csWfdFnm, const std::string &csTitle, const SecondSource *second);
    void writeMergedPrintScript(const std::string &csTitle);

    App &m_app;
    std::string m_tool;
    std::string m_tmpDir;
    WfdReport m_report;
};

template <class T> const T &cls_WfdPrintExe::Array<T>::operator()(std::int32_t index) const
{
    const std::int64_t position = std::int64_t{index} - lowerBound;
    if (position < 0 || position >= static_cast<std::int64_t>(elements.size()))
        throw RuntimeError(error_number::subscript);
    return elements[static_cast<std::size_t>(position)];
}

} // namespace inin
