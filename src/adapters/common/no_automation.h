#pragma once

#include "platform/automation.h"

#include <memory>

namespace inin {

/// An Automation that knows no program id: error 429.
[[nodiscard]] std::unique_ptr<Automation> makeNoAutomation();

} // namespace inin
