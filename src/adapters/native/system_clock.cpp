#include "adapters/native/native_platform.h"
#include "system/local_time.h"

#include <thread>

namespace inin {

namespace {

class SystemClock : public Clock {
public:
    Date now() override { return presentMoment(); }
    double timer() override { return secondsSinceMidnight(); }
    void pause(std::chrono::milliseconds time) override { std::this_thread::sleep_for(time); }
};

} // namespace

std::unique_ptr<Clock> makeSystemClock()
{
    return std::make_unique<SystemClock>();
}

} // namespace inin
