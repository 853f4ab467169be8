#pragma once

#include "viewer/script/command_script.h"

#include <string>
#include <string_view>
#include <vector>

namespace inin::viewer {

// A combined form document, written by a merge and named in FileName: an XML list of form documents and their data
// sources, in order. The files themselves stay where they are.

[[nodiscard]] bool isCombinedForm(std::string_view bytes);
[[nodiscard]] std::string combinedFormText(const std::vector<ReportOrder> &reports);
/// Throws a RuntimeError with a sentence when the document is damaged.
[[nodiscard]] std::vector<ReportOrder> readCombinedForm(std::string_view bytes);

} // namespace inin::viewer
