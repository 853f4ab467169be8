#pragma once

#include "runtime/runtime_error.h"

#include <string>

namespace inin {

// The fixed patterns in which a run-time error is worded.

/// "(" number ")" description
[[nodiscard]] std::string numberedText(const RuntimeError &error);
/// number CR LF description
[[nodiscard]] std::string numberLineText(const RuntimeError &error);

} // namespace inin
