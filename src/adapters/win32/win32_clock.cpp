#include "adapters/native/native_platform.h"

#include <windows.h>

namespace inin {

namespace {

SYSTEMTIME localTime()
{
    SYSTEMTIME time{};
    GetLocalTime(&time);
    return time;
}

class Win32Clock : public Clock {
public:
    Date now() override
    {
        const SYSTEMTIME time = localTime();
        return dateOf({time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond});
    }

    double timer() override
    {
        const SYSTEMTIME time = localTime();
        return time.wHour * 3600 + time.wMinute * 60 + time.wSecond + time.wMilliseconds / 1000.0;
    }

    void pause(std::chrono::milliseconds time) override { Sleep(static_cast<DWORD>(time.count())); }
};

} // namespace

std::unique_ptr<Clock> makeSystemClock()
{
    return std::make_unique<Win32Clock>();
}

} // namespace inin
