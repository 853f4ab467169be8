#pragma once

#include "adapters/script/command_reader.h"
#include "runtime/regional.h"
#include "screen/form.h"

namespace inin::script {

enum class PlayResult { done, refused };

/// What a command does to a control, by the control's kind. A person is refused a control that is hidden or disabled,
/// a number beyond the box's limits and an entry that a list lacks; with `force` none of these is asked.
/// BadCommand when the kind cannot take the command or the value cannot be read.
[[nodiscard]] PlayResult playOnControl(Form &form, Control &control, const ScriptCommand &command,
                                       const Regional &regional);

} // namespace inin::script
