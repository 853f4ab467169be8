#pragma once

#include "viewer/script/command_script.h"

#include <string>
#include <string_view>
#include <vector>

namespace inin::viewer {

// A combined form document: what a merge writes and FileName may name. It is an XML list of form documents and the data
// sources that fill them, in order; the files themselves stay where they are.

[[nodiscard]] bool isCombinedForm(std::string_view bytes);
[[nodiscard]] std::string combinedFormText(const std::vector<ReportOrder> &reports);
/// A RuntimeError with a sentence when the document is damaged.
[[nodiscard]] std::vector<ReportOrder> readCombinedForm(std::string_view bytes);

} // namespace inin::viewer
