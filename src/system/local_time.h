#pragma once

#include "runtime/date.h"

namespace inin {

// The local clock of the computer.

/// Date and time of day, to the second. A leap second is the last second of its minute, because a Date has none.
[[nodiscard]] Date presentMoment();
[[nodiscard]] inline Date presentDay()
{
    return dayOf(presentMoment());
}
/// With fraction.
[[nodiscard]] double secondsSinceMidnight();

} // namespace inin
