#pragma once

#include "runtime/runtime_error.h"

#include <string>
#include <string_view>

namespace inin {

// The fixed formats of an error's text.

/// "(" number ")" description
[[nodiscard]] std::string numberedText(const RuntimeError &error);
/// number CR LF description
[[nodiscard]] std::string numberLineText(const RuntimeError &error);
/// heading CR LF text
[[nodiscard]] std::string headingText(std::string_view heading, std::string_view text);

} // namespace inin
