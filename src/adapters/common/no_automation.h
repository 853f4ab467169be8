#pragma once

#include "platform/automation.h"

#include <memory>

namespace inin {

/// An Automation without any program id: create() always fails with error 429.
[[nodiscard]] std::unique_ptr<Automation> makeNoAutomation();

} // namespace inin
