#pragma once

#include "runtime/runtime_error.h"

#include <string>

namespace inin {

// The fixed formats of a run-time error's text.

/// "(" number ")" description
[[nodiscard]] std::string numberedText(const RuntimeError &error);
/// number CR LF description
[[nodiscard]] std::string numberLineText(const RuntimeError &error);

} // namespace inin
