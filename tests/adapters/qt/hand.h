#pragma once

#include "adapters/qt/form_window.h"
#include "adapters/script/command_reader.h"

namespace inin::qt {

using namespace script;

enum class HandResult { done, refused };

/// Does with mouse and keys on the real widgets what a command says. A widget that is hidden or disabled is hit all the
/// same, and then told as refused.
[[nodiscard]] HandResult actByHand(FormWindow &window, const ScriptCommand &command);

/// The first difference between what the widgets of a window show and what their records hold, empty for none.
[[nodiscard]] std::string mirrorFault(const FormWindow &window);

} // namespace inin::qt
