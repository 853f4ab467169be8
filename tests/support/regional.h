#pragma once

#include "runtime/regional.h"

namespace inin {

/// The default regional settings: those of a Japanese site.
inline const Regional kRegional;

} // namespace inin
