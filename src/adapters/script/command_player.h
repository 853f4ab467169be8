#pragma once

#include "adapters/script/command_reader.h"
#include "runtime/regional.h"
#include "screen/form.h"

namespace inin::script {

enum class PlayResult { done, refused };

/// Applies a command to a control. Refused like user input: a control that is hidden or disabled, a number outside the
/// box's limits, an index outside the list. With `force` none of these is checked. Throws BadScriptCommand when this kind of
/// control does not support the command or the value cannot be read.
[[nodiscard]] PlayResult playOnControl(Form &form, Control &control, const ScriptCommand &command,
                                       const Regional &regional);

} // namespace inin::script
