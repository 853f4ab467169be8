#include "formoutput/wfd_print.h"

#include "runtime/runtime_error.h"
#include "shell/error_box.h"

#include <array>

namespace inin {

namespace {

constexpr const char *kProgramId = "wfrfv.Document.1";
constexpr std::int16_t kSuccess = 0;
constexpr std::int16_t kFailure = -1;

// Numbers defined by the form tool.
constexpr std::int16_t kWithTitleRow = 0;
constexpr std::int16_t kWithoutTitleRow = 1;
constexpr std::int16_t kDocumentWindow = 4;
constexpr std::int16_t kPreviewWindow = 2;
constexpr std::int16_t kWhole = 0;

} // namespace

std::int16_t cls_WfdPrint::iInit(const std::string &csTitle)
{
    return trapped([&] {
        m_document = m_automation.create(kProgramId);
        if (!csTitle.empty()) m_document->set("Title", csTitle);
    });
}

std::int16_t cls_WfdPrint::iSetDataText(const std::string &csDataName, const std::string &csCsvPath)
{
    return setDataText(csDataName, csCsvPath, kWithTitleRow);
}

std::int16_t cls_WfdPrint::iSetDataTextNoTitle(const std::string &csDataName, const std::string &csCsvPath)
{
    return setDataText(csDataName, csCsvPath, kWithoutTitleRow);
}

std::int16_t cls_WfdPrint::setDataText(const std::string &csDataName, const std::string &csCsvPath,
                                       std::int16_t titleKind)
{
    return trapped([&] {
        const std::array<Variant, 5> arguments{csDataName, csCsvPath, "", "", titleKind};
        document().call("SetDataText", arguments);
    });
}

Variant cls_WfdPrint::iOpen(const std::string &csWfdFileName)
{
    trapped([&] {
        document().set("WindowStyle", kDocumentWindow);
        document().call("Open", std::array<Variant, 1>{csWfdFileName});
    });
    return {};
}

Variant cls_WfdPrint::iPreview()
{
    trapped([&] { document().set("ShowWindow", kPreviewWindow); });
    return {};
}

Variant cls_WfdPrint::iPrintBk()
{
    trapped([&] { document().call("PrintOutBk", std::array<Variant, 3>{"", kWhole, kWhole}); });
    return {};
}

Variant cls_WfdPrint::iPrintDialog()
{
    trapped([&] { document().call("PrintOutFromDialog", {}); });
    return {};
}

AutomationObject &cls_WfdPrint::document()
{
    if (!m_document) throw RuntimeError(error_number::objectNotSet);
    return *m_document;
}

std::int16_t cls_WfdPrint::trapped(const std::function<void()> &steps)
try {
    steps();
    return kSuccess;
} catch (const RuntimeError &error) {
    sErrMsg = numberedText(error);
    return kFailure;
}

} // namespace inin
