#pragma once

#include "platform/clock.h"

#include <chrono>
#include <thread>

namespace inin::script {

/// A clock that is stopped at a given moment. Its timer starts at that moment and runs, so that every wait ends.
class StoppedClock : public Clock {
public:
    explicit StoppedClock(Date now) : m_now(now) {}
    [[nodiscard]] Date now() override { return m_now; }
    [[nodiscard]] double timer() override;
    void pause(std::chrono::milliseconds time) override { std::this_thread::sleep_for(time); }

private:
    Date m_now;
    std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
};

} // namespace inin::script
