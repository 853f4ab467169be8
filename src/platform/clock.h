#pragma once

#include "runtime/date.h"

#include <chrono>

namespace inin {

class Clock {
public:
    Clock() = default;
    Clock(const Clock &) = delete;
    Clock &operator=(const Clock &) = delete;
    virtual ~Clock() = default;

    /// Local date and time, to the second.
    [[nodiscard]] virtual Date now() = 0;
    /// Seconds since midnight, with fraction.
    [[nodiscard]] virtual double timer() = 0;
    /// Blocks the calling thread without processing events.
    virtual void pause(std::chrono::milliseconds time) = 0;
    [[nodiscard]] Date today() { return dayOf(now()); }
};

} // namespace inin
