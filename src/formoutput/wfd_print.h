#pragma once

#include "platform/automation.h"
#include "runtime/variant.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace inin {

/// Drives the form tool inside the process through its automation object: iInit, the data, iOpen, then one output. The
/// suite's other programs use it; this program uses cls_WfdPrintExe.
class cls_WfdPrint {
public:
    explicit cls_WfdPrint(Automation &automation) : m_automation(automation) {}

    /// "(" number ")" description of the last failure; a later success keeps it.
    std::string sErrMsg;

    // 0, or -1 on a failure.
    /// Creates the document; error 429 where the tool is not installed. An empty title keeps the tool's own.
    [[nodiscard]] std::int16_t iInit(const std::string &csTitle = {});
    /// Data from a CSV with a title row, by its full path.
    [[nodiscard]] std::int16_t iSetDataText(const std::string &csDataName, const std::string &csCsvPath);
    /// Data from a CSV without a title row, by its full path.
    [[nodiscard]] std::int16_t iSetDataTextNoTitle(const std::string &csDataName, const std::string &csCsvPath);

    // These always return Empty; a failure is visible only in sErrMsg.
    Variant iOpen(const std::string &csWfdFileName);
    Variant iPreview();
    Variant iPrintBk();
    Variant iPrintDialog();

private:
    [[nodiscard]] AutomationObject &document();
    [[nodiscard]] std::int16_t setDataText(const std::string &csDataName, const std::string &csCsvPath,
                                           std::int16_t titleKind);
    /// Runs the steps; -1 with the error text in sErrMsg if one of them fails.
    std::int16_t trapped(const std::function<void()> &steps);

    Automation &m_automation;
    std::unique_ptr<AutomationObject> m_document;
};

} // namespace inin
