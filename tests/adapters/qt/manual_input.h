#pragma once

#include "adapters/qt/form_window.h"
#include "adapters/script/command_reader.h"

namespace inin::qt {

using namespace script;

enum class ManualResult { done, refused };

/// Executes a command with mouse and keys on the real widgets. A disabled widget receives the input too; the result for
/// a disabled or hidden one is `refused`.
[[nodiscard]] ManualResult actManually(FormWindow &window, const ScriptCommand &command);

/// Describes the first difference between the widgets of a window and their records; empty for none.
[[nodiscard]] std::string mirrorFault(const FormWindow &window);

} // namespace inin::qt
