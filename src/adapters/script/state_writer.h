#pragma once

#include "adapters/script/transcript.h"
#include "runtime/regional.h"
#include "screen/form.h"

namespace inin::script {

/// The `state` event of a form: the attributes of its controls in the form's order, its fields and its rows.
[[nodiscard]] Json stateEvent(const Form &form, const Regional &regional);

} // namespace inin::script
