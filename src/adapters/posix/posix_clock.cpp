#include "adapters/native/native_platform.h"

#include <chrono>
#include <ctime>
#include <thread>

namespace inin::posix {

namespace {

std::tm localParts(std::time_t seconds)
{
    std::tm parts{};
    localtime_r(&seconds, &parts);
    return parts;
}

class PosixClock : public Clock {
public:
    Date now() override
    {
        const std::tm parts = localParts(std::time(nullptr));
        // A Date cannot represent a leap second: report the last second of the minute.
        const int second = parts.tm_sec > 59 ? 59 : parts.tm_sec;
        return dateOf({parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday, parts.tm_hour, parts.tm_min, second});
    }

    double timer() override
    {
        using namespace std::chrono;
        const auto time = system_clock::now();
        const auto whole = floor<seconds>(time);
        const std::tm parts = localParts(system_clock::to_time_t(whole));
        return parts.tm_hour * 3600 + parts.tm_min * 60 + parts.tm_sec + duration<double>(time - whole).count();
    }

    void pause(std::chrono::milliseconds time) override { std::this_thread::sleep_for(time); }
};

} // namespace

} // namespace inin::posix

std::unique_ptr<inin::Clock> inin::makeSystemClock()
{
    return std::make_unique<posix::PosixClock>();
}
